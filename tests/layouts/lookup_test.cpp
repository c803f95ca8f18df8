#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/locid.h>

#include "lookup.h"
#include "shipped.h"
#include "territory.h"
#include "text.h"

using namespace layouts;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::ThrowsMessage;

namespace
{

std::string meant(const std::string& text)
{
    return meantLanguage(languages(), text).name;
}

std::vector<std::string> layoutsOf(const std::string& country)
{
    std::vector<std::string> names;
    for (const Language* language : territoryOf(languages(), country).languages)
        names.push_back(language->name);
    return names;
}

TEST(Lookup, EveryNameAndCodeLeadsToItsLayout)
{
    for (const Language& language : languages()) {
        EXPECT_EQ(meant(language.name), language.name);
        EXPECT_EQ(meant(upperCase(language.name, "en")), language.name);
        EXPECT_EQ(meantLanguage(languages(), language.icuName).icuName, language.icuName);
    }
}

TEST(Lookup, TakesOwnNamesInAnyCaseWithOrWithoutAccents)
{
    EXPECT_EQ(meant("français"), "French");
    EXPECT_EQ(meant("FRANCAIS"), "French");
    EXPECT_EQ(meant("Ελληνικά"), "Greek");
    EXPECT_EQ(meant("РУССКИЙ"), "Russian");
    EXPECT_EQ(meant("हिन्दी"), "Hindi");
    EXPECT_EQ(meant("norsk bokmål"), "Norwegian_Bokmal");
    EXPECT_EQ(meant("shqip"), "Albanian");
    EXPECT_EQ(meant("башҡортса"), "Bashkir") << "which only the table knows";
}

TEST(Lookup, TakesCodesInAnyForm)
{
    EXPECT_EQ(meant("FR"), "French");
    EXPECT_EQ(meant("fra"), "French");
    EXPECT_EQ(meant("sr-latn"), "Serbian_Latin");
    EXPECT_EQ(meant("zh-TW"), "Chinese_Zhuyin");
    EXPECT_EQ(meant("zh_HK"), "Chinese_Traditional_Pinyin");
    EXPECT_EQ(meant("de-AT"), "German");
    EXPECT_EQ(meant("es_MX"), "Spanish_Latin_America");
    EXPECT_EQ(meant("yi"), "Yiddish");
    EXPECT_EQ(meant("Yi"), "Yi");
}

TEST(Lookup, ALanguageInSeveralScriptsIsTheFirstUnlessTheScriptIsNamed)
{
    EXPECT_EQ(meant("српски"), "Serbian");
    EXPECT_EQ(meant("srpski"), "Serbian_Latin");
    EXPECT_EQ(meant("uzbek"), "Uzbek");
    EXPECT_EQ(meant("uzbek cyrillic"), "Uzbek_Cyrillic");
}

// ICU guesses English for a text that is no locale.
TEST(Lookup, TakesAWordThatIsNoLocaleForNone)
{
    for (const char* word : {"plattdeutsch", "schweizerdeutsch", "русски", ""})
        EXPECT_EQ(layoutForLocale(languages(), word), nullptr) << word;
    EXPECT_THAT([] { meant("русски"); },
                ThrowsMessage<std::runtime_error>("русски: no such layout; did you mean Russian"));
}

TEST(Lookup, SuggestsTheNearestNames)
{
    EXPECT_THAT([] { meant("Frensh"); },
                ThrowsMessage<std::runtime_error>(
                    "Frensh: no such layout; did you mean French or French_Canada"));
    EXPECT_THAT([] { meant("Deutch"); },
                ThrowsMessage<std::runtime_error>(AllOf(HasSubstr("German"), HasSubstr("Dutch"))));
    EXPECT_THAT(
        [] { meant("xyzzyxyzzy"); },
        ThrowsMessage<std::runtime_error>("xyzzyxyzzy: no such layout; layouts list names all"));
    EXPECT_THAT([] { meant(""); }, ThrowsMessage<std::runtime_error>(HasSubstr("no such layout")));
}

TEST(Territory, NamesTheMostSpokenFirst)
{
    EXPECT_THAT(layoutsOf("CH"), ElementsAre("German", "Swiss_German", "English", "French",
                                             "Italian", "Portuguese", "Romansh"));
    EXPECT_EQ(layoutsOf("ch"), layoutsOf("CH"));
    EXPECT_EQ(layoutsOf("IN").front(), "Hindi");
}

TEST(Territory, LeavesOutWhatFewSpeakUnlessItIsOfficial)
{
    EXPECT_THAT(layoutsOf("US"), AllOf(Contains("Hawaiian"), Not(Contains("German"))));
}

TEST(Territory, TakesTheScriptThatIsUsualThere)
{
    EXPECT_THAT(layoutsOf("RS"), IsSupersetOf({"Serbian", "Serbian_Latin"}));
    EXPECT_THAT(layoutsOf("ME"), AllOf(Contains("Serbian_Latin"), Not(Contains("Serbian"))));
    EXPECT_THAT(layoutsOf("PK"), AllOf(Contains("Punjabi_Arabic"), Not(Contains("Punjabi"))));
}

TEST(Territory, TakesTheCountrysOwnWayOfTyping)
{
    EXPECT_EQ(layoutsOf("TW").front(), "Chinese_Zhuyin");
    EXPECT_THAT(layoutsOf("HK"), IsSupersetOf({"Chinese_Traditional_Pinyin", "Cantonese"}));
    EXPECT_EQ(layoutsOf("CN").front(), "Chinese_Pinyin");
    EXPECT_EQ(layoutsOf("BR").front(), "Portuguese_Brazil");
    EXPECT_EQ(layoutsOf("PT").front(), "Portuguese");
    EXPECT_EQ(layoutsOf("MX").front(), "Spanish_Latin_America");
    EXPECT_EQ(layoutsOf("ES").front(), "Spanish");
    EXPECT_THAT(layoutsOf("CA"), IsSupersetOf({"English", "French_Canada"}));
}

// Only where nobody lives there is none.
TEST(Territory, FindsALanguageForEachCountry)
{
    size_t countries = 0;
    for (const char* const* code = icu::Locale::getISOCountries(); *code != nullptr; ++code) {
        Territory territory;
        try {
            territory = territoryOf(languages(), *code);
        } catch (const std::runtime_error&) {
            continue; // nobody lives there, or CLDR does not say who
        }
        countries += territory.languages.empty() ? 0 : 1;
        EXPECT_TRUE(!territory.languages.empty() || territory.others.empty())
            << *code << ": " << testing::PrintToString(territory.others);
    }
    EXPECT_GE(countries, 249u);
}

TEST(Territory, NamesWhatHasNoLayout)
{
    EXPECT_THAT(territoryOf(languages(), "CH").others, ElementsAre("Lombard"));
    EXPECT_THAT(territoryOf(languages(), "IS").others, IsEmpty());
}

TEST(Territory, RefusesWhatIsNoCountry)
{
    for (const char* code : {"", "XX", "CHE", "Switzerland", "territoryF", "../CH"})
        EXPECT_THAT([&] { territoryOf(languages(), code); },
                    ThrowsMessage<std::runtime_error>(HasSubstr("a code of two letters, as CH")))
            << code;
}

} // namespace
