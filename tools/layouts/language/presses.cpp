// Finds the shortest way over a layout's keys that types a word.
#include "presses.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "key_map.h"
#include "text.h"
#include "typing.h"

namespace layouts
{
namespace
{

constexpr int kNoWay = -1;
const char kBlank[] = " ";

// Shift is off, on for one character, or locked.
constexpr size_t kShifts = 3;
constexpr size_t kOnce = 1;

// A place on the keyboard as it is shown: which faces, and the focused key.
struct State {
    size_t shift;
    bool alt;
    size_t key;
};

size_t numberOf(const State& state, size_t keys)
{
    return (state.shift * 2 + (state.alt ? 1 : 0)) * keys + state.key;
}

State stateOf(size_t number, size_t keys)
{
    return {number / keys / 2, number / keys % 2 != 0, number % keys};
}

std::vector<State> nextStates(const KeyMap& keyMap, const State& state)
{
    const Key& key = (state.alt ? keyMap.symbols : keyMap.defaults)[state.key];
    std::vector<State> next;
    for (const int neighbour :
         {key.neighbours.left, key.neighbours.right, key.neighbours.up, key.neighbours.down})
        next.push_back({state.shift, state.alt, static_cast<size_t>(neighbour)});
    if (key.isSpecial && key.plain.text == "Shift")
        next.push_back({(state.shift + 1) % kShifts, state.alt, state.key});
    if (key.isSpecial && key.plain.text == "Alt")
        next.push_back({state.shift, !state.alt, state.key});
    return next;
}

} // namespace

PressCounter::PressCounter(const KeyMap& keyMap) : m_keys(keyMap.defaults.size())
{
    findDistances(keyMap);
    addStrokes(keyMap);
}

void PressCounter::findDistances(const KeyMap& keyMap)
{
    const size_t states = kShifts * 2 * m_keys;
    std::vector<std::vector<size_t>> next(states);
    for (size_t i = 0; i < states; ++i)
        for (const State& state : nextStates(keyMap, stateOf(i, m_keys)))
            next[i].push_back(numberOf(state, m_keys));

    m_distances.assign(states, std::vector<int>(states, kNoWay));
    for (size_t from = 0; from < states; ++from) {
        std::vector<int>& distances = m_distances[from];
        std::deque<size_t> open = {from};
        distances[from] = 0;
        for (; !open.empty(); open.pop_front())
            for (const size_t to : next[open.front()])
                if (distances[to] == kNoWay) {
                    distances[to] = distances[open.front()] + 1;
                    open.push_back(to);
                }
    }
}

void PressCounter::addStrokes(const KeyMap& keyMap)
{
    for (const Face& face : kFaces) {
        const std::vector<Key>& keys = keysOf(keyMap, face);
        for (size_t i = 0; i < keys.size(); ++i) {
            const std::string text = nfd(delivered(legendOf(keys[i], face)));
            if (keys[i].isSpecial || keys[i].keyCode < 0 || text.empty())
                continue;
            m_strokes.emplace(codePoints(text).front(), Stroke{text, i, face.symbol, face.shifted});
            if (text == kBlank && !face.symbol && !face.shifted)
                m_start = i;
        }
    }
}

// Adds what lies behind OK on the stroke's key.
void PressCounter::type(const Stroke& stroke, const Costs& before, Costs& after) const
{
    for (size_t shift = 0; shift < kShifts; ++shift) {
        if ((shift != 0) != stroke.shifted)
            continue;
        const size_t at = numberOf({shift, stroke.symbol, stroke.key}, m_keys);
        const size_t then =
            numberOf({shift == kOnce ? 0 : shift, stroke.symbol, stroke.key}, m_keys);
        for (const auto& from : before) {
            const int distance = m_distances[from.first][at];
            if (distance == kNoWay)
                continue;
            const int cost = from.second + distance + 1;
            const auto known = after.emplace(then, cost);
            known.first->second = std::min(known.first->second, cost);
        }
    }
}

int PressCounter::countWord(const std::string& word) const
{
    const std::string whole = nfd(word + kBlank);
    // By what is left to be typed; the longest first, as each stroke makes it shorter.
    std::map<size_t, std::map<std::string, Costs>> open;
    open[whole.size()][whole] = {{numberOf({0, false, m_start}, m_keys), 0}};
    while (!open.empty() && open.rbegin()->first > 0) {
        const auto longest = std::prev(open.end());
        const auto lefts = std::move(longest->second);
        open.erase(longest);
        for (const auto& left : lefts) {
            for (const char32_t first : frontOf(left.first)) {
                const auto range = m_strokes.equal_range(first);
                for (auto stroke = range.first; stroke != range.second; ++stroke) {
                    std::string rest;
                    if (!removeFront(left.first, stroke->second.text, rest))
                        continue;
                    type(stroke->second, left.second, open[rest.size()][rest]);
                }
            }
        }
    }
    if (open.empty())
        return kNoWay;
    int fewest = kNoWay;
    for (const auto& end : open.begin()->second.begin()->second)
        if (fewest == kNoWay || end.second < fewest)
            fewest = end.second;
    return fewest;
}

} // namespace layouts
