#include <map>
#include <set>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "json_file.h"
#include "layout_set.h"
#include "shipped.h"

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

// Languages that have no layout, each with the reason.
std::map<std::string, std::string> leftOut()
{
    std::map<std::string, std::string> reasons;
    std::istringstream in(readFile(resource("left_out.tsv")));
    for (std::string line; std::getline(in, line);) {
        const size_t tab = line.find('\t');
        if (!line.empty() && line[0] != '#' && tab != std::string::npos)
            reasons[line.substr(0, tab)] = line.substr(tab + 1);
    }
    return reasons;
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
    const std::map<std::string, std::string> reasons = leftOut();
    std::set<std::string> shipped;
    for (const Language& language : languages())
        shipped.insert(language.icuName);
    for (const std::string& name : languagesOfIcu()) {
        const auto reason = reasons.find(name);
        EXPECT_NE(shipped.count(name) != 0, reason != reasons.end())
            << name << " (" << nameFromIcu(name) << ") must be in one of the two tables";
        if (reason != reasons.end()) {
            EXPECT_GT(reason->second.size(), 10u) << name << " needs a reason";
        }
    }
    EXPECT_GE(shipped.size(), 180u);
}

TEST(Languages, AreNamedByTheLocaleData)
{
    std::set<std::string> names;
    for (const Language& language : languages()) {
        EXPECT_EQ(language.name, nameFromIcu(language.icuName));
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
