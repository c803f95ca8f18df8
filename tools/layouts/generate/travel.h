#ifndef TOOLS_LAYOUTS_GENERATE_TRAVEL_H
#define TOOLS_LAYOUTS_GENERATE_TRAVEL_H

#include <vector>

#include "catalogue.h"

namespace layouts
{

class KeySet;
class Repertoire;

// The arrows that lead from key to key.
class Travel
{
public:
    explicit Travel(const std::vector<Neighbours>& around);

    // Presses of arrows to each key, from one.
    std::vector<double> from(size_t key) const;

    // The mean from the keys that type the language's text, by how often it needs them.
    std::vector<double> fromKeys(const KeySet& keys, const Repertoire& repertoire) const;

private:
    std::vector<std::vector<double>> m_presses; // from each key to each
};

} // namespace layouts

#endif
