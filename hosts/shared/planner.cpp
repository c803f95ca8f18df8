// The shortest way to type a text: how far the text is typed is gone through piece by piece, and
// within each piece over all states of the keyboard.
#include "planner.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <map>

#include <unigbrk.h>
#include <unistr.h>

#include "key_result.h"
#include "text_line.h"

namespace host
{

using velmora::browser::vkb::Button_t;

namespace
{

const Press kPresses[] = {Press::Left, Press::Up, Press::Right, Press::Down, Press::Ok};
const size_t kPressCount = sizeof kPresses / sizeof kPresses[0];

const int kNowhere = -1;
const int kUnreached = std::numeric_limits<int>::max();

const char kKeyMark = '\x01'; // no text has it
const char kKeyText = '\x02';

// A key as part of a text that one layout composes.
std::string asKey(const std::string& text, int layout)
{
    return kKeyMark + std::to_string(layout) + kKeyText + text;
}

// What the keyboard can do, with a number for each of its states.
class Keyboard
{
public:
    // spelling: null where each key counts as what it shows.
    explicit Keyboard(const KeyboardModel& model, const Spelling* spelling = nullptr);

    int states() const { return m_layouts * kShifts * 2 * m_keys; }
    int number(const KeyboardState& state) const;
    KeyboardState state(int number) const;

    // Where a press leads that gives no key result, or kNowhere.
    int next(int state, size_t press) const
    {
        return m_next[static_cast<size_t>(state) * kPressCount + press];
    }

    // OK on a key that types: the states from where, and the state behind each.
    struct Stroke {
        int from, to;
    };
    struct Piece {
        std::string text; // decomposed
        std::vector<Stroke> strokes;
    };

    // The pieces that begin with this byte.
    const std::vector<Piece>& pieces(char first) const
    {
        return m_pieces[static_cast<unsigned char>(first)];
    }

    // The states where OK submits.
    const std::vector<int>& submitting() const { return m_submitting; }

private:
    static const int kShifts = 3;

    void addResult(const Button_t& key, const Stroke& stroke);
    void addPiece(const std::string& text, const Stroke& stroke);

    const Spelling* m_spelling;
    int m_layouts;
    int m_keys = 1; // at least, as numbers are divided by it
    std::vector<int> m_next;
    std::array<std::vector<Piece>, 256> m_pieces;
    std::vector<int> m_submitting;
};

Keyboard::Keyboard(const KeyboardModel& model, const Spelling* spelling)
    : m_spelling(spelling), m_layouts(static_cast<int>(model.layouts().size()))
{
    for (const Layout& layout : model.layouts())
        for (const auto& shifted : layout.faces)
            for (const Face& face : shifted)
                m_keys = std::max(m_keys, static_cast<int>(face.size()));

    m_next.assign(static_cast<size_t>(states()) * kPressCount, kNowhere);
    for (int from = 0; from < states(); ++from) {
        if (model.focused(state(from)) == nullptr)
            continue;
        const bool leadsToCandidates =
            model.layouts()[state(from).layout].hasCandidates && model.isInTopRow(state(from));
        for (size_t press = 0; press < kPressCount; ++press) {
            if (kPresses[press] == Press::Up && leadsToCandidates)
                continue;
            const KeyboardModel::Step step = model.after(state(from), kPresses[press]);
            if (step.hides || model.focused(step.state) == nullptr)
                continue;
            if (step.result == nullptr)
                m_next[static_cast<size_t>(from) * kPressCount + press] = number(step.state);
            else
                addResult(*step.result, {from, number(step.state)});
        }
    }
}

int Keyboard::number(const KeyboardState& state) const
{
    int value = static_cast<int>(state.layout) * kShifts + static_cast<int>(state.shift);
    value = value * 2 + (state.alt ? 1 : 0);
    return value * m_keys + state.key;
}

KeyboardState Keyboard::state(int number) const
{
    KeyboardState state;
    state.key = number % m_keys;
    number /= m_keys;
    state.alt = number % 2 != 0;
    number /= 2;
    state.shift = static_cast<Shift>(number % kShifts);
    state.layout = static_cast<size_t>(number / kShifts);
    return state;
}

// Keys that neither type nor submit would spoil the text.
void Keyboard::addResult(const Button_t& key, const Stroke& stroke)
{
    const KeyAction action = keyAction(key.keyCode);
    if (action == KeyAction::Submit)
        m_submitting.push_back(stroke.from);
    if (action != KeyAction::Insert)
        return;
    const std::string text = keyText(key.character, key.text);
    const int layout = static_cast<int>(state(stroke.from).layout);
    const bool isComposed = m_spelling != nullptr && m_spelling->isComposed(layout);
    if (isComposed)
        addPiece(asKey(text, layout), stroke);
    if (!isComposed || m_spelling->isPlain(layout, text))
        addPiece(decomposed(text), stroke);
}

void Keyboard::addPiece(const std::string& text, const Stroke& stroke)
{
    if (text.empty())
        return;
    std::vector<Piece>& pieces = m_pieces[static_cast<unsigned char>(text[0])];
    const auto known = std::find_if(pieces.begin(), pieces.end(),
                                    [&](const Piece& piece) { return piece.text == text; });
    if (known == pieces.end())
        pieces.push_back({text, {stroke}});
    else
        known->strokes.push_back(stroke);
}

// How a state is first reached when a piece was typed: by which OK, and from which such state
// before it.
struct Entry {
    int presses; // since the start
    size_t typedBefore;
    int enteredBefore;
    int okAt;
};

using Entries = std::map<int, Entry>; // by state

// The fewest presses to every state from the entries, and from which entry.
class Reach
{
public:
    explicit Reach(const Keyboard& keyboard)
        : m_keyboard(keyboard), m_presses(static_cast<size_t>(keyboard.states())),
          m_origin(m_presses.size())
    {
    }

    void spread(const Entries& entries);

    int presses(int state) const { return m_presses[static_cast<size_t>(state)]; }
    int origin(int state) const { return m_origin[static_cast<size_t>(state)]; }

private:
    void reach(int state, int presses, int origin)
    {
        int& known = m_presses[static_cast<size_t>(state)];
        if (presses >= known)
            return;
        known = presses;
        m_origin[static_cast<size_t>(state)] = origin;
        const size_t bucket = static_cast<size_t>(presses - m_fewest);
        if (bucket >= m_buckets.size())
            m_buckets.resize(bucket + 1);
        m_buckets[bucket].push_back(state);
    }

    const Keyboard& m_keyboard;
    std::vector<int> m_presses;
    std::vector<int> m_origin;
    std::vector<std::vector<int>> m_buckets; // of states, by presses more than the fewest
    int m_fewest = 0;
};

void Reach::spread(const Entries& entries)
{
    m_fewest = kUnreached;
    for (const auto& entry : entries)
        m_fewest = std::min(m_fewest, entry.second.presses);
    std::fill(m_presses.begin(), m_presses.end(), kUnreached);
    m_buckets.clear();
    for (const auto& entry : entries)
        reach(entry.first, entry.second.presses, entry.first);

    for (size_t bucket = 0; bucket < m_buckets.size(); ++bucket) {
        const int presses = m_fewest + static_cast<int>(bucket);
        for (size_t i = 0; i < m_buckets[bucket].size(); ++i) {
            const int here = m_buckets[bucket][i];
            if (m_presses[static_cast<size_t>(here)] != presses)
                continue; // a shorter way came behind it
            for (size_t press = 0; press < kPressCount; ++press) {
                const int there = m_keyboard.next(here, press);
                if (there != kNowhere)
                    reach(there, presses + 1, m_origin[static_cast<size_t>(here)]);
            }
        }
    }
}

// The ways between two states, each looked for once.
class Ways
{
public:
    explicit Ways(const Keyboard& keyboard) : m_keyboard(keyboard) {}

    // There must be one.
    const std::vector<Press>& between(int from, int to)
    {
        const auto known = m_ways.find({from, to});
        if (known != m_ways.end())
            return known->second;
        return m_ways[{from, to}] = found(from, to);
    }

private:
    std::vector<Press> found(int from, int to) const
    {
        struct Visit {
            int before;
            Press press;
        };
        std::map<int, Visit> visits = {{from, {kNowhere, Press::Ok}}};
        std::vector<int> queue = {from};
        for (size_t head = 0; visits.count(to) == 0; ++head) {
            for (size_t press = 0; press < kPressCount; ++press) {
                const int there = m_keyboard.next(queue[head], press);
                if (there != kNowhere &&
                    visits.insert({there, {queue[head], kPresses[press]}}).second)
                    queue.push_back(there);
            }
        }
        std::vector<Press> presses;
        for (int state = to; state != from; state = visits[state].before)
            presses.push_back(visits[state].press);
        std::reverse(presses.begin(), presses.end());
        return presses;
    }

    const Keyboard& m_keyboard;
    std::map<std::pair<int, int>, std::vector<Press>> m_ways;
};

// Notes the states behind every key that types what comes next in the text.
void typeOn(const Keyboard& keyboard, const Reach& reach, const std::string& text, size_t typed,
            std::vector<Entries>& entries)
{
    for (const Keyboard::Piece& piece : keyboard.pieces(text[typed])) {
        if (text.compare(typed, piece.text.size(), piece.text) != 0)
            continue;
        Entries& behind = entries[typed + piece.text.size()];
        for (const Keyboard::Stroke& stroke : piece.strokes) {
            if (reach.presses(stroke.from) == kUnreached)
                continue;
            const Entry entry = {reach.presses(stroke.from) + 1, typed, reach.origin(stroke.from),
                                 stroke.from};
            const auto added = behind.insert({stroke.to, entry});
            if (!added.second && entry.presses < added.first->second.presses)
                added.first->second = entry;
        }
    }
}

// The one of these states with the fewest presses, or kNowhere.
int nearest(const Reach& reach, const std::vector<int>& states)
{
    int found = kNowhere;
    for (const int state : states)
        if (reach.presses(state) != kUnreached &&
            (found == kNowhere || reach.presses(state) < reach.presses(found)))
            found = state;
    return found;
}

Entry fewestPresses(const Entries& entries)
{
    return std::min_element(
               entries.begin(), entries.end(),
               [](const auto& a, const auto& b) { return a.second.presses < b.second.presses; })
        ->second;
}

// The presses up to the OK that the last entry tells of; from there to the start, and turned round.
std::vector<Press> wayTo(const Keyboard& keyboard, const std::vector<Entries>& entries, Entry last)
{
    Ways ways(keyboard);
    std::vector<Press> presses;
    while (last.okAt != kNowhere) {
        presses.push_back(Press::Ok);
        const std::vector<Press>& way = ways.between(last.enteredBefore, last.okAt);
        presses.insert(presses.end(), way.rbegin(), way.rend());
        last = entries[last.typedBefore].at(last.enteredBefore);
    }
    std::reverse(presses.begin(), presses.end());
    return presses;
}

// Each of its keys as a piece of its own.
std::string keysOf(const Spelling::Part& part)
{
    const uint8_t* position = reinterpret_cast<const uint8_t*>(part.keys.data());
    std::string keys;
    for (size_t i = 0; i < part.keys.size();) {
        const int length = u8_mblen(position + i, part.keys.size() - i);
        const size_t bytes = length > 0 ? static_cast<size_t>(length) : 1;
        keys += asKey(part.keys.substr(i, bytes), part.layout);
        i += bytes;
    }
    return keys;
}

// The character around the position as its writer sees it: a letter with its marks is one.
std::string characterAround(const std::string& text, size_t position)
{
    const uint8_t* start = reinterpret_cast<const uint8_t*>(text.data());
    const uint8_t* end = start + text.size();
    for (const uint8_t* from = start; from != end;) {
        const uint8_t* to = u8_grapheme_next(from, end);
        if (to > start + position)
            return composed(std::string(from, to));
        from = to;
    }
    return "";
}

// wanted: decomposed, and what is to be composed as keys.
Plan planPieces(const KeyboardModel& model, const Keyboard& keyboard, const KeyboardState& from,
                const std::string& wanted, PlanEnd end)
{
    Plan plan;
    if (model.focused(from) == nullptr)
        return plan;

    Reach reach(keyboard);
    std::vector<Entries> entries(wanted.size() + 1); // by the bytes that are typed
    entries[0][keyboard.number(from)] = {0, 0, kNowhere, kNowhere};
    size_t farthest = 0;
    for (size_t typed = 0; typed < wanted.size(); ++typed) {
        if (entries[typed].empty())
            continue;
        farthest = typed;
        reach.spread(entries[typed]);
        typeOn(keyboard, reach, wanted, typed, entries);
    }
    if (entries.back().empty()) {
        plan.obstacle = characterAround(wanted, farthest);
        return plan;
    }

    Entry last = fewestPresses(entries.back());
    if (end == PlanEnd::Enter) {
        reach.spread(entries.back());
        const int okAt = nearest(reach, keyboard.submitting());
        if (okAt == kNowhere)
            return plan;
        last = {0, wanted.size(), reach.origin(okAt), okAt};
    }
    plan.presses = wayTo(keyboard, entries, last);
    plan.possible = true;
    return plan;
}

} // namespace

Plan planTyping(const KeyboardModel& model, const KeyboardState& from, const std::string& text,
                PlanEnd end)
{
    return planPieces(model, Keyboard(model), from, decomposed(text), end);
}

Plan planComposing(const KeyboardModel& model, const Spelling& spelling, const KeyboardState& from,
                   const std::string& text, PlanEnd end)
{
    std::string wanted;
    for (const Spelling::Part& part : spelling.parts(text)) {
        if (part.layout == Spelling::kAnyLayout)
            wanted += decomposed(part.keys);
        else
            wanted += keysOf(part);
    }
    Plan plan = planPieces(model, Keyboard(model, &spelling), from, wanted, end);
    if (plan.possible)
        return plan;
    // A language that converts has its keys typed, for candidates to be chosen from.
    Plan asShown = planTyping(model, from, text, end);
    const bool isKey = !plan.obstacle.empty() && plan.obstacle[0] == kKeyMark;
    return asShown.possible || isKey ? asShown : plan;
}

Plan planKey(const KeyboardModel& model, const KeyboardState& from,
             const std::function<bool(const Button_t&)>& isWanted)
{
    Plan plan;
    if (model.focused(from) == nullptr)
        return plan;
    const Keyboard keyboard(model);
    const int start = keyboard.number(from);
    std::vector<int> wanted;
    for (int state = 0; state < keyboard.states(); ++state) {
        const Button_t* key = model.focused(keyboard.state(state));
        if (key != nullptr && isWanted(*key))
            wanted.push_back(state);
    }
    Reach reach(keyboard);
    reach.spread({{start, {0, 0, kNowhere, kNowhere}}});
    const int okAt = nearest(reach, wanted);
    if (okAt == kNowhere)
        return plan;
    plan.presses = Ways(keyboard).between(start, okAt);
    plan.presses.push_back(Press::Ok);
    plan.possible = true;
    return plan;
}

const char* pressName(Press press)
{
    switch (press) {
    case Press::Left:
        return "Left";
    case Press::Up:
        return "Up";
    case Press::Right:
        return "Right";
    case Press::Down:
        return "Down";
    case Press::Ok:
        break;
    }
    return "Return";
}

} // namespace host
