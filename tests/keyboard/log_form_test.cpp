// The form of every log line, and that a line which is switched off costs nothing.

#include <tuple>

#include <gmock/gmock.h>

#include "log.h"
#include "log_capture.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace testing;

static_assert(LogError == 0x5F03E8 && LogResult == 0x5F0BB8);
static_assert(LogTrace == 0x5F0FA0 && LogDetail == 0x5F1388);

int evaluated = 0;

int counted(int value)
{
    ++evaluated;
    return value;
}

void logOnce()
{
    VKB_LOGF(LogTrace, "value:%d\n", counted(7));
}

class LogForm : public testing::Test
{
protected:
    LogForm() { evaluated = 0; }

    void expectOneLine(uint32_t level, int line, const char* function, const char* message)
    {
        ASSERT_THAT(m_log.lines(), SizeIs(1));
        const LogLine& found = m_log.lines()[0];
        EXPECT_THAT(found.record, ElementsAre(level, 0u, 0u));
        EXPECT_EQ(std::tie(found.tag, found.file, found.line, found.function, found.message),
                  std::make_tuple("B-LOG", "log_form_test.cpp", line, function, message));
    }

    LogCapture m_log;
};

TEST_F(LogForm, ALineCarriesTagFileLineFunctionAndItsArguments)
{
    const int lineOfTheCall = __LINE__ + 1;
    VKB_LOGF(LogDetail, "%s=%d\n", "x", counted(7));
    expectOneLine(0x5F1388, lineOfTheCall, "TestBody", "x=7\n");
    EXPECT_EQ(evaluated, 1);
}

TEST_F(LogForm, ATextCarriesTheGivenLineAndFunction)
{
    VKB_LOG_TEXT(LogError, 329, "some_function", "100\n");
    expectOneLine(0x5F03E8, 329, "some_function", "100\n");
}

TEST_F(LogForm, EveryLineAsksWithAFreshRecord)
{
    for (int i = 0; i < 3; ++i)
        logOnce(); // the capture overwrites each record that it has seen
    ASSERT_THAT(m_log.lines(), SizeIs(3));
    for (const LogLine& line : m_log.lines())
        EXPECT_THAT(line.record, ElementsAre(0x5F0FA0u, 0u, 0u));
    EXPECT_EQ(m_log.levelsAsked(), 3u);
}

TEST_F(LogForm, ALevelThatIsOffEvaluatesNeitherItsArgumentsNorTheBaseName)
{
    m_log.switchOff(0x5F0FA0);
    logOnce();
    VKB_LOG_TEXT(LogTrace, counted(1), "f", "text\n");
    VKB_LOG(LogTrace, "text\n");
    EXPECT_EQ(m_log.levelsAsked(), 3u);
    EXPECT_THAT(m_log.lines(), IsEmpty());
    EXPECT_EQ(evaluated, 0);
    VKB_LOG_TEXT(LogResult, 1, "f", "result\n");
    expectOneLine(0x5F0BB8, 1, "f", "result\n");
}

TEST_F(LogForm, ALineIsOneStatement)
{
    if (evaluated == 0)
        logOnce();
    else
        VKB_LOG(LogError, "not reached\n");
    EXPECT_THAT(m_log.lines(), SizeIs(1));
}

} // namespace
