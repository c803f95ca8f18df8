// An engine whose answers a test knows to the letter.
#include "scripted_engine.h"

#include <algorithm>

#include "text.h"

namespace input_methods_test
{

using input_methods::Answer;

bool ScriptedEngine::type(const std::string& character, Answer&)
{
    if (character < "a" || character > "z")
        return false;
    m_preedit += character;
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

void ScriptedEngine::finish(Answer& answer)
{
    answer.commit += m_preedit;
    m_preedit.clear();
}

std::vector<std::string> ScriptedEngine::candidates(size_t from, size_t count)
{
    if (m_preedit.empty() || from >= m_all.size())
        return {};
    const auto first = m_all.begin() + static_cast<std::ptrdiff_t>(from);
    const size_t length = std::min(count, m_all.size() - from);
    return {first, first + static_cast<std::ptrdiff_t>(length)};
}

} // namespace input_methods_test
