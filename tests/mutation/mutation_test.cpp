// Puts each fault of the table into a copy of the sources, and runs the test that must notice it.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

#include <gmock/gmock.h>

#include "fault_table.h"
#include "process.h"

namespace fs = std::filesystem;
using test_process::Command;
using test_process::Result;

namespace
{

using Words = std::vector<std::string>;

// A test program, and what a source with a fault is linked into in its place.
struct Suite {
    std::string sources;  // the folder
    std::string program;  // without a fault
    std::string variable; // names what was linked to the program; empty where that is a program too
    Words objects;
    Words link;
};

// How the existing programs were built: kCompiler, with its flags, and kSuites.
#include VKB_MUTATION_BUILD

void compile(const std::vector<Words>& arguments)
{
    Command command;
    command.words = kCompiler;
    for (const Words& words : arguments)
        command.words.insert(command.words.end(), words.begin(), words.end());
    command.forTarget = false;
    const Result result = test_process::run(command);
    if (result.exitStatus != 0)
        throw std::runtime_error("the fault does not build:\n" + result.err);
}

class FaultTest : public testing::TestWithParam<Fault>
{
protected:
    FaultTest()
    {
        fs::remove_all(m_scratch);
        fs::create_directories(m_scratch);
    }

    ~FaultTest() override
    {
        std::error_code ignored;
        fs::remove_all(m_scratch, ignored);
    }

    // Copies the sources and puts the fault into the copy.
    void plant()
    {
        const Fault& fault = GetParam();
        fs::copy(m_suite.sources, m_scratch);
        std::ifstream stream(m_scratch / fault.file, std::ios::binary);
        std::string text(std::istreambuf_iterator<char>(stream), {});
        ASSERT_EQ(test_process::countOf(fault.text, text), 1)
            << fault.file << ": expected once: " << fault.text;
        text.replace(text.find(fault.text), std::string(fault.text).size(), fault.replacement);
        std::ofstream(m_scratch / fault.file, std::ios::binary) << text;
    }

    // Returns what was linked: a test program, the driver, or the log library.
    std::string build()
    {
        const std::string source = (m_scratch / GetParam().source).string();
        const std::string object = source + ".o";
        compile({{"-std=c++11", "-fPIC", "-O0", "-c", source, "-o", object}});

        Words objects = {object};
        for (const std::string& other : m_suite.objects)
            if (fs::path(other).filename() != fs::path(object).filename())
                objects.push_back(other);
        std::string linked = (m_scratch / "with-fault").string();
        compile({objects, m_suite.link, {"-o", linked}});
        return linked;
    }

    Result runTest(const std::string& linked = "")
    {
        const bool is_program = m_suite.variable.empty() && !linked.empty();
        Command command;
        command.words = {is_program ? linked : m_suite.program,
                         "--gtest_filter=" + std::string(GetParam().test)};
        // Coverage counts what the right sources run, not these.
        command.environment = {{"GCOV_PREFIX", m_scratch.string()},
                               {"VKB_FAILED_PICTURES", m_scratch.string()}};
        if (!m_suite.variable.empty())
            command.environment[m_suite.variable] = linked;
        return test_process::run(command);
    }

    const Suite& m_suite = kSuites.at(GetParam().suite);
    const fs::path m_scratch = fs::path(VKB_MUTATION_SCRATCH) / GetParam().name;
};

TEST_P(FaultTest, IsNoticed)
{
    const std::string started = std::string("[ RUN      ] ") + GetParam().test;

    const Result right = runTest();
    ASSERT_EQ(right.exitStatus, 0) << "without the fault: " << right.out << right.err;
    ASSERT_EQ(test_process::countOf(started, right.out), 1) << "no such test: " << right.out;

    ASSERT_NO_FATAL_FAILURE(plant());
    const Result wrong = runTest(build());
    EXPECT_EQ(test_process::countOf(started, wrong.out), 1) << wrong.out << wrong.err;
    EXPECT_NE(wrong.exitStatus, 0) << "the fault went unnoticed: " << wrong.out;
}

INSTANTIATE_TEST_SUITE_P(Deliberate, FaultTest, testing::ValuesIn(kFaults),
                         test_support::RowName());

} // namespace
