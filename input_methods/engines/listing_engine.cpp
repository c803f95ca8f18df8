// Keeps what an engine found, and gives it out in parts.
#include "listing_engine.h"

#include <algorithm>
#include <utility>

namespace input_methods
{

void ListingEngine::addCandidates(size_t from, size_t count, std::vector<std::string>& found)
{
    const size_t end = std::min(from + count, all().size());
    for (size_t i = from; i < end; ++i)
        found.push_back(m_all[i].text);
}

void ListingEngine::take(size_t index, Answer& answer)
{
    if (index >= all().size())
        return;
    const Candidate candidate = m_all[index];
    answer.commit += candidate.text;
    use(candidate);
    forgetList();
}

void ListingEngine::offer(Candidate candidate)
{
    m_all.push_back(std::move(candidate));
}

bool ListingEngine::isOffered(const std::string& text) const
{
    return std::any_of(m_all.begin(), m_all.end(),
                       [&](const Candidate& known) { return known.text == text; });
}

const std::vector<ListingEngine::Candidate>& ListingEngine::all()
{
    if (m_all.empty())
        list();
    return m_all;
}

} // namespace input_methods
