#include <sys/wait.h>

#include <cstdio>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "json_file.h"
#include "layout_sets.h"
#include "shipped.h"
#include "test_picture.h"

using testing::ContainsRegex;
using testing::HasSubstr;

namespace
{

struct Outcome {
    int status;
    std::string output; // standard output and standard error
};

Outcome call(const std::string& arguments)
{
    const std::string command = std::string(LAYOUTS_COMMAND) + " " + arguments + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe))
        output += static_cast<char>(c);
    return {WEXITSTATUS(pclose(pipe)), output};
}

// A folder with the files of a set of bad_and_odd_sets.txt.
std::string bad(const std::string& name)
{
    static const TemporaryFolder kParent;
    std::string folder = kParent.path(name);
    std::filesystem::create_directories(folder);
    for (const CheckedSet& set : readCheckedSets())
        for (const auto& file : set.files)
            if (set.name == name)
                std::ofstream(folder + "/" + file.first, std::ios::binary) << file.second;
    return folder;
}

TEST(Command, ChecksTheShippedFolder)
{
    const Outcome run = call("check " + shippedFolder());
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_THAT(run.output, HasSubstr(" files checked, 0 findings\n"));
}

TEST(Command, CheckFailsWithTheFindingOnALine)
{
    const Outcome run = call("check " + bad("neighbour-minus-one"));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output,
                HasSubstr("Language_English.json: Keys.KeyMode_Default[0].left_button: found -1, "
                          "expected the id of a key, 0 to 8 [neighbour]\n"));
}

TEST(Command, CheckTakesFontAndScreen)
{
    EXPECT_EQ(call("check " + bad("glyph-not-in-the-font")).status, 0);
    EXPECT_THAT(call("check --font DejaVuSans.ttf " + bad("glyph-not-in-the-font")).output,
                HasSubstr("[glyph]"));
    EXPECT_THAT(call("check --screen 1000x1000 " + bad("screen-too-narrow")).output,
                HasSubstr("[screen]"));
    EXPECT_THAT(call("check --screen wide " + bad("screen-too-narrow")).output,
                HasSubstr("--screen: found wide, expected WxH"));
    EXPECT_THAT(call("check --screen 99999999999x1080 " + bad("screen-too-narrow")).output,
                HasSubstr("--screen: found 99999999999x1080, expected WxH"));
    EXPECT_THAT(call("check --font none.ttf " + bad("screen-too-narrow")).output,
                HasSubstr("font none.ttf: not below"));
}

TEST(Command, CoverageFailsWhereALetterIsMissing)
{
    TemporaryFolder folder;
    std::string text = layouts::readFile(shippedFolder() + "/Language_German.json");
    const std::string key = R"("text": "ö", "shift_text": "Ö", "keyCode": 186, "character": 246)";
    const size_t at = text.find(key);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, key.size(),
                 R"("text": "ő", "shift_text": "Ö", "keyCode": 186, "character": 337)");
    std::ofstream(folder.path("Language_German.json")) << text;
    const Outcome run = call("coverage German --from " + folder.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("German: ö (U+00F6) cannot be typed\n"));
    EXPECT_EQ(call("coverage German").status, 0);
}

TEST(Command, CoverageSaysWhereEachLetterLies)
{
    const Outcome run = call("coverage Vietnamese French");
    EXPECT_THAT(run.output, ContainsRegex("\n  with several keys: [^\n]*ỡ"));
    EXPECT_THAT(run.output,
                HasSubstr("French: 54 default, 39 default shifted, 18 symbol, 16 symbol "
                          "shifted, 0 with several keys, 0 missing\n"));
    EXPECT_THAT(run.output,
                ContainsRegex("French: [0-9]+ words, 0 cannot be typed, [0-9.]+ presses a "
                              "character, [0-9.]+% of the characters behind Alt\n"));
    EXPECT_THAT(run.output, HasSubstr("\n  symbol: â æ ê ë î ï ô û ü ÿ œ ["));
}

TEST(Command, ListsTheLanguagesAsTheManualDoes)
{
    EXPECT_EQ(call("list").output, layouts::readFile(DOCS "/languages.md"))
        << "update it with: layouts list > docs/languages.md";
}

TEST(Command, GeneratesTheSameBytesAgain)
{
    TemporaryFolder folder;
    const Outcome run = call("generate Thai --to " + folder.path());
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_EQ(layouts::readFile(folder.path("Language_Thai.json")),
              layouts::readFile(shippedFolder() + "/Language_Thai.json"));
}

// Nothing is written when a language behind the first ones has no keyboard.
TEST(Command, GenerateWritesAllOrNothing)
{
    TemporaryFolder folder;
    std::filesystem::copy(RESOURCES, folder.path(), std::filesystem::copy_options::recursive);
    std::ofstream(folder.path("languages.tsv"))
        << "en\tEnglish\tEN\tus\tDejaVuSans.ttf\nde\tGerman\tDE\tnowhere\tDejaVuSans.ttf\n";
    std::ofstream(folder.path("exceptions.tsv")) << "# none\n";
    std::filesystem::create_directory(folder.path("to"));
    const Outcome run =
        call("--resources " + folder.path() + " generate --all --to " + folder.path("to"));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("languages.tsv: line 2: keyboard nowhere(): not in the "
                                      "keyboard database; see the list in "));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path("to")));
}

TEST(Command, GenerateWantsNamesOrAll)
{
    EXPECT_THAT(call("generate").output, HasSubstr("name languages or give --all"));
    EXPECT_NE(call("generate").status, 0);
    EXPECT_THAT(call("generate Klingon").output, HasSubstr("Klingon: not in "));
}

TEST(Command, InstallsAndChecks)
{
    TemporaryFolder folder;
    EXPECT_EQ(call("install French German --to " + folder.path("set")).status, 0);
    EXPECT_EQ(call("check " + folder.path("set")).status, 0);
}

TEST(Command, InstallsTheLanguagesOfACountryAndThoseThatAreNamed)
{
    TemporaryFolder folder;
    const Outcome run = call("install --country ch français türkçe --to " + folder.path("set"));
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_THAT(run.output, HasSubstr("No layout for: Lombard\n"));
    EXPECT_THAT(run.output,
                HasSubstr("/set: German, Swiss_German, English, French, Italian, Portuguese, "
                          "Romansh, Turkish\n"));
    EXPECT_THAT(run.output, HasSubstr("One font shows all labels: "));
    EXPECT_THAT(run.output, HasSubstr("/DejaVuSans.ttf\n"));
}

TEST(Command, InstallTellsWhenNoFontShowsAll)
{
    TemporaryFolder folder;
    std::filesystem::copy(resource("schema"), folder.path("schema"));
    std::filesystem::create_symlink(resource("oskeyboard_config"),
                                    folder.path("oskeyboard_config"));
    std::ofstream(folder.path("languages.tsv")) << "hi\tHindi\tहि\tin\tFreeSans.ttf\n"
                                                << "te\tTelugu\tతె\tin(tel)\tFreeSerif.ttf\n";
    const Outcome run =
        call("--resources " + folder.path() + " install Hindi Telugu --to " + folder.path("set"));
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_THAT(run.output, ContainsRegex("No font .* shows all labels. The nearest is .*ttf; "
                                          "faults: .*Language_Telugu.json [0-9]+"));
}

TEST(Command, InstallChecksTheFontThatIsGiven)
{
    TemporaryFolder folder;
    const Outcome run = call("install Hindi --font DejaVuSans.ttf --to " + folder.path("set"));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("nothing installed"));
    EXPECT_THAT(run.output, HasSubstr("which the font lacks"));
    EXPECT_FALSE(std::filesystem::exists(folder.path("set")));
    EXPECT_EQ(call("install Hindi --font FreeSans.ttf --to " + folder.path("set")).status, 0);
}

TEST(Command, InstallWantsNamesThatThereAre)
{
    TemporaryFolder folder;
    for (const char* arguments : {"", "Frensh", "--country XX", "French Frensh"}) {
        const Outcome run =
            call(std::string("install ") + arguments + " --to " + folder.path("set"));
        EXPECT_NE(run.status, 0) << arguments;
        EXPECT_THAT(run.output, HasSubstr("layouts: ")) << arguments;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path("set")));
}

TEST(Command, InstallRefusesABadSetAndTouchesNothing)
{
    TemporaryFolder folder;
    std::filesystem::copy(resource("schema"), folder.path("schema"));
    std::filesystem::copy(resource("languages.tsv"), folder.path("languages.tsv"));
    std::filesystem::copy(bad("duplicate-plain"), folder.path("oskeyboard_config"));
    const Outcome run =
        call("--resources " + folder.path() + " install English --to " + folder.path("set"));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("nothing installed"));
    EXPECT_THAT(run.output, HasSubstr("[duplicate]"));
    EXPECT_FALSE(std::filesystem::exists(folder.path("set")));
}

TEST(Command, InstallRefusesToReplaceWhatItTakesFrom)
{
    const Outcome run = call("install English --to " + shippedFolder());
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("is where the layouts come from"));
}

TEST(Command, PreviewDrawsTheFourFacesOfTheManual)
{
    TemporaryFolder folder;
    const Outcome run = call("preview English -o " + folder.path("english.png"));
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_EQ(run.output, "");
    const test_support::Picture drawn = test_support::readPng(folder.path("english.png"));
    EXPECT_EQ(drawn.width, 1302);
    EXPECT_EQ(drawn.height, 4 * (64 + 456));
    EXPECT_TRUE(drawn == test_support::readPng(DOCS "/layouts.png"))
        << "update it with: layouts preview English -o docs/layouts.png";
}

} // namespace
