#include <algorithm>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "layout_set.h"
#include "shipped.h"
#include "usage.h"

using namespace layouts;
using testing::ElementsAreArray;
using testing::SizeIs;

namespace
{

// The English name that the locale data has, in letters that a file name can take.
std::string nameFromIcu(const std::string& icuName)
{
    icu::UnicodeString name;
    icu::Locale(icuName.c_str()).getDisplayName(icu::Locale::getEnglish(), name);
    UErrorCode status = U_ZERO_ERROR;
    name = icu::Normalizer2::getNFDInstance(status)->normalize(name, status);
    std::string result;
    for (int32_t i = 0; i < name.length(); ++i) {
        const char16_t c = name.charAt(i);
        if (c == u' ' || c == u'-')
            result += '_';
        else if (c < 0x80 && u_isalnum(c))
            result += static_cast<char>(c);
    }
    return result;
}

// All languages of the locale data, one for each script that it is written in.
std::set<std::string> languagesOfIcu()
{
    std::set<std::string> names;
    int32_t count = 0;
    const icu::Locale* all = icu::Locale::getAvailableLocales(count);
    for (int32_t i = 0; i < count; ++i) {
        const std::string script = all[i].getScript();
        if (!*all[i].getCountry())
            names.insert(all[i].getLanguage() + (script.empty() ? "" : "_" + script));
    }
    return names;
}

TEST(Languages, AreAllShippedOrLeftOutWithAReason)
{
    std::set<std::string> shipped;
    for (const Language& language : languages())
        shipped.insert(language.icuName);
    std::set<std::string> leftOut;
    for (const LeftOut& language : readLeftOut(resource("left_out.tsv"))) {
        leftOut.insert(language.icuName);
        EXPECT_GT(language.reason.size(), 10u) << language.icuName << " needs a reason";
    }
    for (const std::string& name : languagesOfIcu())
        EXPECT_NE(shipped.count(name), leftOut.count(name))
            << name << " (" << nameFromIcu(name) << ") must be in one of the two tables";
    EXPECT_GE(shipped.size(), 180u);
}

// A language may have several ways of typing, each named by the language and by the way. Yi is
// called by its province as well, of which the layout says nothing.
TEST(Languages, AreNamedByTheLocaleData)
{
    std::set<std::string> names;
    for (const Language& language : languages()) {
        const std::string name = nameFromIcu(language.icuName);
        const bool isOneOfSeveral = !language.letters.empty() &&
                                    (language.name.compare(0, name.size() + 1, name + "_") == 0 ||
                                     "Sichuan_" + language.name == name);
        EXPECT_EQ(language.name, isOneOfSeveral ? language.name : name);
        EXPECT_TRUE(names.insert(language.name).second) << language.name << " twice";
    }
}

TEST(Languages, HaveAFileEachAndNoOthersAreThere)
{
    std::vector<std::string> names;
    for (const Language& language : languages())
        names.push_back(language.name);
    std::sort(names.begin(), names.end());
    EXPECT_THAT(shippedLayouts(), ElementsAreArray(names));
}

// The means of all layouts; a test of each layout holds it alone.
TEST(Languages, AreTypedWithFewPresses)
{
    std::vector<double> presses;
    size_t words = 0;
    size_t untypable = 0;
    for (const Language& language : languages()) {
        const Usage usage = usageOf(shippedKeyMap(language.name), language);
        words += usage.words;
        untypable += usage.untypable.size();
        if (usage.words > 0)
            presses.push_back(usage.presses);
    }
    std::sort(presses.begin(), presses.end());
    EXPECT_GT(words, 100000u);
    EXPECT_LE(untypable * 1000, words);
    EXPECT_LE(presses[presses.size() / 2], 4.82);
}

TEST(DefaultCatalogue, BeginsWithEnglishAndGermanAndIsShort)
{
    const std::vector<std::string> names = shippedCatalogue().names;
    ASSERT_GE(names.size(), 2u);
    EXPECT_EQ(names[0], "English");
    EXPECT_EQ(names[1], "German");
    EXPECT_LE(names.size(), 6u);
}

TEST(DefaultCatalogue, FitsTheScreen)
{
    const Catalogue catalogue = shippedCatalogue();
    const Cell& last = catalogue.cells.back();
    EXPECT_THAT(catalogue.cells, SizeIs(67));
    EXPECT_EQ((last.column + last.width) * (catalogue.gapX + catalogue.cellWidth) + catalogue.gapX,
              1302);
    EXPECT_EQ((last.row + last.height) * (catalogue.gapY + catalogue.cellHeight) + catalogue.gapY,
              456);
}

TEST(ShippedFolder, HasNoFinding)
{
    CheckOptions options;
    for (const Language& language : languages())
        options.known.insert(language.name);
    EXPECT_THAT(lines(Checker(resource("schema")).check(readLayoutSet(shippedFolder()), options)),
                testing::IsEmpty());
}

} // namespace
