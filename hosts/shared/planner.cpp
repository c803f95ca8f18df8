#include "planner.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include <unigbrk.h>

#include "key_result.h"
#include "text_line.h"

namespace host
{

using velmora::browser::vkb::Button_t;

namespace
{

const Press kPresses[] = {Press::Left, Press::Up, Press::Right, Press::Down, Press::Ok};

// One place of the search: a keyboard state and how many bytes of the text are typed.
struct Place {
    KeyboardState state;
    size_t typed;
};

// Gives each place a number, so that the search keeps one small record for each.
class Numbering
{
public:
    explicit Numbering(const KeyboardModel& model) : m_layouts(model.layouts().size())
    {
        for (const Layout& layout : model.layouts())
            for (const auto& shifted : layout.faces)
                for (const Face& face : shifted)
                    m_keys = std::max(m_keys, face.size());
    }

    size_t states() const { return m_layouts * kShifts * 2 * m_keys; }

    size_t number(const Place& place) const
    {
        const KeyboardState& state = place.state;
        size_t value = place.typed * m_layouts + state.layout;
        value = value * kShifts + static_cast<size_t>(state.shift);
        value = value * 2 + state.alt;
        return value * m_keys + static_cast<size_t>(state.key);
    }

    Place place(size_t number) const
    {
        Place place;
        place.state.key = static_cast<int>(number % m_keys);
        number /= m_keys;
        place.state.alt = number % 2 != 0;
        number /= 2;
        place.state.shift = static_cast<Shift>(number % kShifts);
        number /= kShifts;
        place.state.layout = number % m_layouts;
        place.typed = number / m_layouts;
        return place;
    }

private:
    static const size_t kShifts = 3;
    size_t m_layouts;
    size_t m_keys = 1; // at least, as numbers are divided by it
};

struct Visit {
    size_t from = std::numeric_limits<size_t>::max();
    Press press = Press::Ok;
    bool seen = false;
};

std::vector<Press> wayTo(const std::vector<Visit>& visits, size_t start, size_t number)
{
    std::vector<Press> presses;
    for (; number != start; number = visits[number].from)
        presses.push_back(visits[number].press);
    std::reverse(presses.begin(), presses.end());
    return presses;
}

// Whether the key result of this key carries the text on, which then is typed so far; any other
// text would spoil it.
bool carriesOn(const Button_t& key, const std::string& text, size_t& typed)
{
    if (keyAction(key.keyCode) != KeyAction::Insert)
        return false;
    const std::string piece = decomposed(keyText(key.character, key.text));
    if (piece.empty() || text.compare(typed, piece.size(), piece) != 0)
        return false;
    typed += piece.size();
    return true;
}

// Whether this press is the last one of the plan. typed: bytes of the text, with this press.
using IsLast =
    std::function<bool(const Place& here, Press press, const Button_t* result, size_t typed)>;

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

// text: decomposed.
Plan search(const KeyboardModel& model, const KeyboardState& from, const std::string& text,
            const IsLast& isLast)
{
    Plan plan;
    if (model.focused(from) == nullptr)
        return plan;

    const Numbering numbering(model);
    std::vector<Visit> visits(numbering.states() * (text.size() + 1));
    const size_t start = numbering.number({from, 0});
    visits[start].seen = true;
    std::vector<size_t> queue = {start};
    size_t farthest = 0;

    for (size_t head = 0; head < queue.size(); ++head) {
        const size_t here = queue[head];
        const Place place = numbering.place(here);
        farthest = std::max(farthest, place.typed);
        for (const Press press : kPresses) {
            const KeyboardModel::Step step = model.after(place.state, press);
            Place next = {step.state, place.typed};
            const bool fits = step.result == nullptr || carriesOn(*step.result, text, next.typed);
            if (isLast(place, press, step.result, next.typed)) {
                plan.presses = wayTo(visits, start, here);
                plan.presses.push_back(press);
                plan.possible = true;
                return plan;
            }
            if (!fits || step.hides || model.focused(step.state) == nullptr)
                continue;
            Visit& visit = visits[numbering.number(next)];
            if (visit.seen)
                continue;
            visit = {here, press, true};
            queue.push_back(numbering.number(next));
        }
    }
    plan.obstacle = characterAround(text, farthest);
    return plan;
}

} // namespace

Plan planTyping(const KeyboardModel& model, const KeyboardState& from, const std::string& text,
                PlanEnd end)
{
    const std::string wanted = decomposed(text);
    if (end == PlanEnd::Text && wanted.empty()) {
        Plan nothing;
        nothing.possible = true;
        return nothing;
    }
    return search(model, from, wanted,
                  [&](const Place& here, Press, const Button_t* result, size_t typed) {
                      if (result == nullptr || typed != wanted.size())
                          return false;
                      const bool isEnter = keyAction(result->keyCode) == KeyAction::Submit;
                      return end == PlanEnd::Enter ? isEnter : here.typed < typed;
                  });
}

Plan planKey(const KeyboardModel& model, const KeyboardState& from,
             const std::function<bool(const Button_t&)>& isWanted)
{
    return search(model, from, "", [&](const Place& here, Press press, const Button_t*, size_t) {
        return press == Press::Ok && isWanted(*model.focused(here.state));
    });
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
