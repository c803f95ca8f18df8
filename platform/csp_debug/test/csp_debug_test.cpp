#include <csignal>
#include <cstdint>
#include <functional>
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
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

// What work writes to standard output, each write apart.
std::vector<std::string> writesOf(const std::function<void()>& work)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends) != 0)
        throw std::runtime_error("socketpair: expected a pair of local sockets");
    const int before = dup(STDOUT_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    work();
    dup2(before, STDOUT_FILENO);

    std::vector<std::string> writes;
    std::string bytes(1 << 20, '\0');
    ssize_t count = 0;
    while ((count = recv(ends[0], &bytes[0], bytes.size(), MSG_DONTWAIT)) > 0)
        writes.push_back(bytes.substr(0, static_cast<size_t>(count)));
    for (const int descriptor : {ends[0], ends[1], before})
        close(descriptor);
    return writes;
}

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
        EXPECT_EQ(result.exitStatus, 0);
    }
}

TEST(CspDebugLevel, RecordIsLeftAsItWas)
{
    uint32_t record[3] = {0x5F0FA0, 7, 9};
    EXPECT_NE(cspDebugCheckLevelGetFrameAndChunk(record), 0);
    EXPECT_THAT(record, ElementsAre(0x5F0FA0u, 7u, 9u));
}

TEST(CspDebugOutput, EachLineIsOneWrite)
{
    const auto writes = writesOf([] {
        cspDebugOutput0("[%s] %s:%d:%s(): called %d%%\n", "B-LOG", "a.cpp", 12, "f", 3);
        cspDebugOutput0("next\n");
    });
    EXPECT_THAT(writes, ElementsAre("[B-LOG] a.cpp:12:f(): called 3%\n", "next\n"));
}

TEST(CspDebugOutput, LineOfAnyLengthIsOneWrite)
{
    for (const size_t length : {1022u, 1023u, 1024u, 1025u, 70000u}) {
        const std::string line = std::string(length, 'x') + "\n";
        const auto writes = writesOf([&line] { cspDebugOutput0("%s", line.c_str()); });
        ASSERT_EQ(writes.size(), 1u);
        EXPECT_TRUE(writes[0] == line)
            << "expected " << line.size() << " bytes, found " << writes[0].size();
    }
}

TEST(CspDebugOutput, VeryLongLineComesWholeThroughAPipe)
{
    const Result result = runWriter({"long", "3000000"});
    EXPECT_TRUE(result.out == std::string(3000000, 'x') + "\n") << result.out.size() << " bytes";
}

TEST(CspDebugOutput, NullStringPrintsAsNull)
{
    EXPECT_THAT(writesOf([] { cspDebugOutput0("[%s] and %s\n", g_null, "text"); }),
                ElementsAre("[(null)] and text\n"));
}

TEST(CspDebugOutput, EmptyLineWritesNothing)
{
    EXPECT_THAT(writesOf([] { cspDebugOutput0("%s", ""); }), IsEmpty());
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
    const Result result = runWriter({"nonblocking", "3000000"});
    EXPECT_TRUE(result.out == std::string(3000000, 'x') + "\n") << result.out.size() << " bytes";
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
    command.forTarget = false;
    const Result result = test_process::run(command);
    EXPECT_THAT(result.out, HasSubstr("Library soname: [libcspdebug.so]"));
}
