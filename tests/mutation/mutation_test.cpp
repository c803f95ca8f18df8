#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <gmock/gmock.h>
#include <json/json.h>

#include "fault_table.h"
#include "process.h"

namespace fs = std::filesystem;
using test_process::Command;
using test_process::Result;

namespace
{

using Words = std::vector<std::string>;

std::string contentOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    if (!stream)
        throw std::runtime_error(file.string() + ": cannot be read");
    return content.str();
}

// How the existing programs were built.
const Json::Value& buildFile()
{
    static const Json::Value kBuild = [] {
        std::istringstream stream(contentOf(VKB_MUTATION_BUILD));
        Json::Value value;
        stream >> value;
        return value;
    }();
    return kBuild;
}

Words wordsOf(const Json::Value& array)
{
    Words words;
    for (const Json::Value& word : array)
        words.push_back(word.asString());
    return words;
}

Words operator+(Words left, const Words& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

void runTool(const Words& words)
{
    Command command;
    command.words = words;
    command.forTarget = false;
    const Result result = test_process::run(command);
    if (result.exitStatus != 0)
        throw std::runtime_error("the fault does not build:\n" + result.err);
}

class FaultTest : public testing::TestWithParam<Fault>
{
protected:
    FaultTest() : m_scratch(fs::path(VKB_MUTATION_SCRATCH) / GetParam().name)
    {
        fs::remove_all(m_scratch);
        fs::create_directories(m_scratch);
    }

    ~FaultTest() override
    {
        std::error_code ignored;
        fs::remove_all(m_scratch, ignored);
    }

    const Json::Value& suite() const { return buildFile()[GetParam().suite]; }
    bool isLog() const { return GetParam().suite == std::string("log"); }

    // Copies the sources and puts the fault into the copy.
    void plant()
    {
        const Fault& fault = GetParam();
        for (const auto& entry :
             fs::directory_iterator(buildFile()[isLog() ? "log_sources" : "sources"].asString()))
            if (entry.is_regular_file())
                fs::copy(entry.path(), m_scratch);

        std::string text = contentOf(m_scratch / fault.file);
        ASSERT_EQ(test_process::countOf(fault.text, text), 1)
            << fault.file << ": expected once: " << fault.text;
        text.replace(text.find(fault.text), std::string(fault.text).size(), fault.replacement);
        std::ofstream(m_scratch / fault.file, std::ios::binary) << text;
    }

    // Returns what was linked: a test program, the driver, or the log library.
    std::string build()
    {
        const std::string compiler = buildFile()["compiler"].asString();
        const std::string source = (m_scratch / GetParam().source).string();
        const std::string object = source + ".o";
        std::string program = (m_scratch / "with-fault").string();

        runTool(Words{compiler, "-std=c++11", "-fPIC", "-O0"} + wordsOf(buildFile()["flags"]) +
                Words{"-c", source, "-o", object});

        Words objects = {object};
        for (const std::string& other : wordsOf(suite()["objects"]))
            if (fs::path(other).filename() != fs::path(object).filename())
                objects.push_back(other);
        runTool(Words{compiler} + wordsOf(buildFile()["flags"]) + objects +
                wordsOf(suite()["link"]) + Words{"-o", program});
        return program;
    }

    Result runTest(const std::string& program_with_fault = "")
    {
        Command command;
        command.words = {suite()["program"].asString(),
                         "--gtest_filter=" + std::string(GetParam().test)};
        // Coverage counts what the right sources run, not these.
        command.environment["GCOV_PREFIX"] = m_scratch.string();
        command.environment["VKB_FAILED_PICTURES"] = m_scratch.string();
        if (isLog() && !program_with_fault.empty())
            command.preload = {program_with_fault};
        else if (GetParam().suite == std::string("driver"))
            command.environment["VKB_TEST_OTHER_DRIVER"] = program_with_fault;
        else if (!program_with_fault.empty())
            command.words[0] = program_with_fault;
        return test_process::run(command);
    }

    fs::path m_scratch;
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
