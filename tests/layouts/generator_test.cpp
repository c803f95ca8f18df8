#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "coverage.h"
#include "exceptions.h"
#include "generator.h"
#include "json_file.h"
#include "label.h"
#include "layout_set.h"
#include "positions.h"
#include "shipped.h"
#include "text.h"
#include "typing.h"
#include "xkb_keyboard.h"

using namespace layouts;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

namespace
{

std::vector<KeyException> exceptions()
{
    return readExceptions(resource("exceptions.tsv"), languages());
}

TEST(Generator, WritesTheShippedFiles)
{
    const Catalogue grid = shippedCatalogue();
    std::string stale;
    for (const Language& language : languages())
        if (writeKeyMap(generate(language, grid, exceptions())) !=
            readFile(keyMapFile(shippedFolder(), language.name)))
            stale += " " + language.name;
    EXPECT_EQ(stale, "") << "update the files with: layouts generate" << stale;
}

TEST(Generator, WritesTheCatalogueAsItReadsIt)
{
    EXPECT_EQ(writeCatalogue(shippedCatalogue()), readFile(catalogueFile(shippedFolder())));
}

TEST(Generator, RefusesAKeyboardThatIsNotThere)
{
    Language language = languageOf("English");
    language.xkbLayout = "nowhere";
    EXPECT_THAT([&] { generate(language, shippedCatalogue(), {}); },
                ThrowsMessage<std::runtime_error>(
                    HasSubstr("keyboard nowhere(): not in the keyboard database")));
}

TEST(Generator, RefusesAnotherGrid)
{
    Catalogue grid = shippedCatalogue();
    grid.cells.pop_back();
    EXPECT_THAT([&] { generate(languageOf("English"), grid, {}); },
                ThrowsMessage<std::runtime_error>(
                    HasSubstr("the catalogue's grid has 66 keys, expected 67")));
}

TEST(Generator, SaysWhenThereAreTooManyLetters)
{
    Language amharic = {"am", "Amharic", "AM", "us", "", "FreeSerif.ttf", ""};
    EXPECT_THAT([&] { generate(amharic, shippedCatalogue(), {}); },
                ThrowsMessage<std::runtime_error>(
                    HasSubstr("Amharic: its letters are too many for four faces")));
}

TEST(Generator, WantsLettersThatTheLocaleDataLacks)
{
    Language occitan = {"oc", "Occitan", "OC", "fr", "oci", "DejaVuSans.ttf", ""};
    EXPECT_THAT([&] { generate(occitan, shippedCatalogue(), {}); },
                ThrowsMessage<std::runtime_error>(
                    HasSubstr("Occitan: the locale data has no letters for \"oc\"")));
    occitan.letters = "[a-zœ]";
    const KeyMap keyMap = generate(occitan, shippedCatalogue(), {});
    EXPECT_TRUE(placesOf(keyMap).count("œ"));
    EXPECT_TRUE(placesOf(keyMap).count("Œ"));
}

// Letters that the language's own keyboard has on AltGr and that its first two faces lack.
TEST(Generator, LeavesTheLettersOfAltGrOnTheirKeys)
{
    size_t all = 0;
    for (const Language& language : languages()) {
        const XkbKeyboard keyboard =
            readXkbKeyboard(language.xkbLayout, language.xkbVariant, language.xkbFolder);
        const std::map<std::string, Place> places = placesOf(shippedKeyMap(language.name));
        for (const std::string& letter : mainLetters(language))
            for (const auto& key : keyboard) {
                const auto place = places.find(letter);
                const bool isShifted = key.second.altGr.shifted == letter;
                if ((key.second.altGr.plain != letter && !isShifted) || place == places.end() ||
                    !place->second.face->symbol)
                    continue;
                ++all;
                EXPECT_EQ(place->second.key, positionOf(key.first))
                    << language.name << ": " << letter;
                EXPECT_EQ(place->second.face->shifted, isShifted)
                    << language.name << ": " << letter;
            }
    }
    EXPECT_GE(all, 240u);
}

TEST(Exceptions, ChangeTheKeyAndNoOther)
{
    const KeyMap before = generate(languageOf("English"), shippedCatalogue(), {});
    const KeyMap after = generate(languageOf("English"), shippedCatalogue(),
                                  {{"English", "AD01", 0, "ö"}, {"German", "AD02", 0, "ä"}});
    EXPECT_EQ(before.defaults[17].plain.text, "q");
    EXPECT_EQ(after.defaults[17].plain.text, "ö");
    EXPECT_EQ(after.defaults[18].plain.text, "w");
}

TEST(Exceptions, SayWhichLineIsWrong)
{
    const struct {
        const char* line;
        const char* message;
    } kCases[] = {
        {"Klingon\tAD01\tdefault\tx\twhy", "the layout \"Klingon\", expected the name of one"},
        {"Greek\tAD99\tdefault\tx\twhy", "the key \"AD99\", expected the name of a printing key"},
        {"Greek\tAD01\tupper\tx\twhy", "the face \"upper\", expected default, default shifted"},
        {"Greek\tAD01\tdefault\tx", "4 columns, expected 5"},
        {"Greek\tAD01\tdefault\tx\t", "no reason in column 5, expected why"},
        {"Greek\tAD01\tdefault\t\xFF\twhy", "bytes that are no UTF-8, expected a file"},
    };
    TemporaryFolder folder;
    for (const auto& wrong : kCases) {
        std::ofstream(folder.path("table")) << "# comment\n\n" << wrong.line << "\n";
        EXPECT_THAT([&] { readExceptions(folder.path("table"), languages()); },
                    ThrowsMessage<std::runtime_error>(
                        HasSubstr("table: line 3: found " + std::string(wrong.message))));
    }
}

TEST(Exceptions, StandOnceForEachKeyAndFace)
{
    TemporaryFolder folder;
    std::ofstream(folder.path("table"))
        << "Greek\tAD01\tdefault\tx\twhy\nGreek\tAD01\tdefault\ty\twhy\n";
    EXPECT_THAT([&] { readExceptions(folder.path("table"), languages()); },
                ThrowsMessage<std::runtime_error>(
                    HasSubstr("table: line 2: found Greek AD01 default again, expected each")));
}

TEST(LanguageTable, SaysWhatIsWrongInALine)
{
    const struct {
        const char* line;
        const char* message;
    } kCases[] = {
        {"xx\tName\tXX\tde\tDejaVuSans.ttf", "the name \"Name\", expected the middle of a file"},
        {"xx\tA/../B\tXX\tde\tDejaVuSans.ttf", "the name \"A/../B\", expected the middle of a"},
        {"xx\tX\tShift\tde\tDejaVuSans.ttf", "the label \"Shift\", expected another one"},
        {"xx\tX\tXX\tde(neo\tDejaVuSans.ttf", "the keyboard \"de(neo\", expected a name in"},
        {"xx\tX\tXX\tde()\tDejaVuSans.ttf", "the keyboard \"de()\", expected a name in"},
        {"xx\tX\tXX\tde)\tDejaVuSans.ttf", "the keyboard \"de)\", expected a name in"},
        {"xx\tX\t\xFF\tde\tDejaVuSans.ttf", "bytes that are no UTF-8, expected a file"},
        {"xx\t\tXX\tde\tDejaVuSans.ttf", "nothing in column 2, expected a text"},
    };
    TemporaryFolder folder;
    for (const auto& wrong : kCases) {
        std::ofstream(folder.path("table")) << wrong.line << "\r\n";
        EXPECT_THAT([&] { readLanguages(folder.path("table")); },
                    ThrowsMessage<std::runtime_error>(
                        HasSubstr("table: line 1: found " + std::string(wrong.message))));
    }
}

TEST(LanguageTable, IsAFile)
{
    TemporaryFolder folder;
    EXPECT_THAT([&] { readLanguages(folder.path()); },
                ThrowsMessage<std::runtime_error>(HasSubstr(": cannot be read: is a folder")));
}

TEST(LanguageTable, SaysWhichLineIsWrong)
{
    TemporaryFolder folder;
    std::ofstream(folder.path("table")) << "# comment\n\nen\tEnglish\tEN\tus\n";
    EXPECT_THAT(
        [&] { readLanguages(folder.path("table")); },
        ThrowsMessage<std::runtime_error>(HasSubstr("table: line 3: found 4 columns, expected 5")));
}

TEST(LanguageTable, RefusesLettersThatAreNoPattern)
{
    TemporaryFolder folder;
    const std::string row = "oc\tOccitan\tOC\tfr(oci)\tDejaVuSans.ttf\t";
    for (const char* letters : {"[a-z", "[:Nonsense:]", "[]"}) {
        std::ofstream(folder.path("table")) << "# comment\n" << row << letters << "\n";
        EXPECT_THAT([&] { readLanguages(folder.path("table")); },
                    ThrowsMessage<std::runtime_error>(
                        HasSubstr("table: line 2: found the letters \"" + std::string(letters) +
                                  "\", expected a pattern")));
    }
}

TEST(Label, ShowsAMarkOnADottedCircle)
{
    EXPECT_EQ(labelFor("\u0301"), "\u25CC\u0301");
    EXPECT_EQ(labelFor("\u0940"), "\u25CC\u0940");
    EXPECT_EQ(labelFor("\u093F"), "\u093F\u25CC") << "it is written before its consonant";
    EXPECT_EQ(labelFor("\u0651"), "\u0651\u25CC") << "Arabic fonts draw it to the right";
    EXPECT_EQ(labelFor("\u09CB"), "\u09CB") << "it stands on both sides of its consonant";
    EXPECT_EQ(labelFor("\u200D"), "ZWJ");
    EXPECT_EQ(labelFor("é"), "é");
}

TEST(Label, IsAsARendererWithoutShapingMustGetIt)
{
    EXPECT_EQ(inVisualOrder("EN"), "EN");
    EXPECT_EQ(inVisualOrder("हि"), "िह");
    EXPECT_EQ(inVisualOrder("हिन्दी"), "िहन्दी");
    EXPECT_EQ(inVisualOrder("க்கெ"), "ெக்க") << "before all consonants of the syllable";
    EXPECT_EQ(inVisualOrder("עב"), "בע") << "drawn from the left, read from the right";
    EXPECT_EQ(inVisualOrder("عر"), "\uFEAE\uFECB") << "in the forms that join";
    EXPECT_EQ(inVisualOrder("ދި"), "ދި") << "a mark stays behind its letter";
}

TEST(Generator, DrawsTheNameOnTheLanguageKey)
{
    EXPECT_EQ(shippedKeyMap("Hindi").defaults[1].plain.text,
              inVisualOrder(languageOf("Hindi").label));
    EXPECT_EQ(shippedKeyMap("Arabic").symbols[1].shifted.text,
              inVisualOrder(languageOf("Arabic").label));
}

TEST(Speller, TakesMarksInEitherOrder)
{
    const Speller speller({"e", "ê", "\u0323", "\u0302"});
    EXPECT_THAT(speller.spell("ệ"), ElementsAre("ê", "\u0323"));
    EXPECT_THAT(speller.spell("ẹ"), ElementsAre("e", "\u0323"));
    EXPECT_THAT(speller.spell("ẽ"), IsEmpty());
    EXPECT_THAT(speller.spell(""), IsEmpty());
}

TEST(UpperCase, FollowsTheLanguage)
{
    EXPECT_EQ(upperCase("i", "en"), "I");
    EXPECT_EQ(upperCase("i", "tr"), "İ");
    EXPECT_EQ(upperCase("ά", "el"), "Ά");
    EXPECT_EQ(upperCase("dž", "hr"), "DŽ");
    EXPECT_EQ(upperCase("ა", "ka"), "") << "no word begins with a Georgian capital";
    EXPECT_EQ(upperCase("ह", "hi"), "");
}

TEST(Neighbours, LieUnderTheCentreAndWrap)
{
    // 0: 0-2, 1: 2-4, 2: 4-6; below 3: 0-3, 4: 3-6
    const std::vector<Cell> cells = {
        {0, 0, 2, 1}, {2, 0, 2, 1}, {4, 0, 2, 1}, {0, 1, 3, 1}, {3, 1, 3, 1}};
    const std::vector<Neighbours> around = neighbours(cells);
    EXPECT_EQ(around[0].left, 2);
    EXPECT_EQ(around[2].right, 0);
    EXPECT_EQ(around[0].down, 3);
    EXPECT_EQ(around[1].down, 3) << "the centre is on the line between two: the left one";
    EXPECT_EQ(around[2].down, 4);
    EXPECT_EQ(around[0].up, 3) << "wraps";
    EXPECT_EQ(around[3].up, 0);
    EXPECT_EQ(around[4].up, 2);
}

TEST(Neighbours, OnALineBetweenTwoTakeTheNearerCentre)
{
    // The centre of 0 is at 4, between the wide key 1 (0-4) and the narrow key 2 (4-5).
    const std::vector<Cell> cells = {{0, 0, 8, 1}, {0, 1, 4, 1}, {4, 1, 1, 1}, {5, 1, 3, 1}};
    EXPECT_EQ(neighbours(cells)[0].down, 2);
}

} // namespace
