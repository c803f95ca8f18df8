// Counts the arrows between keys.
#include "travel.h"

#include <deque>

#include "key_set.h"
#include "repertoire.h"

namespace layouts
{
namespace
{

constexpr double kNotReached = -1;

std::vector<double> walk(const std::vector<Neighbours>& around, size_t start)
{
    std::vector<double> presses(around.size(), kNotReached);
    std::deque<size_t> open = {start};
    presses[start] = 0;
    for (; !open.empty(); open.pop_front()) {
        const Neighbours& next = around[open.front()];
        for (const int key : {next.left, next.right, next.up, next.down}) {
            double& reached = presses[static_cast<size_t>(key)];
            if (reached != kNotReached)
                continue;
            reached = presses[open.front()] + 1;
            open.push_back(static_cast<size_t>(key));
        }
    }
    return presses;
}

} // namespace

Travel::Travel(const std::vector<Neighbours>& around)
{
    for (size_t key = 0; key < around.size(); ++key)
        m_presses.push_back(walk(around, key));
}

std::vector<double> Travel::from(size_t key) const
{
    return m_presses[key];
}

std::vector<double> Travel::fromKeys(const KeySet& keys, const Repertoire& repertoire) const
{
    std::vector<double> mean(m_presses.size());
    for (size_t from = 0; from < keys.size(); ++from) {
        const double share = repertoire.share(keys.at(from).plain);
        for (size_t to = 0; to < mean.size(); ++to)
            mean[to] += share * m_presses[from][to];
    }
    return mean;
}

} // namespace layouts
