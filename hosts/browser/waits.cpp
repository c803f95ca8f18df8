// Who waits for the page, by number.
#include "waits.h"

#include <utility>

namespace host
{

unsigned Waits::add(std::function<void()> done)
{
    m_waits[++m_last] = std::move(done);
    return m_last;
}

void Waits::end(unsigned number)
{
    const auto wait = m_waits.find(number);
    if (wait == m_waits.end())
        return; // ended before its answer came
    const std::function<void()> done = std::move(wait->second);
    m_waits.erase(wait);
    done();
}

void Waits::endAll()
{
    std::map<unsigned, std::function<void()>> waits;
    waits.swap(m_waits); // who is called back may wait again
    for (const auto& wait : waits)
        wait.second();
}

} // namespace host
