#include <csignal>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <unistd.h>

#include "cspdebug.h"
#include "process.h"

using test_process::Command;
using test_process::Result;
using testing::HasSubstr;

namespace
{

// Standard output as a socket that keeps each write apart, while this lives.
class WatchedOutput
{
public:
    WatchedOutput()
    {
        if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, m_ends) != 0)
            throw std::runtime_error("socketpair: expected a pair of local sockets");
        m_before = dup(STDOUT_FILENO);
        dup2(m_ends[1], STDOUT_FILENO);
    }

    ~WatchedOutput()
    {
        dup2(m_before, STDOUT_FILENO);
        for (const int descriptor : {m_ends[0], m_ends[1], m_before})
            close(descriptor);
    }

    // The next write, or nothing when there was none.
    std::string nextWrite()
    {
        std::string bytes(1 << 20, '\0');
        const ssize_t count = recv(m_ends[0], &bytes[0], bytes.size(), MSG_DONTWAIT);
        bytes.resize(count < 0 ? 0 : static_cast<size_t>(count));
        return bytes;
    }

private:
    int m_ends[2];
    int m_before;
};

Result runWriter(const std::vector<std::string>& arguments, const char* level = nullptr)
{
    Command command;
    command.words = {VKB_LOG_WRITER};
    command.words.insert(command.words.end(), arguments.begin(), arguments.end());
    if (level != nullptr)
        command.environment["CSP_DEBUG_LEVEL"] = level;
    return test_process::run(command);
}

// The four level words of the keyboard, and how they fare.
std::string levels(const std::string& error, const std::string& result, const std::string& trace,
                   const std::string& detail)
{
    return "0x5F03E8 " + error + "\n0x5F0BB8 " + result + "\n0x5F0FA0 " + trace + "\n0x5F1388 " +
           detail + "\n";
}

Result runLevels(const char* level)
{
    return runWriter({"levels", "0x5F03E8", "0x5F0BB8", "0x5F0FA0", "0x5F1388"}, level);
}

// Volatile, or the compiler sees the null and warns of it.
const char* volatile g_null = nullptr;

} // namespace

TEST(CspDebugLevel, DefaultShowsAllButDetails)
{
    const Result result = runLevels(nullptr);
    EXPECT_EQ(result.out, levels("on", "on", "on", "off"));
    EXPECT_EQ(result.err, "");
}

TEST(CspDebugLevel, LineAtTheThresholdIsWritten)
{
    EXPECT_EQ(runWriter({"levels", "0x5F0FA0", "0x5F0FA1"}).out, "0x5F0FA0 on\n0x5F0FA1 off\n");
}

TEST(CspDebugLevel, OnlyTheLowSixteenBitsCount)
{
    EXPECT_EQ(runWriter({"levels", "0x0FA0", "0xFFFF0FA0", "0x5F0000", "0x00001388", "0xFFFF"}).out,
              "0x0FA0 on\n0xFFFF0FA0 on\n0x5F0000 on\n0x00001388 off\n0xFFFF off\n");
}

TEST(CspDebugLevel, VariableSetsTheThreshold)
{
    EXPECT_EQ(runLevels("5000").out, levels("on", "on", "on", "on"));
    EXPECT_EQ(runLevels("3000").out, levels("on", "on", "off", "off"));
    EXPECT_EQ(runLevels("2999").out, levels("on", "off", "off", "off"));
    EXPECT_EQ(runLevels("1000").out, levels("on", "off", "off", "off"));
    EXPECT_EQ(runLevels("0").out, levels("off", "off", "off", "off"));
    EXPECT_EQ(runLevels("65535").out, levels("on", "on", "on", "on"));
}

TEST(CspDebugLevel, ValueThatIsNoNumberIsReportedOnceAndTheDefaultHolds)
{
    for (const char* value : {"", "debug", "4000x", "99999999999999999999", "0x1388"}) {
        const Result result = runLevels(value);
        EXPECT_EQ(result.out, levels("on", "on", "on", "off")) << value;
        EXPECT_THAT(result.err, HasSubstr("CSP_DEBUG_LEVEL")) << value;
        EXPECT_THAT(result.err, HasSubstr("'" + std::string(value) + "'"));
        EXPECT_EQ(test_process::countOf("\n", result.err), 1) << result.err;
        EXPECT_EQ(result.exit_status, 0);
    }
}

TEST(CspDebugLevel, RecordIsLeftAsItWas)
{
    uint32_t record[3] = {0x5F0FA0, 7, 9};
    EXPECT_NE(cspDebugCheckLevelGetFrameAndChunk(record), 0);
    EXPECT_THAT(record, testing::ElementsAre(0x5F0FA0u, 7u, 9u));
}

TEST(CspDebugOutput, EachLineIsOneWrite)
{
    WatchedOutput output;
    cspDebugOutput0("[%s] %s:%d:%s(): called %d%%\n", "B-LOG", "a.cpp", 12, "f", 3);
    cspDebugOutput0("next\n");
    EXPECT_EQ(output.nextWrite(), "[B-LOG] a.cpp:12:f(): called 3%\n");
    EXPECT_EQ(output.nextWrite(), "next\n");
    EXPECT_EQ(output.nextWrite(), "");
}

TEST(CspDebugOutput, LineOfAnyLengthIsOneWrite)
{
    for (const size_t length : {1022u, 1023u, 1024u, 1025u, 70000u}) {
        const std::string text(length, 'x');
        WatchedOutput output;
        cspDebugOutput0("%s\n", text.c_str());
        EXPECT_EQ(output.nextWrite(), text + "\n") << length;
        EXPECT_EQ(output.nextWrite(), "") << length;
    }
}

TEST(CspDebugOutput, VeryLongLineComesWholeThroughAPipe)
{
    EXPECT_EQ(runWriter({"long", "3000000"}).out, std::string(3000000, 'x') + "\n");
}

TEST(CspDebugOutput, NullStringPrintsAsNull)
{
    WatchedOutput output;
    cspDebugOutput0("[%s] and %s\n", g_null, "text");
    EXPECT_EQ(output.nextWrite(), "[(null)] and text\n");
}

TEST(CspDebugOutput, EmptyLineWritesNothing)
{
    WatchedOutput output;
    cspDebugOutput0("%s", "");
    EXPECT_EQ(output.nextWrite(), "");
}

TEST(CspDebugOutput, NothingIsLostWhenTheProcessAborts)
{
    const Result result = runWriter({"lines", "3", "abort"});
    EXPECT_EQ(result.out, "line 1\nline 2\nline 3\n");
    EXPECT_EQ(result.signal, SIGABRT);
}

TEST(CspDebugOutput, NothingIsLostWhenTheProcessIsKilled)
{
    const Result result = runWriter({"lines", "3", "kill"});
    EXPECT_EQ(result.out, "line 1\nline 2\nline 3\n");
    EXPECT_EQ(result.signal, SIGKILL);
}

TEST(CspDebugOutput, OutputThatRefusesToBlockLosesNothing)
{
    EXPECT_EQ(runWriter({"nonblocking", "3000000"}).out, std::string(3000000, 'x') + "\n");
}

TEST(CspDebugBaseName, IsThePartBehindTheLastSlash)
{
    EXPECT_STREQ(blog_base_name("/a/b/c.cpp"), "c.cpp");
    EXPECT_STREQ(blog_base_name("b/c.cpp"), "c.cpp");
    EXPECT_STREQ(blog_base_name("c.cpp"), "c.cpp");
    EXPECT_STREQ(blog_base_name("a/"), "");
    EXPECT_STREQ(blog_base_name(""), "");
    EXPECT_EQ(blog_base_name(g_null), nullptr);
}

TEST(CspDebugBaseName, PointsIntoThePath)
{
    const char path[] = "a/b.cpp";
    EXPECT_EQ(blog_base_name(path), path + 2);
}

// The television's library has this name: a program that is linked against ours starts with it.
TEST(CspDebugLibrary, SonameIsThePlainName)
{
    Command command;
    command.words = {"readelf", "-d", VKB_LOG_LIBRARY};
    command.for_target = false;
    const Result result = test_process::run(command);
    EXPECT_THAT(result.out, HasSubstr("Library soname: [libcspdebug.so]"));
}
