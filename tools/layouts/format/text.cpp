// UTF-8 texts by the rules of Unicode and of a language.
#include "text.h"

#include <cstdio>

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace layouts
{
namespace
{

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

std::string normalized(const std::string& text, const icu::Normalizer2* form, UErrorCode status)
{
    const icu::UnicodeString result = form->normalize(icu::UnicodeString::fromUTF8(text), status);
    return U_SUCCESS(status) ? utf8(result) : text;
}

// Hebrew accents, which only the Bible is printed with.
bool isCantillation(UChar32 c)
{
    return c >= 0x0591 && c <= 0x05AF;
}

// Khmer vowels that are only thought, not written.
bool isInherentVowel(UChar32 c)
{
    return c == 0x17B4 || c == 0x17B5;
}

// More than one code point, with marks of their own.
bool isMarked(const icu::UnicodeString& text)
{
    for (int32_t i = text.moveIndex32(0, 1); i < text.length(); i = text.moveIndex32(i, 1))
        if (u_getCombiningClass(text.char32At(i)) != 0)
            return true;
    return false;
}

} // namespace

// The conversion puts a replacement character in place of what it cannot read.
bool isUtf8(const std::string& text)
{
    return utf8(icu::UnicodeString::fromUTF8(text)) == text;
}

bool isNfc(const std::string& text)
{
    return nfc(text) == text;
}

std::string nfc(const std::string& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* form = icu::Normalizer2::getNFCInstance(status);
    return normalized(text, form, status);
}

std::string nfd(const std::string& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* form = icu::Normalizer2::getNFDInstance(status);
    return normalized(text, form, status);
}

std::vector<char32_t> codePoints(const std::string& text)
{
    std::vector<char32_t> result;
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    for (int32_t i = 0; i < units.length(); i = units.moveIndex32(i, 1))
        result.push_back(static_cast<char32_t>(units.char32At(i)));
    return result;
}

std::string fromCodePoint(char32_t codePoint)
{
    return utf8(icu::UnicodeString(static_cast<UChar32>(codePoint)));
}

int32_t singleCodePoint(const std::string& text)
{
    const std::vector<char32_t> all = codePoints(text);
    return all.size() == 1 ? static_cast<int32_t>(all[0]) : 0;
}

std::string upperCase(const std::string& text, const std::string& language)
{
    const icu::Locale locale(language.c_str());
    icu::UnicodeString upper;
    for (const char32_t c : codePoints(text)) {
        const icu::UnicodeString letter(static_cast<UChar32>(c));
        // Title case is what begins a word. Upper case differs where only whole lines in
        // capitals use it: Georgian letters change their form, Greek ones lose their accent.
        icu::UnicodeString capital = icu::UnicodeString(letter).toTitle(nullptr, locale);
        if (isMarked(capital))
            capital = icu::UnicodeString(letter).toUpper(locale);
        upper += capital;
    }
    const std::string result = nfc(utf8(upper));
    return result == text ? std::string() : result;
}

std::string lowerCase(const std::string& text, const std::string& language)
{
    return nfc(utf8(icu::UnicodeString::fromUTF8(text).toLower(icu::Locale(language.c_str()))));
}

bool isSign(const std::string& text)
{
    const int32_t c = singleCodePoint(text);
    constexpr uint32_t kTyped = U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK | U_GC_P_MASK |
                                U_GC_SC_MASK | U_GC_SM_MASK | U_GC_SK_MASK;
    const UBlockCode block = ublock_getCode(c);
    const bool isRare = block == UBLOCK_ARROWS || block == UBLOCK_SUPPLEMENTAL_PUNCTUATION ||
                        block == UBLOCK_CJK_SYMBOLS_AND_PUNCTUATION || isCantillation(c) ||
                        isInherentVowel(c);
    return isInvisible(c) || (c != 0 && (U_GET_GC_MASK(c) & kTyped) != 0 && !isRare);
}

bool isMark(const std::string& text)
{
    const int32_t c = singleCodePoint(text);
    return c != 0 && (U_GET_GC_MASK(c) & U_GC_M_MASK) != 0;
}

bool isAsciiAlphanumeric(const std::string& text)
{
    const int32_t c = singleCodePoint(text);
    return c > 0 && c < 0x80 && u_isalnum(c);
}

int digitValue(const std::string& text)
{
    return u_charDigitValue(singleCodePoint(text));
}

bool isInvisible(int32_t c)
{
    return c >= 0x200B && c <= 0x200D;
}

std::string describe(const std::string& text)
{
    std::string result;
    for (const char32_t c : codePoints(text)) {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "U+%04X", static_cast<unsigned>(c));
        result += (result.empty() ? "" : " ") + std::string(buffer);
    }
    return result;
}

} // namespace layouts
