// An engine whose answers a test knows to the letter.
#include "scripted_engine.h"

#include <algorithm>

#include "text.h"

namespace input_methods_test
{

using input_methods::Answer;

bool ScriptedEngine::type(uint32_t character, Answer&)
{
    if (character < 'a' || character > 'z')
        return false;
    m_preedit += static_cast<char>(character);
    return true;
}

bool ScriptedEngine::erase(Answer&)
{
    if (m_preedit.empty())
        return false;
    m_preedit.pop_back();
    return true;
}

void ScriptedEngine::take(size_t index, Answer& answer)
{
    answer.commit += m_all[index];
    m_preedit.erase(0, std::min(m_preedit.size(), input_methods::letters(m_all[index])));
}

void ScriptedEngine::addCandidates(size_t from, size_t count, std::vector<std::string>& found)
{
    for (size_t i = from; !m_preedit.empty() && i < m_all.size() && i < from + count; ++i)
        found.push_back(m_all[i]);
}

} // namespace input_methods_test
