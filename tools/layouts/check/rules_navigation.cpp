// Rules about the arrows between the keys of a key map.
#include "rules.h"

#include <unordered_set>
#include <vector>

#include "key_map.h"

namespace layouts
{
namespace
{

struct Direction {
    const char* member;
    const char* backMember;
    int Neighbours::*to;
    int Neighbours::*back;
};

const Direction kDirections[] = {
    {"left_button", "right_button", &Neighbours::left, &Neighbours::right},
    {"right_button", "left_button", &Neighbours::right, &Neighbours::left},
    {"up_button", "down_button", &Neighbours::up, &Neighbours::down},
    {"down_button", "up_button", &Neighbours::down, &Neighbours::up},
};

// The moves inside one key set.
class Moves
{
public:
    Moves(const std::string& file, const std::vector<Key>& keys, const Face& face,
          Findings& findings)
        : m_file(file), m_keys(keys), m_face(face), m_findings(findings)
    {
    }

    bool checkNeighbours()
    {
        bool sound = true;
        for (size_t i = 0; i < m_keys.size(); ++i) {
            for (const Direction& direction : kDirections) {
                const int to = m_keys[i].neighbours.*direction.to;
                if (to >= 0 && static_cast<size_t>(to) < m_keys.size())
                    continue;
                add(keyPath(m_face, i) + "." + direction.member, std::to_string(to),
                    "the id of a key, 0 to " + std::to_string(m_keys.size() - 1), "neighbour");
                sound = false;
            }
        }
        return sound;
    }

    // A key that others lead to leads back to one of them.
    void checkWaysBack()
    {
        for (const Direction& direction : kDirections) {
            std::vector<std::vector<int>> from(m_keys.size());
            for (size_t i = 0; i < m_keys.size(); ++i)
                from[target(i, direction.to)].push_back(static_cast<int>(i));
            for (size_t i = 0; i < m_keys.size(); ++i) {
                const int back = m_keys[i].neighbours.*direction.back;
                bool returns = from[i].empty();
                std::string keys;
                for (const int key : from[i]) {
                    returns = returns || key == back;
                    keys += (keys.empty() ? "" : " or ") + std::to_string(key);
                }
                if (!returns)
                    add(keyPath(m_face, i) + "." + direction.backMember, std::to_string(back),
                        keys + ", where " + direction.member + " comes from", "back");
            }
        }
    }

    // The focus begins on key 0. Each key is reached from there, and leads there.
    void checkReach()
    {
        std::vector<std::vector<size_t>> to(m_keys.size());
        std::vector<std::vector<size_t>> from(m_keys.size());
        for (size_t i = 0; i < m_keys.size(); ++i) {
            for (const Direction& direction : kDirections) {
                to[i].push_back(target(i, direction.to));
                from[target(i, direction.to)].push_back(i);
            }
        }
        const std::unordered_set<size_t> reached = walk(to);
        const std::unordered_set<size_t> leaving = walk(from);
        for (size_t i = 0; i < m_keys.size(); ++i) {
            if (!reached.count(i))
                add(keyPath(m_face, i), "a key that no arrows lead to",
                    "each key within reach of key 0", "reach");
            else if (!leaving.count(i))
                add(keyPath(m_face, i), "a key that no arrows lead away from",
                    "a way from each key to key 0", "leave");
        }
    }

private:
    size_t target(size_t key, int Neighbours::*to) const
    {
        return static_cast<size_t>(m_keys[key].neighbours.*to);
    }

    static std::unordered_set<size_t> walk(const std::vector<std::vector<size_t>>& next)
    {
        std::unordered_set<size_t> seen = {0};
        std::vector<size_t> open = {0};
        while (!open.empty()) {
            const size_t key = open.back();
            open.pop_back();
            for (const size_t neighbour : next[key])
                if (seen.insert(neighbour).second)
                    open.push_back(neighbour);
        }
        return seen;
    }

    void add(const std::string& where, const std::string& found, const std::string& expected,
             const std::string& rule)
    {
        m_findings.push_back({m_file, where, found, expected, rule});
    }

    const std::string& m_file;
    const std::vector<Key>& m_keys;
    const Face& m_face;
    Findings& m_findings;
};

} // namespace

void checkNavigation(const std::string& file, const KeyMap& keyMap, Findings& findings)
{
    for (const Face& face : {kFaces[0], kFaces[2]}) {
        Moves moves(file, keysOf(keyMap, face), face, findings);
        if (!moves.checkNeighbours())
            continue;
        moves.checkReach();
        moves.checkWaysBack();
    }
}

} // namespace layouts
