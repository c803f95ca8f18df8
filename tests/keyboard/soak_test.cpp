// Random remote keys and host calls, each followed by a look at everything that a host or a
// viewer can see. VKB_SOAK_SEED and VKB_SOAK_STEPS choose another run.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>

#include <gmock/gmock.h>
#include <malloc.h>
#include <unistd.h>

#include "drawn_keyboard.h"
#include "keyboard_core.h"
#include "keyboard_model.h"
#include "recording_display.h"
#include "soak_layouts.h"
#include "trace.h"

using test_support::DrawnKeyboard;
using test_support::drawnKeyboard;
using test_support::Lines;
using test_support::RecordingDisplay;
using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardCore;
using velmora::browser::vkb::OsButton_t;

namespace
{

long setting(const char* variable, long usual)
{
    const char* value = std::getenv(variable);
    return value == nullptr ? usual : std::atol(value);
}

enum Action {
    REMOTE_KEY,
    START,
    CANCEL,
    SHOW,
    HIDE,
    LAYOUT_CHANGE,
    REFRESH,
    REPLACE_LOCK,
    IDLE_CALLS,
    REBUILD,
    ACTIONS
};

const char* const kActionNames[] = {"key",    "start",   "cancel",       "show",       "hide",
                                    "layout", "refresh", "replace lock", "idle calls", "rebuild"};

// How often each action comes, of 1000.
const int kWeights[ACTIONS] = {880, 25, 15, 15, 15, 10, 15, 10, 10, 5};

const int kRemoteKeys[] = {13, 13, 13, 37, 38, 39, 39, 39, 40, 12, 0, -1, 41};

std::vector<std::string> labels(const std::vector<Face>& keys)
{
    std::vector<std::string> texts;
    for (const Face& key : keys)
        texts.push_back(key.text);
    return texts;
}

// One keyboard beside the model of what it is to do.
class Pair
{
public:
    Pair(IDirectFB* dfb, const std::vector<LayoutKeys>& layouts)
        : m_dfb(dfb), m_layouts(layouts), m_core(new KeyBoardCore), m_model(layouts)
    {
    }

    void act(Action action, int code)
    {
        switch (action) {
        case REMOTE_KEY:
            ASSERT_EQ(m_core->onKeyEvent(code), m_model.key(code));
            break;
        case START:
            m_core->OnIMEStart(m_dfb, nullptr);
            m_model.start();
            break;
        case CANCEL:
            m_core->OnIMECancelled();
            m_model.cancel();
            break;
        case SHOW:
            m_core->Show();
            m_model.show();
            break;
        case HIDE:
            m_core->Hide();
            m_model.hide();
            break;
        case LAYOUT_CHANGE:
            // A host may ask only after the names were read.
            if (m_model.everStarted()) {
                m_core->onLayoutChanged();
                m_model.layoutChange();
            }
            break;
        case REFRESH:
            if (m_model.hasRenderer()) {
                m_core->updateKeyBoardUI();
                m_model.refresh();
            }
            break;
        case REPLACE_LOCK:
            m_core->updateLockButton();
            m_model.replaceLastLock();
            break;
        case IDLE_CALLS:
            m_core->leave();
            m_core->notifySysLanguage("Two");
            break;
        case REBUILD:
            m_core.reset(new KeyBoardCore);
            m_model = KeyboardModel(m_layouts);
            break;
        case ACTIONS:
            FAIL() << "no action";
        }
    }

    void checkState()
    {
        ASSERT_EQ(m_core->isKeyBoardEnable(), m_model.started());
        ASSERT_EQ(m_core->isShow(), m_model.shown());
        ASSERT_EQ(m_core->getKeyBoardButton(), m_model.result().keyCode);
        OsButton_t result = {};
        m_core->getKeyBoardButton(result);
        ASSERT_EQ(result.keyCode, m_model.result().keyCode);
        ASSERT_EQ(result.modifier, m_model.result().modifier);
        ASSERT_EQ(result.character, m_model.result().character);
        ASSERT_EQ(result.text, m_model.result().text);
        // A position outside every set leaves the focus as it is and tells it.
        const Button_t focus = m_core->getTargetButtonByButtonId(-1);
        ASSERT_EQ(focus.text, m_model.focus().text);
        ASSERT_EQ(focus.id, m_model.focus().key.id);
        ASSERT_EQ(focus.keyCode, m_model.focus().key.keyCode);
        ASSERT_EQ(focus.character, m_model.focus().character);
        ASSERT_EQ(m_core->getWidth(), m_model.hasRenderer() ? 100 : 805);
        ASSERT_EQ(m_core->getHeight(), m_model.hasRenderer() ? 44 : 255);
    }

    // The keys, the sunken keys and the frame of the last picture drawn.
    void checkPicture(const Lines& trace) const
    {
        const DrawnKeyboard drawn = drawnKeyboard(trace);
        if (drawn.window == DrawnKeyboard::kUntouched)
            return;
        if (drawn.window == DrawnKeyboard::kHidden) {
            ASSERT_FALSE(m_model.shown());
            return;
        }
        if (!m_model.hasRenderer())
            return; // the empty panel of a renderer that was then deleted
        ASSERT_EQ(drawn.keys, labels(m_model.keys()));
        ASSERT_EQ(drawn.sunken, labels(m_model.locks()));
        const PixelRect rect = soakRect(m_model.focus().key.id);
        ASSERT_EQ(drawn.frame.positionX, rect.x);
        ASSERT_EQ(drawn.frame.positionY, rect.y);
        ASSERT_EQ(drawn.frame.width, rect.width);
        ASSERT_EQ(drawn.frame.height, rect.height);
    }

    bool started() const { return m_model.hasRenderer(); }

private:
    IDirectFB* m_dfb;
    const std::vector<LayoutKeys>& m_layouts;
    std::unique_ptr<KeyBoardCore> m_core;
    KeyboardModel m_model;
};

// Several keyboards, one of which acts at each step.
class Soak
{
public:
    Soak(IDirectFB* dfb, unsigned int seed) : m_layouts(soakLayouts()), m_random(seed)
    {
        writeLayouts(m_folder, m_layouts);
        for (int i = 0; i < 3; ++i)
            m_pairs.emplace_back(new Pair(dfb, m_layouts));
    }

    // The last window of all is destroyed by whoever is cancelled first; a display that draws in
    // earnest takes no calls for it then, so the others are cancelled with it.
    void cancelAllTogether() { m_together = true; }

    void step(long number)
    {
        const size_t who = m_random() % m_pairs.size();
        Action action = static_cast<Action>(m_choice(m_random));
        const int code = kRemoteKeys[m_random() % (sizeof kRemoteKeys / sizeof *kRemoteKeys)];
        // Much happens only while a keyboard is shown.
        if (action == REMOTE_KEY && !m_pairs[who]->started() && m_random() % 4 != 0)
            action = START;
        SCOPED_TRACE("step " + std::to_string(number) + ", keyboard " + std::to_string(who) + ", " +
                     kActionNames[action] + " " + std::to_string(code));

        if (m_together && (action == CANCEL || action == REBUILD)) {
            for (size_t i = 0; i < m_pairs.size(); ++i) {
                if (i != who)
                    m_pairs[i]->act(CANCEL, 0);
            }
        }
        test_support::takeTrace();
        m_pairs[who]->act(action, code);
        const Lines trace = test_support::takeTrace();
        for (const std::string& line : trace) {
            m_fonts += line.compare(0, 15, "dfb.CreateFont(") == 0;
            m_windows += line.compare(0, 19, "layer.CreateWindow(") == 0;
        }
        if (testing::Test::HasFatalFailure())
            return;
        m_pairs[who]->checkState();
        if (!testing::Test::HasFatalFailure() && action != REPLACE_LOCK)
            m_pairs[who]->checkPicture(trace);
    }

    // Made so far, as the recording display tells.
    long fonts() const { return m_fonts; }
    long windows() const { return m_windows; }

private:
    test_support::LayoutFolder m_folder;
    const std::vector<LayoutKeys> m_layouts;
    std::mt19937 m_random;
    std::discrete_distribution<int> m_choice{std::begin(kWeights), std::end(kWeights)};
    std::vector<std::unique_ptr<Pair>> m_pairs;
    bool m_together = false;
    long m_fonts = 0;
    long m_windows = 0;
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

const long kSample = 1000;

// What the recording display itself keeps of each object that was ever made.
long bytesPerFont(IDirectFB* dfb)
{
    const long before = heapBytes();
    const DFBFontDescription wanted = {};
    IDirectFBFont* font = nullptr;
    for (long i = 0; i < kSample; ++i) {
        dfb->CreateFont(dfb, "", &wanted, &font);
        font->Release(font);
        test_support::takeTrace();
    }
    return (heapBytes() - before) / kSample;
}

long bytesPerWindow(IDirectFB* dfb)
{
    IDirectFBDisplayLayer* layer = nullptr;
    dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &layer);
    const long before = heapBytes();
    DFBWindowDescription wanted = {};
    wanted.width = 100;
    wanted.height = 44;
    IDirectFBWindow* window = nullptr;
    IDirectFBSurface* surface = nullptr;
    for (long i = 0; i < kSample; ++i) {
        layer->CreateWindow(layer, &wanted, &window);
        window->GetSurface(window, &surface);
        window->Destroy(window);
        test_support::takeTrace();
    }
    return (heapBytes() - before) / kSample;
}

} // namespace

TEST(Soak, KeepsToTheModelOnTheRecordingDisplay)
{
    setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
    setenv("CSP_DEBUG_LEVEL", "0", 1);
    const long steps = setting("VKB_SOAK_STEPS", 200000);
    RecordingDisplay display;
    const long perFont = bytesPerFont(display.dfb());
    const long perWindow = bytesPerWindow(display.dfb());
    Soak soak(display.dfb(), seed());

    // The first tenth brings every buffer to its size.
    for (long i = 0; i < steps / 10; ++i) {
        soak.step(i);
        ASSERT_FALSE(HasFailure()) << "seed " << seed();
    }
    const long heap = heapBytes();
    const long fonts = soak.fonts();
    const long windows = soak.windows();
    for (long i = steps / 10; i < steps; ++i) {
        soak.step(i);
        ASSERT_FALSE(HasFailure()) << "seed " << seed();
    }

    // Memory is flat but for the font that every reload keeps, and for the display's own record
    // of what it made.
    const long madeFonts = soak.fonts() - fonts;
    const long madeWindows = soak.windows() - windows;
    ASSERT_GT(madeFonts, steps / 100) << "fewer reloads than the steps should bring";
    const long ofTheDisplay = madeFonts * perFont + madeWindows * perWindow;
    const long growth = heapBytes() - heap;
    std::printf("%ld steps: heap grew by %ld bytes; the display's %ld fonts and %ld windows take "
                "%ld\n",
                steps, growth, madeFonts, madeWindows, ofTheDisplay);
    EXPECT_LT(growth, ofTheDisplay + 64L * 1024);
}

TEST(Soak, KeepsToTheModelOnDirectFB)
{
    setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
    setenv("CSP_DEBUG_LEVEL", "0", 1);
    const long steps = setting("VKB_SOAK_DIRECTFB_STEPS", 20000);
    IDirectFB* dfb = nullptr;
    int no_arguments = 0;
    ASSERT_EQ(DirectFBInit(&no_arguments, nullptr), DFB_OK);
    ASSERT_EQ(DirectFBCreate(&dfb), DFB_OK);
    Soak soak(dfb, seed());
    soak.cancelAllTogether();
    for (long i = 0; i < steps; ++i) {
        soak.step(i);
        ASSERT_FALSE(HasFailure()) << "seed " << seed();
    }
}
