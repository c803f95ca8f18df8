// input_method, as it is used in a terminal.
#include <gmock/gmock.h>

#include "process.h"

namespace input_methods_test
{

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

test_process::Result run(std::vector<std::string> arguments, const std::string& input = "")
{
    test_process::Command command;
    command.words = {INPUT_METHOD, "--data", DATA_FOLDER};
    command.words.insert(command.words.end(), arguments.begin(), arguments.end());
    return test_process::run(command, input);
}

TEST(InputMethodCommand, PrintsWhatEachKeyDoes)
{
    const test_process::Result result = run({"Korean"}, "ㄱㅏ<back> a\nㄴ<finish>ㅏ<reset>\n");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "ㄱ\tused\tcommit ''\tpreedit 'ㄱ'\n"
                          "ㅏ\tused\tcommit ''\tpreedit '가'\n"
                          "<back>\tused\tcommit ''\tpreedit 'ㄱ'\n"
                          " \tnot used\tcommit 'ㄱ'\tpreedit ''\n"
                          "a\tnot used\tcommit ''\tpreedit ''\n"
                          "text\t'ㄱ a'\n"
                          "ㄴ\tused\tcommit ''\tpreedit 'ㄴ'\n"
                          "<finish>\tused\tcommit 'ㄴ'\tpreedit ''\n"
                          "ㅏ\tused\tcommit ''\tpreedit 'ㅏ'\n"
                          "<reset>\tnot used\tcommit ''\tpreedit ''\n"
                          "text\t'ㄴ'\n");
}

TEST(InputMethodCommand, ChoosesAndTurnsPages)
{
    const test_process::Result result = run({"Chinese_Pinyin"}, "nihao<next><previous><1>\n");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_THAT(result.out, HasSubstr("1 你好 2 "));
    EXPECT_THAT(result.out, HasSubstr(" < >\n"));
    EXPECT_THAT(result.out, EndsWith("text\t'你好'\n"));
}

TEST(InputMethodCommand, TakesWhatIsNoKeyForLetters)
{
    EXPECT_THAT(run({"Korean"}, "<foo>ㄱ < <10> <<9>\n").out,
                EndsWith("text\t'<foo>ㄱ < <10> <'\n"));
    EXPECT_THAT(run({"Korean"}, "a\xe3\x84").out, EndsWith("text\t'a\xe3\x84'\n"));
}

TEST(InputMethodCommand, TakesBackWhatAMarkChanges)
{
    EXPECT_THAT(run({"Vietnamese"}, "a\u0301\n").out, HasSubstr("take back 1\tcommit 'á'"));
}

TEST(InputMethodCommand, ListsTheEngines)
{
    const test_process::Result result = run({"--list", "--learn", "/somewhere"});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_THAT(result.out, HasSubstr("Korean\thangul 2\tlibhangul1\tlearns nothing\there\n"));
    EXPECT_THAT(result.out, HasSubstr("Japanese\tanthy romaji\tlibanthy1 anthy-common\t"
                                      "learns in /somewhere/anthy\t"));
}

TEST(InputMethodCommand, SaysWhatIsWrong)
{
    EXPECT_EQ(run({}).exitStatus, 2);
    EXPECT_EQ(run({"Korean", "--list"}).exitStatus, 2);
    const test_process::Result unknown = run({"English"});
    EXPECT_EQ(unknown.exitStatus, 2);
    EXPECT_EQ(unknown.err, "input_method: English: the table names no engine for this layout; "
                           "--list names those that have one\n");
}

TEST(InputMethodCommand, HelpsItself)
{
    const test_process::Result result = run({"--help"});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_THAT(result.out, StartsWith("Reads lines of what is typed"));
}

} // namespace

} // namespace input_methods_test
