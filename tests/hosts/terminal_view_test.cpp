// What the terminal host shows on terminals of several kinds.
#include <csignal>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pseudo_terminal.h"

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char kHost[] = "exec env LD_PRELOAD=" TEST_SEAMS " " TERMINAL_HOST " ";
const int kPictureRow = 4;
const char kRight[] = "\033[C";
const char kDown[] = "\033[B";
const char kEscape[] = "\033";
const char kInterrupt[] = "\003";
const char kShownHint[] = "Arrows move, Enter presses, Esc hides the keyboard, Ctrl-C leaves";
const char kHiddenHint[] = "Enter shows the keyboard, Esc leaves without the text";

std::map<std::string, std::string> environment(const std::string& term)
{
    return {{"TERM", term}, {"COLORTERM", "truecolor"}, {"LANG", ""}, {"TMUX", ""}};
}

TerminalScreen::Kind sixelKind(int limit)
{
    TerminalScreen::Kind kind;
    kind.showsSixel = true;
    kind.sixelLimit = limit;
    return kind;
}

// The host on a terminal, with the bytes of each step counted.
class Host
{
public:
    Host(const std::string& arguments, const std::string& term,
         const TerminalScreen::Kind& kind = TerminalScreen::Kind())
        : m_terminal(kHost + arguments, environment(term), TerminalScreen(kind))
    {
    }

    PseudoTerminal& terminal() { return m_terminal; }
    const TerminalScreen& screen() const { return m_terminal.shown(); }

    bool waitForRow(const std::string& text)
    {
        return m_terminal.waitUntil([&](const TerminalScreen& screen) {
            for (int row = 1; row <= 60; ++row)
                if (screen.row(row) == text)
                    return true;
            return false;
        });
    }

    // The bytes that the key's new picture takes.
    size_t bytesOf(const std::string& key)
    {
        const size_t before = m_terminal.screen().size();
        m_terminal.send(key);
        EXPECT_TRUE(m_terminal.waitFor("\033[?25h"));
        return m_terminal.screen().size() - before;
    }

    void interrupt()
    {
        m_terminal.send(kInterrupt);
        ASSERT_TRUE(m_terminal.waitForEnd());
        EXPECT_EQ(m_terminal.endingSignal(), SIGINT);
        EXPECT_THAT(screen().faults(), IsEmpty());
    }

private:
    PseudoTerminal m_terminal;
};

class PixelTerminal : public testing::Test
{
protected:
    // All images together make one picture without a hole.
    static void expectWhole(const TerminalScreen& screen, int cellWidth, int cellHeight)
    {
        std::set<std::pair<int, int>> covered;
        int right = 0, bottom = 0;
        for (const auto& entry : screen.images()) {
            const TerminalScreen::Image& image = entry.second;
            const int left = (image.column - 1) * cellWidth;
            const int top = (image.row - kPictureRow) * cellHeight;
            right = std::max(right, left + image.width);
            bottom = std::max(bottom, top + image.height);
            for (int y = top; y < top + image.height; ++y)
                for (int x = left; x < left + image.width; x += cellWidth)
                    covered.emplace(x, y);
        }
        EXPECT_GT(right, 0);
        EXPECT_EQ(covered.size(), size_t(right / cellWidth) * size_t(bottom));
    }
};

TEST_F(PixelTerminal, KittyReplacesInPlaceAndLeavesNothingWhenHidden)
{
    const size_t kMost = 60000;
    Host host("", "xterm-kitty");
    host.terminal().resize(150, 45, 10, 20);
    ASSERT_TRUE(host.waitForRow(kShownHint));
    ASSERT_TRUE(host.terminal().waitUntil(
        [](const TerminalScreen& screen) { return screen.images().size() == 15; }));
    expectWhole(host.screen(), 10, 20);
    const auto before = host.screen().images();
    for (const char* key : {kRight, kDown, kDown, kDown, kRight})
        EXPECT_LT(host.bytesOf(key), kMost);
    EXPECT_EQ(host.screen().removals(), 0);
    expectWhole(host.screen(), 10, 20);
    EXPECT_NE(before.at(1).rgb, host.screen().images().at(1).rgb);

    host.terminal().send(kEscape);
    ASSERT_TRUE(host.waitForRow(kHiddenHint));
    EXPECT_THAT(host.screen().images(), IsEmpty());
    host.terminal().send("\r");
    ASSERT_TRUE(host.waitForRow(kShownHint));
    expectWhole(host.screen(), 10, 20);
    host.interrupt();
}

TEST_F(PixelTerminal, SixelKeepsToTheTerminalsLimit)
{
    for (const int limit : {1000, 300}) {
        Host host("", "xterm-256color", sixelKind(limit));
        host.terminal().resize(200, 60, 10, 20);
        ASSERT_TRUE(host.waitForRow(kShownHint));
        expectWhole(host.screen(), 10, 20);
        EXPECT_LE(host.screen().images().size(), 16U); // as many as xterm shows
        for (const char* key : {kRight, kDown, kDown, kDown, kRight})
            EXPECT_LT(host.bytesOf(key), 60000U);
        expectWhole(host.screen(), 10, 20);
        host.terminal().send(kEscape);
        ASSERT_TRUE(host.waitForRow(kHiddenHint));
        EXPECT_THAT(host.screen().images(), IsEmpty());
        host.interrupt();
    }
}

TEST(SymbolTerminal, AnArrowWritesOnlyWhatChanges)
{
    Host host("", "xterm-256color");
    host.terminal().resize(150, 45);
    ASSERT_TRUE(host.waitForRow(kShownHint));
    const size_t all = host.terminal().screen().size();
    EXPECT_LT(host.bytesOf(kRight) * 2, all);
    host.interrupt();
}

TEST(TerminalView, NoHintIsLeftOver)
{
    Host host("", "xterm-256color");
    const auto count = [&](const std::string& hint) {
        int rows = 0;
        for (int row = 1; row <= 24; ++row)
            rows += host.screen().row(row) == hint;
        return rows;
    };
    ASSERT_TRUE(host.waitForRow(kShownHint));
    for (int i = 0; i < 3; ++i) {
        host.terminal().send(kEscape);
        ASSERT_TRUE(host.waitForRow(kHiddenHint));
        EXPECT_EQ(count(kShownHint), 0);
        host.terminal().send("\r");
        ASSERT_TRUE(host.waitForRow(kShownHint));
        EXPECT_EQ(count(kHiddenHint), 0);
        EXPECT_EQ(count(kShownHint), 1);
    }
    host.interrupt();
}

TEST(TerminalView, TerminalsWithoutColourGetNone)
{
    Host host("", "vt100");
    ASSERT_TRUE(host.waitForRow(kShownHint));
    EXPECT_THAT(host.screen().looks(), ElementsAre("0", "7")); // plain, and reversed for the focus
    host.interrupt();
}

TEST(TerminalView, SaysThatTheTerminalIsNotUtf8)
{
    TerminalScreen::Kind kind;
    kind.isUtf8 = false;
    for (const char* arguments : {"", "--type a"}) {
        Host host(arguments, "xterm", kind);
        ASSERT_TRUE(host.terminal().waitForEnd());
        EXPECT_EQ(host.terminal().exitStatus(), 2);
        EXPECT_THAT(host.terminal().screen(), HasSubstr("expected one in UTF-8"));
        EXPECT_EQ(host.terminal().modes(), host.terminal().modesBefore());
    }
    Host unseen("--type ü --picture none", "xterm", kind);
    ASSERT_TRUE(unseen.terminal().waitForEnd());
    EXPECT_EQ(unseen.terminal().out(), "ü\n");
}

TEST(TerminalView, ATerminalThatDoesNotAnswerIsServedToo)
{
    TerminalScreen::Kind kind;
    kind.answers = false;
    Host host("", "xterm-256color", kind);
    ASSERT_TRUE(host.waitForRow(kShownHint));
    host.interrupt();
}

TEST(TerminalView, LettersOfTheComputersKeyboardAreTyped)
{
    Host host("", "xterm-256color");
    ASSERT_TRUE(host.waitForRow(kShownHint));
    host.terminal().send("Gr\xC3");
    host.terminal().send("\xBC\xC3\x9F"
                         "ex\x7f");
    ASSERT_TRUE(host.waitForRow("Text: Grüße"));
    host.interrupt();
}

TEST(TerminalView, KeysThatAreThereAreWorkedOffBeforeAnythingIsShown)
{
    Host host("", "xterm-256color");
    ASSERT_TRUE(host.waitForRow(kShownHint));
    const size_t before = host.terminal().screen().size();
    std::string keys;
    for (int i = 0; i < 100; ++i)
        keys += kRight;
    host.terminal().send(keys + "x");
    ASSERT_TRUE(host.waitForRow("Text: x"));
    const std::string written = host.terminal().screen().substr(before);
    int frames = 0;
    for (size_t at = written.find("\033[?25h"); at != std::string::npos;
         at = written.find("\033[?25h", at + 1))
        ++frames;
    EXPECT_LE(frames, 5);
    host.interrupt();
}

TEST(TerminalView, AWindowOfOneCellLosesNoText)
{
    Host host("", "xterm-256color");
    ASSERT_TRUE(host.waitForRow(kShownHint));
    host.terminal().send("Hi");
    ASSERT_TRUE(host.waitForRow("Text: Hi"));
    host.terminal().resize(1, 1);
    ASSERT_TRUE(host.waitForRow("T"));
    host.terminal().send("!");
    host.terminal().resize(80, 24);
    ASSERT_TRUE(host.waitForRow("Text: Hi!"));
    ASSERT_TRUE(host.waitForRow(kShownHint));
    host.interrupt();
}

TEST(TerminalView, ANewSizeWhileAPlanIsPlayedLeavesNoOldRows)
{
    Host host("--type 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa' --delay 50", "xterm-256color");
    ASSERT_TRUE(host.waitForRow("Text: a"));
    host.terminal().resize(40, 12);
    ASSERT_TRUE(host.terminal().waitFor("\033[2J"));
    ASSERT_TRUE(host.waitForRow(std::string(kShownHint).substr(0, 40)));
    for (int row = 13; row <= 24; ++row)
        EXPECT_EQ(host.screen().row(row), "");
    host.interrupt();
}

} // namespace
