// Random remote keys and host calls, each followed by a look at everything that a host or a
// viewer can see. VKB_SOAK_SEED and VKB_SOAK_STEPS choose another run.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <tuple>

#include <gmock/gmock.h>
#include <malloc.h>
#include <unistd.h>

#include "drawn_keyboard.h"
#include "keyboard_core.h"
#include "keyboard_model.h"
#include "layout_sample.h"
#include "recording_display.h"
#include "trace.h"

using namespace test_support;
using namespace velmora::browser::vkb;
using sample::inRows;
using sample::Kind;

namespace
{

long setting(const char* variable, long otherwise)
{
    const char* value = std::getenv(variable);
    return value == nullptr ? otherwise : std::atol(value);
}

const int kRemoteKeys[] = {13, 13, 13, 37, 38, 39, 39, 39, 40, 12, 0, -1, 41};

Lines labels(const std::vector<Button_t>& keys)
{
    Lines texts;
    for (const Button_t& key : keys)
        texts.push_back(key.text);
    return texts;
}

Kind plain(const char* text, const char* shiftText, int code)
{
    return {text, false, false, code, 1000 + code, shiftText, 2000 + code};
}

Kind special(const char* text, int code, const char* shiftText = nullptr)
{
    return {text,       true, false, code, 1000 + code, shiftText == nullptr ? text : shiftText,
            2000 + code};
}

Kind language(const char* text, const char* shiftText)
{
    return {text, true, true, 0, 1000, shiftText, 2000};
}

// Three small layouts with every kind of key, among them the odd ones: keys that yield nothing, an
// unknown special key, the lower-case names of the special keys, neighbours that are not there, and
// symbol sets shorter than the default sets.
std::vector<LayoutKeys> soakLayouts()
{
    const LayoutKeys one = {
        inRows({plain("a", "A", 65), special("Shift", 16), plain("b", "B", 66), special("Alt", 18),
                language("EN", "EN"), plain("dead", "DEAD", -1), special("Hide", 27),
                special("ClearAll", 46)}),
        inRows({plain("1", "!", 49), special("Shift", 16), plain("2", "NULL", 50),
                special("Alt", 18), language("EN", "EN")})};
    const LayoutKeys two = {
        inRows({special("alt", 18), plain("\xC3\xA4", "\xC3\x84", 228), special("shift", 16),
                language("DE", "de"), special("hide", 27), special("clearall", 46)}),
        inRows({special("alt", 18), plain("NULL", "NULL", 0), special("shift", 16),
                language("DE", "de"), plain("a label longer than a short string", "x", 120),
                special("clearall", 46), special("SHIFT", 16)})};
    const LayoutKeys three = {
        inRows({language("FR", "FR"), special("Shift", 16, "shift"), special("Alt", 18, "alt"),
                plain("q", "Q", 81), special("what", 1), special("Shift", 16)}),
        inRows({language("FR", "FR"), plain("9", "9", 57)})};
    return {one, two, three};
}

// What may happen, and how often of 1000 times: calls to the keyboard, and what they mean.
struct Action {
    const char* name;
    int weight;
    void (*call)(KeyBoardCore& core) = nullptr;
    void (KeyboardModel::*meaning)() = nullptr;       // null: nothing changes
    bool (KeyboardModel::*allowed)() const = nullptr; // null: always
};

enum Actions { PressKey, Start, Cancel, Rebuild, ReplaceLock };

const Action kActions[] = {
    {"key", 880},
    {"start", 25},
    {"cancel", 15, [](KeyBoardCore& core) { core.OnIMECancelled(); }, &KeyboardModel::cancel},
    {"rebuild", 5},
    {"replace lock", 10, [](KeyBoardCore& core) { core.updateLockButton(); },
     &KeyboardModel::replaceLastLock},
    {"show", 15, [](KeyBoardCore& core) { core.Show(); }, &KeyboardModel::show},
    {"hide", 15, [](KeyBoardCore& core) { core.Hide(); }, &KeyboardModel::hide},
    // A host may ask only after the names were read.
    {"layout", 10, [](KeyBoardCore& core) { core.onLayoutChanged(); }, &KeyboardModel::nextLayout,
     &KeyboardModel::everStarted},
    {"refresh", 15, [](KeyBoardCore& core) { core.updateKeyBoardUI(); }, &KeyboardModel::reload,
     &KeyboardModel::hasRenderer},
    {"idle calls", 10, [](KeyBoardCore& core) { core.leave(), core.notifySysLanguage("Two"); }},
};

// One keyboard beside the model of what it is to do.
class Pair
{
public:
    Pair(IDirectFB* dfb, const std::vector<LayoutKeys>& layouts)
        : m_dfb(dfb), m_layouts(layouts), m_core(new KeyBoardCore), m_model(layouts)
    {
    }

    void act(const Action& action, int code)
    {
        if (&action == &kActions[PressKey]) {
            ASSERT_EQ(m_core->onKeyEvent(code), m_model.key(code));
        } else if (&action == &kActions[Start]) {
            m_core->OnIMEStart(m_dfb, nullptr);
            m_model.start();
        } else if (&action == &kActions[Rebuild]) {
            m_core.reset(new KeyBoardCore);
            m_model = KeyboardModel(m_layouts);
        } else if (action.allowed == nullptr || (m_model.*action.allowed)()) {
            action.call(*m_core);
            if (action.meaning != nullptr)
                (m_model.*action.meaning)();
        }
    }

    void checkState()
    {
        ASSERT_EQ(m_core->isKeyBoardEnable(), m_model.started());
        ASSERT_EQ(m_core->isShow(), m_model.shown());
        const KeyboardModel::Result& expected = m_model.result();
        ASSERT_EQ(m_core->getKeyBoardButton(), expected.keyCode);
        OsButton_t result = {};
        m_core->getKeyBoardButton(result);
        ASSERT_EQ(std::tie(result.keyCode, result.modifier, result.character, result.text),
                  std::tie(expected.keyCode, expected.modifier, expected.character, expected.text));
        // A position outside every set leaves the focus as it is and tells it.
        ASSERT_EQ(m_core->getTargetButtonByButtonId(-1), m_model.focus());
        ASSERT_EQ(m_core->getWidth(), m_model.hasRenderer() ? 260 : 805);
        ASSERT_EQ(m_core->getHeight(), m_model.hasRenderer() ? 118 : 255);
    }

    // The keys, the sunken keys and the frame of the last picture drawn.
    void checkPicture(const Lines& trace) const
    {
        const DrawnKeyboard drawn = drawnKeyboard(trace);
        if (drawn.window == DrawnKeyboard::Untouched)
            return;
        if (drawn.window == DrawnKeyboard::Hidden) {
            ASSERT_FALSE(m_model.shown());
            return;
        }
        if (!m_model.hasRenderer())
            return; // the empty panel of a renderer that was then deleted
        ASSERT_EQ(drawn.keys, labels(m_model.keys()));
        ASSERT_EQ(drawn.sunken, labels(m_model.locks()));
        const Rect_t& frame = drawn.frame;
        const Rect_t& rect = m_model.focus().rect;
        ASSERT_EQ(std::tie(frame.positionX, frame.positionY, frame.width, frame.height),
                  std::tie(rect.positionX, rect.positionY, rect.width, rect.height));
    }

    bool started() const { return m_model.hasRenderer(); }

private:
    IDirectFB* m_dfb;
    const std::vector<LayoutKeys>& m_layouts;
    std::unique_ptr<KeyBoardCore> m_core;
    KeyboardModel m_model;
};

// Several keyboards, one of which acts at each step.
class Keyboards
{
public:
    Keyboards(IDirectFB* dfb, unsigned int seed) : m_layouts(soakLayouts()), m_random(seed)
    {
        const Catalogue catalogue = sample::catalogue();
        m_folder.writeCatalogue(asJson(catalogue));
        for (size_t i = 0; i < m_layouts.size(); ++i)
            m_folder.writeKeyMap(catalogue.names[i],
                                 asJson(m_layouts[i].defaults, m_layouts[i].symbols));
        for (int i = 0; i < 3; ++i)
            m_pairs.emplace_back(new Pair(dfb, m_layouts));
    }

    // The last window of all is destroyed by whoever is cancelled first; a display that draws in
    // earnest takes no calls for it then, so the others are cancelled with it.
    void cancelAllTogether() { m_together = true; }

    void step(long number)
    {
        Pair& acting = *m_pairs[m_random() % m_pairs.size()];
        const Action* action = &chosen();
        const int code = kRemoteKeys[m_random() % std::size(kRemoteKeys)];
        // Much happens only while a keyboard is shown.
        if (action == &kActions[PressKey] && !acting.started() && m_random() % 4 != 0)
            action = &kActions[Start];
        SCOPED_TRACE("step " + std::to_string(number) + ", " + action->name + " " +
                     std::to_string(code));

        if (m_together && (action == &kActions[Cancel] || action == &kActions[Rebuild])) {
            for (const auto& pair : m_pairs)
                pair->act(kActions[Cancel], 0);
        }
        takeTrace();
        acting.act(*action, code);
        const Lines trace = takeTrace();
        if (!testing::Test::HasFatalFailure())
            acting.checkState();
        if (!testing::Test::HasFatalFailure() && action != &kActions[ReplaceLock])
            acting.checkPicture(trace);
    }

private:
    const Action& chosen()
    {
        int left = static_cast<int>(m_random() % 1000);
        const Action* action = kActions;
        while ((left -= action->weight) >= 0)
            ++action;
        return *action;
    }

    LayoutFolder m_folder;
    const std::vector<LayoutKeys> m_layouts;
    std::mt19937 m_random;
    std::vector<std::unique_ptr<Pair>> m_pairs;
    bool m_together = false;
};

unsigned int seed()
{
    const unsigned int value = static_cast<unsigned int>(setting("VKB_SOAK_SEED", 20240229));
    testing::Test::RecordProperty("seed", std::to_string(value));
    return value;
}

long heapBytes()
{
    return static_cast<long>(mallinfo2().uordblks);
}

class Soak : public testing::Test
{
protected:
    Soak()
    {
        setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
        setenv("CSP_DEBUG_LEVEL", "0", 1);
    }

    static void run(Keyboards& keyboards, long from, long to)
    {
        for (long i = from; i < to; ++i) {
            keyboards.step(i);
            ASSERT_FALSE(HasFailure()) << "seed " << seed();
        }
    }
};

} // namespace

TEST_F(Soak, KeepsToTheModelOnTheRecordingDisplay)
{
    const long steps = setting("VKB_SOAK_STEPS", 200000);
    RecordingDisplay display;
    Keyboards keyboards(display.dfb(), seed());

    // The first tenth brings every buffer to its size.
    ASSERT_NO_FATAL_FAILURE(run(keyboards, 0, steps / 10));
    const long heap = heapBytes();
    const size_t fonts = display.liveFonts();
    const size_t kept = display.bytesKept();
    ASSERT_NO_FATAL_FAILURE(run(keyboards, steps / 10, steps));

    // Memory is flat but for the font that every reload keeps, and for the display's own record
    // of what it made.
    const long reloads = static_cast<long>(display.liveFonts() - fonts);
    ASSERT_GT(reloads, steps / 100) << "fewer reloads than the steps should bring";
    const long ofTheDisplay = static_cast<long>(display.bytesKept() - kept);
    const long growth = heapBytes() - heap;
    std::printf(
        "%ld steps: heap grew by %ld bytes; the display's objects take %ld, for %ld reloads\n",
        steps, growth, ofTheDisplay, reloads);
    EXPECT_LT(growth, ofTheDisplay + 64L * 1024);
}

TEST_F(Soak, KeepsToTheModelOnDirectFB)
{
    IDirectFB* dfb = nullptr;
    int no_arguments = 0;
    ASSERT_EQ(DirectFBInit(&no_arguments, nullptr), DFB_OK);
    ASSERT_EQ(DirectFBCreate(&dfb), DFB_OK);
    Keyboards keyboards(dfb, seed());
    keyboards.cancelAllTogether();
    run(keyboards, 0, setting("VKB_SOAK_DIRECTFB_STEPS", 20000));
}
