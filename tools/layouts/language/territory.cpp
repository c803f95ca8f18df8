// The languages of a country, from CLDR's data in ICU.
#include "territory.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include <unicode/locid.h>
#include <unicode/region.h>
#include <unicode/resbund.h>

namespace layouts
{
namespace
{

// CLDR's shares are stored as decimal floats in an integer: two digits of exponent, six of
// mantissa, so that they sort as they are. This is 0.01.
constexpr int32_t kOneInAHundred = 48100000;

struct Spoken {
    std::string code; // "de", "sr_Latn"
    int32_t share;
};

std::vector<Spoken> spokenIn(const std::string& country)
{
    UErrorCode status = U_ZERO_ERROR;
    UResourceBundle* data = ures_openDirect(nullptr, "supplementalData", &status);
    const icu::ResourceBundle all(data, status);
    ures_close(data);
    icu::ResourceBundle one = all.get("territoryInfo", status).get(country.c_str(), status);
    if (U_FAILURE(status))
        throw std::runtime_error(country + ": found no such country in CLDR's data, expected a "
                                           "code of two letters, as CH");
    std::vector<Spoken> spoken;
    while (one.hasNext()) {
        UErrorCode each = U_ZERO_ERROR;
        const icu::ResourceBundle language = one.getNext(each);
        // The country's own figures, and what stands for nobody's language.
        if (language.getType() != URES_TABLE || std::strcmp(language.getKey(), "und") == 0)
            continue;
        const int32_t share = language.get("populationShareF", each).getInt(each);
        UErrorCode missing = U_ZERO_ERROR;
        language.get("officialStatus", missing);
        if (U_SUCCESS(each) && (U_SUCCESS(missing) || share >= kOneInAHundred))
            spoken.push_back({language.getKey(), share});
    }
    std::stable_sort(spoken.begin(), spoken.end(),
                     [](const Spoken& a, const Spoken& b) { return a.share > b.share; });
    return spoken;
}

icu::Locale withLikelyScript(const std::string& name)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale = icu::Locale::createCanonical(name.c_str());
    locale.addLikelySubtags(status);
    return locale;
}

// Whether a language's form is that of the country, or of the region around it.
bool isFormOf(const icu::Locale& form, const std::string& country)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Region* region = icu::Region::getInstance(form.getCountry(), status);
    const icu::Region* wanted = icu::Region::getInstance(country.c_str(), status);
    return U_SUCCESS(status) && (*region == *wanted || region->contains(*wanted));
}

} // namespace

const Language* layoutForLocale(const std::vector<Language>& languages, const std::string& locale)
{
    // For a text that is no locale ICU would guess English.
    if (*icu::Locale::createCanonical(locale.c_str()).getLanguage() == '\0')
        return nullptr;
    const icu::Locale wanted = withLikelyScript(locale);
    const Language* best = nullptr;
    for (const Language& language : languages) {
        const icu::Locale has = withLikelyScript(language.icuName);
        if (std::strcmp(has.getLanguage(), wanted.getLanguage()) != 0 ||
            std::strcmp(has.getScript(), wanted.getScript()) != 0)
            continue;
        const icu::Locale named = icu::Locale::createCanonical(language.icuName.c_str());
        if (best == nullptr || isFormOf(named, wanted.getCountry()))
            best = &language;
    }
    return best;
}

Territory territoryOf(const std::vector<Language>& languages, const std::string& country)
{
    std::string code = country;
    std::transform(code.begin(), code.end(), code.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    Territory territory;
    for (const Spoken& spoken : spokenIn(code)) {
        if (const Language* language = layoutForLocale(languages, spoken.code + "_" + code)) {
            territory.languages.push_back(language);
            continue;
        }
        icu::UnicodeString english;
        std::string name;
        icu::Locale(spoken.code.c_str()).getDisplayName(icu::Locale::getEnglish(), english);
        territory.others.push_back(english.toUTF8String(name));
    }
    return territory;
}

} // namespace layouts
