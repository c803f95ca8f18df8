// What is missing, broken or full: the text stays, and a line says what is wrong.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "process.h"
#include "text_field.h"

namespace input_methods_test
{

using input_methods::Field;
using input_methods::InputMethods;
using input_methods::Settings;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

namespace fs = std::filesystem;

class Faults : public testing::Test
{
protected:
    Faults()
    {
        std::string name = testing::TempDir() + "input-methods-XXXXXX";
        m_folder = ::mkdtemp(&name[0]);
    }
    ~Faults() override { fs::remove_all(m_folder); }

    fs::path folder() const { return m_folder; }
    std::vector<std::string>& lines() { return m_lines; }

    void writeTable(const std::string& text) { std::ofstream(m_folder / "layouts.tsv") << text; }

    std::unique_ptr<InputMethods> open(const std::string& dataFolder)
    {
        Settings settings;
        settings.dataFolder = dataFolder;
        settings.report = [this](const std::string& line) { m_lines.push_back(line); };
        return std::make_unique<InputMethods>(settings);
    }

    // A process of its own: engines keep what they found for the whole process.
    test_process::Result tryOut(const std::string& layout, const std::string& input,
                                std::vector<std::string> more = {})
    {
        test_process::Command command;
        command.words = {INPUT_METHOD, layout, "--data", DATA_FOLDER};
        command.words.insert(command.words.end(), more.begin(), more.end());
        command.environment["HOME"] = m_folder;
        return test_process::run(command, input);
    }

    // The folder is a disk of the test's own, of 64 KiB, that only the program sees; commands run
    // in it before. The exit status is 77 where the system forbids that.
    test_process::Result tryOnDisk(const fs::path& disk, const std::string& commands,
                                   const std::string& layout, const std::string& input)
    {
        test_process::Command command;
        command.words = {"unshare",
                         "--user",
                         "--map-current-user",
                         "--keep-caps",
                         "--mount",
                         "bash",
                         "-c",
                         "mount -t tmpfs -o size=64k tmpfs '" + disk.string() + "' && cd '" +
                             disk.string() + "' || exit 77; " + commands +
                             " exec '" INPUT_METHOD "' " + layout +
                             " --data '" DATA_FOLDER "' --learn ."};
        command.forTarget = false;
        return test_process::run(command, input);
    }

private:
    fs::path m_folder;
    std::vector<std::string> m_lines;
};

TEST_F(Faults, WithoutATableNoLayoutHasAnInputMethod)
{
    const std::unique_ptr<InputMethods> methods = open("/nonexistent");
    EXPECT_EQ(methods->find("Korean", Field::Text), nullptr);
    EXPECT_THAT(lines(), ElementsAre(HasSubstr("/nonexistent/layouts.tsv: No such file")));
}

TEST_F(Faults, ALineOfTheTableThatIsNoneIsNamed)
{
    writeTable("# a comment\n\nKorean\thangul\t2\tno\tlibhangul1\nKorean hangul\n");
    const std::unique_ptr<InputMethods> methods = open(folder());
    EXPECT_THAT(lines(), ElementsAre(HasSubstr("layouts.tsv:4: found 'Korean hangul'")));
    EXPECT_NE(methods->find("Korean", Field::Text), nullptr);
}

TEST_F(Faults, AnEngineThatIsNotBuiltIsNamedOnce)
{
    writeTable("A\tnosuch\tx\tno\tlibnosuch1\nB\t../evil\tx\tno\tp\nC\thangul\tnosuch\tno\tp\n"
               "D\tm17n\txx nosuch\tno\tp\n");
    const std::unique_ptr<InputMethods> methods = open(folder());
    EXPECT_EQ(methods->find("A", Field::Text), nullptr);
    EXPECT_EQ(methods->find("A", Field::Text), nullptr);
    EXPECT_THAT(lines(), ElementsAre(testing::AllOf(HasSubstr("A: no input method: "),
                                                    HasSubstr("nosuch.so"),
                                                    HasSubstr("install libnosuch1"))));
    EXPECT_EQ(methods->find("B", Field::Text), nullptr);
    EXPECT_EQ(methods->find("C", Field::Text), nullptr);
    EXPECT_THAT(lines()[1], HasSubstr("found '../evil', expected the name of an engine"));
    EXPECT_THAT(lines()[2], HasSubstr("libhangul has no keyboard 'nosuch'"));
    EXPECT_EQ(methods->find("D", Field::Text), nullptr);
    EXPECT_THAT(lines()[3], HasSubstr("m17n has no whole table xx-nosuch.mim"));
}

TEST_F(Faults, OtherLayoutsAndFieldsHaveNone)
{
    const std::unique_ptr<InputMethods> methods = open(DATA_FOLDER);
    EXPECT_EQ(methods->find("English", Field::Text), nullptr);
    EXPECT_EQ(methods->find("Korean", Field::Password), nullptr);
    EXPECT_EQ(methods->find("Korean", Field::Address), nullptr);
    EXPECT_THAT(lines(), IsEmpty());
}

struct DataOfEngine {
    const char* layout;
    const char* folder; // below /usr/share
    const char* file;   // that it cannot do without
};

const DataOfEngine kData[] = {
    {"Chinese_Pinyin", "rime-data", "build/luna_pinyin.table.bin"},
    {"Chinese_Pinyin", "rime-data", "build/luna_pinyin_simp.prism.bin"},
    {"Chinese_Zhuyin", "libchewing", "dictionary.dat"},
    {"Chinese_Zhuyin", "libchewing", "index_tree.dat"},
    {"Japanese", "anthy", "anthy.dic"},
};

TEST_F(Faults, MissingDataIsNamed)
{
    for (const DataOfEngine& data : kData) {
        fs::copy(fs::path("/usr/share") / data.folder, folder() / data.folder,
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        fs::remove(folder() / data.folder / data.file);
        const test_process::Result result = tryOut(data.layout, "a\n", {"--engine-data", folder()});
        EXPECT_EQ(result.exitStatus, 2) << data.file << result.out << result.err;
        EXPECT_THAT(result.err, HasSubstr("no input method")) << data.file;
        EXPECT_THAT(result.err, HasSubstr(folder() / data.folder)) << data.file;
    }
}

TEST_F(Faults, AMissingSchemaIsNamed)
{
    fs::create_directory(folder() / "rime-data");
    const test_process::Result result =
        tryOut("Chinese_Pinyin", "a\n", {"--engine-data", folder()});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_THAT(result.err, HasSubstr("rime has no schema 'luna_pinyin_simp' in " +
                                      (folder() / "rime-data").string()));
}

TEST_F(Faults, DataThatIsCutOffIsNamed)
{
    for (const DataOfEngine& data : kData)
        for (const double part : {0.0, 0.01, 0.5, 0.99, 0.999}) {
            fs::copy(fs::path("/usr/share") / data.folder, folder() / data.folder,
                     fs::copy_options::recursive | fs::copy_options::overwrite_existing);
            const fs::path file = folder() / data.folder / data.file;
            fs::resize_file(file, static_cast<uintmax_t>(double(fs::file_size(file)) * part));
            const test_process::Result result =
                tryOut(data.layout, "a\n", {"--engine-data", folder()});
            EXPECT_EQ(result.exitStatus, 2)
                << data.file << " signal " << result.signal << result.out << result.err;
            EXPECT_THAT(result.err, HasSubstr("no input method")) << data.file;
        }
}

// Whoever reads it: a folder in the file's place.
TEST_F(Faults, DataThatCannotBeReadIsNamed)
{
    for (const DataOfEngine& data : kData) {
        fs::copy(fs::path("/usr/share") / data.folder, folder() / data.folder,
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        fs::remove(folder() / data.folder / data.file);
        fs::create_directory(folder() / data.folder / data.file);
        const test_process::Result result = tryOut(data.layout, "a\n", {"--engine-data", folder()});
        EXPECT_EQ(result.exitStatus, 2) << data.file << " signal " << result.signal;
        EXPECT_THAT(result.err, HasSubstr("no input method")) << data.file;
        fs::remove_all(folder() / data.folder);
    }
}

struct Tables {
    const char* layout;
    const char* there; // of /usr/share/m17n
    const char* missing;
    const char* also = ""; // what else happens to the files
};

const Tables kTables[] = {
    {"Amharic", "am-sera.mim", "global.mim"},
    {"Yi", "am-sera.mim", "global.mim"},
    {"Amharic", "global.mim", "am-sera.mim"},
    {"Tigrinya", "global.mim", "am-sera.mim"},
    {"Vietnamese_Telex", "global.mim", "vi-telex.mim"},
    {"Vietnamese_Telex", "global.mim vi-telex.mim", "vi-base.mim"},
    {"Vietnamese_Telex", "global.mim vi-telex.mim vi-base.mim", "vi-telex.mim",
     "truncate -s -1000 vi-telex.mim;"},
    {"Vietnamese_Telex", "global.mim vi-telex.mim vi-base.mim", "vi-base.mim",
     "truncate -s 0 vi-base.mim;"},
};

// m17n's tables lie where it was built for: there a disk of the test's own hides them.
TEST_F(Faults, MissingTablesOfAPackageAreNamed)
{
    const fs::path packaged = "/usr/share/m17n";
    fs::copy(packaged, folder());
    for (const Tables& tables : kTables) {
        const std::string files = "(cd '" + folder().string() + "' && cp " + tables.there + " " +
                                  packaged.string() + ");" + tables.also;
        const test_process::Result result = tryOnDisk(packaged, files, tables.layout, "selam\n");
        if (result.exitStatus == 77)
            GTEST_SKIP() << "this system forbids a process its own disk";
        EXPECT_EQ(result.exitStatus, 2)
            << tables.layout << " signal " << result.signal << result.out;
        EXPECT_THAT(result.err,
                    HasSubstr(std::string(tables.layout) +
                              ": no input method: m17n has no whole table " + tables.missing));
        EXPECT_THAT(result.err, HasSubstr("install libm17n-0 m17n-db"));
    }
}

TEST_F(Faults, ATableThatIsCutOffIsNamed)
{
    const fs::path table = folder() / "data" / "ii-names.mim";
    for (const double part : {0.0, 0.01, 0.5, 0.99}) {
        fs::copy(DATA_FOLDER, folder() / "data",
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        fs::resize_file(table, static_cast<uintmax_t>(double(fs::file_size(table)) * part));
        test_process::Command command;
        command.words = {INPUT_METHOD, "Yi", "--data", folder() / "data"};
        const test_process::Result result = test_process::run(command, "nuo'su\n");
        EXPECT_EQ(result.exitStatus, 2) << part << " signal " << result.signal;
        EXPECT_THAT(result.err, HasSubstr("no whole table ii-names.mim")) << part;
    }
}

const char kNotAFolder[] = "/dev/null";

TEST_F(Faults, AFolderThatCannotBeWrittenIsNotLearnedIn)
{
    for (const char* layout : {"Chinese_Pinyin", "Japanese"}) {
        const test_process::Result result = tryOut(layout, "nihon \n", {"--learn", kNotAFolder});
        EXPECT_EQ(result.exitStatus, 0) << result.err;
        EXPECT_THAT(result.out, HasSubstr("text\t'"));
        EXPECT_THAT(result.err, HasSubstr("expected a folder to write to; nothing is learned"));
    }
}

struct Disk {
    const char* name;
    const char* command; // in the folder in which is learned
    const char* line;    // on standard error
};

const Disk kDisks[] = {
    {"Full", "mkdir rime anthy chewing; head -c 1M /dev/zero >filler 2>/dev/null;",
     "No space left on device, expected a folder to write to; nothing is learned"},
    {"ReadOnly", "mount -o remount,ro .;",
     "Read-only file system, expected a folder to write to; nothing is learned"},
};

class FaultsOfADisk : public Faults, public testing::WithParamInterface<Disk>
{
};

TEST_P(FaultsOfADisk, LeaveWhatWasTyped)
{
    for (const char* layout : {"Chinese_Pinyin", "Chinese_Zhuyin", "Japanese"}) {
        const std::string keys = std::string(layout) == "Chinese_Zhuyin" ? "ㄋㄧˇ" : "nihon";
        const test_process::Result before = tryOut(layout, keys + "<1>\n");
        const test_process::Result result =
            tryOnDisk(folder(), GetParam().command, layout, keys + "<1>\n");
        if (result.exitStatus == 77)
            GTEST_SKIP() << "this system forbids a process its own disk";
        EXPECT_EQ(result.exitStatus, 0) << layout << result.signal << result.err;
        EXPECT_EQ(result.out, before.out) << layout;
        EXPECT_THAT(result.err, HasSubstr(GetParam().line)) << layout;
    }
}

INSTANTIATE_TEST_SUITE_P(, FaultsOfADisk, testing::ValuesIn(kDisks),
                         [](const testing::TestParamInfo<Disk>& disk) { return disk.param.name; });

struct Learned {
    const char* name;
    const char* command; // what happens to each file, {}, of what is learned
};

const Learned kLearned[] = {
    {"CutOff", "truncate -s 1000 {}"},
    {"Empty", "truncate -s 0 {}"},
    {"Overwritten", "dd status=none conv=notrunc if=/dev/urandom bs=3000 count=1 of={}"},
};

class FaultsOfWhatIsLearned : public Faults, public testing::WithParamInterface<Learned>
{
};

TEST_P(FaultsOfWhatIsLearned, LeaveTheLanguage)
{
    for (const char* layout : {"Chinese_Pinyin", "Chinese_Zhuyin", "Japanese"}) {
        const bool isZhuyin = std::string(layout) == "Chinese_Zhuyin";
        const std::string input = isZhuyin ? "ㄋㄧˇㄏㄠˇ<2>\n" : "nihon<2>\n";
        EXPECT_EQ(tryOut(layout, input, {"--learn", folder()}).exitStatus, 0) << layout;
        const std::string files = "find '" + folder().string() + "' -type f -exec ";
        ASSERT_EQ(std::system((files + GetParam().command + " \\;").c_str()), 0);
        const test_process::Result result = tryOut(layout, input, {"--learn", folder()});
        EXPECT_EQ(result.exitStatus, 0) << layout << result.signal << result.err;
        EXPECT_THAT(result.out, HasSubstr("text\t'")) << layout;
        EXPECT_THAT(result.out, testing::Not(HasSubstr("text\t''"))) << layout;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder()))
            fs::remove_all(entry);
    }
}

INSTANTIATE_TEST_SUITE_P(, FaultsOfWhatIsLearned, testing::ValuesIn(kLearned),
                         [](const testing::TestParamInfo<Learned>& learned) {
                             return learned.param.name;
                         });

// A folder in the file's place.
TEST_F(Faults, LearnedWordsThatCannotBeReadAreNamed)
{
    fs::create_directories(folder() / "chewing" / "words.sqlite3");
    const test_process::Result result =
        tryOut("Chinese_Zhuyin", "ㄋㄧˇ<1>\n", {"--learn", folder()});
    EXPECT_EQ(result.exitStatus, 0) << result.signal;
    EXPECT_THAT(result.err, HasSubstr("Chinese_Zhuyin: chewing cannot read " + folder().string() +
                                      "/chewing/words.sqlite3; nothing is learned"));
}

TEST_F(Faults, LearnsOnlyWhereItIsTold)
{
    for (const char* layout : {"Chinese_Pinyin", "Chinese_Zhuyin", "Japanese"})
        EXPECT_EQ(tryOut(layout, "nihon \n").exitStatus, 0);
    EXPECT_TRUE(fs::is_empty(folder()));
    for (const char* layout : {"Chinese_Pinyin", "Chinese_Zhuyin", "Japanese"}) {
        EXPECT_EQ(tryOut(layout, "nihon \n", {"--learn", folder()}).exitStatus, 0);
        EXPECT_FALSE(fs::is_empty(folder())) << layout;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder())) {
            EXPECT_FALSE(fs::is_empty(entry)) << layout;
            fs::remove_all(entry);
        }
    }
}

} // namespace

} // namespace input_methods_test
