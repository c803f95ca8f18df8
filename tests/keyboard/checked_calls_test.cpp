// A failing DirectFB call: which calls are checked, what is printed, and that the process ends.

#include <functional>
#include <memory>
#include <set>

#include <gmock/gmock.h>

#include <sys/wait.h>

#include "directfb_check.h"
#include "fatal_trap.h"
#include "keyboard_ui.h"
#include "layout_folder.h"
#include "log_capture.h"
#include "recording_display.h"
#include "renderer_steps.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using steps::key;
using steps::Keys;
using steps::Step;
using steps::Steps;
using testing::AllOf;
using testing::HasSubstr;

const char kFont[] = "/opt/font/test.ttf";
const DFBResult kFailure = DFB_INVARG;

std::string report(const std::string& text)
{
    return "directfb do: '" + text + "' failed!\n";
}

// A renderer with two keys, the second of them locked.
struct Bench {
    Bench() { folder.writeFile(kFont, ""); }

    void create() { ui.reset(new KeyBoardUI(display.dfb(), surface)); }
    void prepare()
    {
        create();
        ui->setLayoutData(&keys, 30, kFont);
        ui->setLocked(locked);
    }

    LayoutFolder folder;
    RecordingDisplay display;
    LogCapture log;
    IDirectFBSurface* surface = display.newSurface(800, 600);
    Keys keys = {key("a", {4, 4, 60, 50}), key("Shift", {68, 4, 125, 51})};
    Keys locked = {keys[1]};
    Keys none;
    std::unique_ptr<KeyBoardUI> ui;
};

struct Operation {
    const char* name;
    std::function<void(Bench&)> before;
    std::function<void(Bench&)> run;
    std::function<Steps(const steps::Renderer&, const Bench&)> expected;
};

std::ostream& operator<<(std::ostream& stream, const Operation& operation)
{
    return stream << operation.name;
}

void prepare(Bench& bench)
{
    bench.prepare();
}

void prepareShown(Bench& bench)
{
    bench.prepare();
    bench.ui->draw(true);
}

void prepareHidden(Bench& bench)
{
    bench.prepare();
    bench.ui->hide();
}

const Operation kOperations[] = {
    {"Construction", [](Bench&) {}, [](Bench& bench) { bench.create(); },
     [](const steps::Renderer& ui, const Bench&) { return ui.construction(800, 600); }},
    {"Clear", prepare, [](Bench& bench) { bench.ui->clear(0xFF010203, true); },
     [](const steps::Renderer& ui, const Bench&) { return ui.clear("1,2,3,255", true); }},
    {"Draw", prepare, [](Bench& bench) { bench.ui->draw(true); },
     [](const steps::Renderer& ui, const Bench& bench) {
         return ui.draw(bench.keys, bench.locked, true);
     }},
    {"Show", prepareHidden, [](Bench& bench) { bench.ui->show(); },
     [](const steps::Renderer& ui, const Bench& bench) {
         return ui.showHidden(bench.keys, bench.locked);
     }},
    {"Hide", prepareShown, [](Bench& bench) { bench.ui->hide(); },
     [](const steps::Renderer& ui, const Bench&) { return ui.hideShown(); }},
    {"Setfocus", prepare, [](Bench& bench) { bench.ui->setfocus(bench.keys[0]); },
     [](const steps::Renderer& ui, const Bench& bench) {
         return ui.setfocus(bench.keys, bench.locked, bench.keys[0]);
     }},
    {"SetLocked", prepare, [](Bench& bench) { bench.ui->setLocked(bench.locked); },
     [](const steps::Renderer& ui, const Bench& bench) {
         return ui.setLocked(bench.keys, bench.locked);
     }},
    {"Press", prepare, [](Bench& bench) { bench.ui->press(bench.keys[0]); },
     [](const steps::Renderer& ui, const Bench& bench) { return ui.press(bench.keys[0]); }},
    {"Pressed", prepare, [](Bench& bench) { bench.ui->pressed(bench.keys[0]); },
     [](const steps::Renderer& ui, const Bench& bench) { return ui.pressed(bench.keys[0]); }},
};

bool isLogLine(const Step& step)
{
    return step.line.compare(0, 4, "log ") == 0;
}

// Calls action(steps up to and with the failing one, number of the failing call from 1) for each
// checked call of an operation.
template <class Action> void forEachCheckedCall(const Steps& all, Action action)
{
    size_t call = 0;
    for (size_t i = 0; i < all.size(); ++i) {
        if (isLogLine(all[i]))
            continue;
        ++call;
        SCOPED_TRACE("call " + std::to_string(call) + ": " + all[i].line);
        ASSERT_FALSE(all[i].checkedAs.empty()) << "every call of the renderer is checked";
        action(Steps(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(i) + 1), call);
    }
    ASSERT_GT(call, 0u);
}

class CheckedCalls : public testing::TestWithParam<Operation>
{
protected:
    static Steps expected()
    {
        const Bench bench;
        return GetParam().expected(steps::Renderer("surface1"), bench);
    }
};

TEST_P(CheckedCalls, AFailureOfAnyOneIsReportedAndNothingIsDoneAfterIt)
{
    forEachCheckedCall(expected(), [](const Steps& done, size_t call) {
        Bench bench;
        GetParam().before(bench);
        takeTrace();
        bench.display.failCall(call, kFailure);

        const FatalTrap trap;
        testing::internal::CaptureStderr();
        std::string text;
        DFBResult result = DFB_OK;
        try {
            GetParam().run(bench);
        } catch (const FatalError& error) {
            text = error.text;
            result = error.result;
        }
        const std::string printed = testing::internal::GetCapturedStderr();

        EXPECT_EQ(text, done.back().checkedAs);
        EXPECT_EQ(result, kFailure);
        EXPECT_EQ(printed, report(done.back().checkedAs));
        steps::expectTrace(done);
    });
}

INSTANTIATE_TEST_SUITE_P(Renderer, CheckedCalls, testing::ValuesIn(kOperations),
                         [](const auto& test) { return std::string(test.param.name); });

bool endedWithTheResult(int status)
{
    return WIFEXITED(status) && WEXITSTATUS(status) == (static_cast<int>(kFailure) & 0xFF);
}

auto reportedByBoth(const std::string& text)
{
    return AllOf(HasSubstr(report(text)), HasSubstr("DirectFBError [" + text + "]: "));
}

TEST(CheckedCallsDeathTest, DirectFBItselfEndsTheProcessForEachText)
{
    std::set<std::string> seen;
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        const Steps expected = [&] {
            const Bench bench;
            return operation.expected(steps::Renderer("surface1"), bench);
        }();
        forEachCheckedCall(expected, [&](const Steps& done, size_t call) {
            const std::string& text = done.back().checkedAs;
            if (!seen.insert(text).second)
                return;
            Bench bench;
            operation.before(bench);
            bench.display.failCall(call, kFailure);
            EXPECT_EXIT(operation.run(bench), endedWithTheResult, reportedByBoth(text));
        });
    }
    EXPECT_EQ(seen.size(), 18u);
}

TEST(CheckedCallsDeathTest, DrawStringFailsWithoutAFont)
{
    Bench bench;
    bench.create();
    bench.display.failEvery("DrawString", DFB_INVARG);
    const char text[] = "m_surface->DrawString(m_surface,key.text.c_str(),-1,Xcenter,Ycenter,"
                        "DSTF_TOPCENTER)";
    EXPECT_EXIT(bench.ui->press(bench.keys[0]), endedWithTheResult, reportedByBoth(text));
    EXPECT_EXIT(bench.ui->pressed(bench.keys[0]), endedWithTheResult, reportedByBoth(text));
}

TEST(CheckDirectFB, ASuccessSaysNothing)
{
    testing::internal::CaptureStderr();
    checkDirectFB(DFB_OK, "some call");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(CheckDirectFB, TheTextIsPrintedAsItStands)
{
    const FatalTrap trap;
    testing::internal::CaptureStderr();
    EXPECT_THROW(checkDirectFB(DFB_FAILURE, "a %s %d text"), FatalError);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), report("a %s %d text"));
}

} // namespace
