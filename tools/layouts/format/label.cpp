// What stands on a key instead of a character that cannot be seen alone.
#include "label.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

#include <unicode/ubidi.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/ushape.h>

#include "text.h"

namespace layouts
{
namespace
{

struct Name {
    int32_t character;
    const char* label;
};

// Vowel signs that stand before the consonant that they follow in the text.
struct Range {
    int32_t first;
    int32_t last;
};

const Range kBefore[] = {
    {0x093F, 0x093F}, {0x094E, 0x094E}, {0x09BF, 0x09BF}, {0x09C7, 0x09C8},
    {0x0A3F, 0x0A3F}, {0x0ABF, 0x0ABF}, {0x0B47, 0x0B47}, {0x0BC6, 0x0BC8},
    {0x0D46, 0x0D48}, {0x0DD9, 0x0DDB}, {0xAAEB, 0xAAEB}, {0xAAEE, 0xAAEE},
};

constexpr int32_t kMostUnits = 64; // of a label, in UTF-16

// What stands around a mark, so that the fonts of the language table draw it in the middle of its
// key. The first row that has it holds.
struct Frame {
    Range marks;
    const char* before;
    const char* after;
};

const char kCircle[] = "\u25CC";

const Frame kFrames[] = {
    // They stand around two letters, or have both of their parts.
    {{0x0360, 0x0360}, "", ""},
    {{0x09CB, 0x09CC}, "", ""},
    {{0x0D4A, 0x0D4C}, "", ""},
    // From Hebrew to the last Arabic block: drawn where the letter is that follows on the left.
    {{0x0591, 0x08FF}, "", kCircle},
    // Unifont has two cells for these signs, three for Tibetan ones, one for the circle.
    {{0x0C3F, 0x0C40}, "  ", ""},
    {{0x0C46, 0x0C4C}, "  ", ""},
    {{0x0C56, 0x0C56}, "  ", ""},
    {{0x0F00, 0x0FFF}, " \u25CC ", ""},
    {{0x1031, 0x1031}, " \u25CC ", ""},
    {{0x103B, 0x103B}, " \u25CC ", ""},
    {{0x17BE, 0x17C0}, "  ", ""},
    {{0x17C4, 0x17C5}, "  ", ""},
};

bool isIn(const Range& range, int32_t character)
{
    return character >= range.first && character <= range.last;
}

bool standsBefore(int32_t mark)
{
    return std::any_of(std::begin(kBefore), std::end(kBefore),
                       [&](const Range& range) { return isIn(range, mark); });
}

const Name kNames[] = {{0x200B, "ZSP"}, {0x200C, "ZNJ"}, {0x200D, "ZWJ"}};

bool joinsConsonants(char32_t c)
{
    constexpr uint8_t kVirama = 9;
    return u_getCombiningClass(static_cast<UChar32>(c)) == kVirama;
}

// Vowel signs before the consonants that they follow.
std::string withVowelsInFront(const std::string& text)
{
    std::vector<char32_t> all = codePoints(text);
    for (size_t i = 1; i < all.size(); ++i) {
        if (!standsBefore(static_cast<int32_t>(all[i])))
            continue;
        size_t first = i - 1;
        while (first >= 2 && joinsConsonants(all[first - 1]))
            first -= 2;
        const auto at = [&](size_t n) { return all.begin() + static_cast<std::ptrdiff_t>(n); };
        std::rotate(at(first), at(i), at(i + 1));
    }
    std::string result;
    for (const char32_t c : all)
        result += fromCodePoint(c);
    return result;
}

// Arabic letters in the form that they have between others, and what runs from right to left
// reversed.
std::string withReversedRuns(const std::string& text)
{
    const icu::UnicodeString logical = icu::UnicodeString::fromUTF8(text);
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString shaped;
    u_shapeArabic(logical.getBuffer(), logical.length(), shaped.getBuffer(kMostUnits), kMostUnits,
                  U_SHAPE_LETTERS_SHAPE | U_SHAPE_LENGTH_FIXED_SPACES_NEAR, &status);
    shaped.releaseBuffer(logical.length());
    const std::unique_ptr<UBiDi, void (*)(UBiDi*)> lines(ubidi_open(), ubidi_close);
    ubidi_setPara(lines.get(), shaped.getBuffer(), shaped.length(), UBIDI_LTR, nullptr, &status);
    icu::UnicodeString visual;
    ubidi_writeReordered(lines.get(), visual.getBuffer(kMostUnits), kMostUnits,
                         UBIDI_KEEP_BASE_COMBINING, &status);
    visual.releaseBuffer(shaped.length());
    std::string result;
    return U_SUCCESS(status) ? visual.toUTF8String(result) : text;
}

} // namespace

std::string inVisualOrder(const std::string& text)
{
    return withReversedRuns(withVowelsInFront(text));
}

std::string labelFor(const std::string& typed)
{
    const int32_t character = singleCodePoint(typed);
    for (const Name& name : kNames)
        if (character == name.character)
            return name.label;
    if (!isMark(typed))
        return typed;
    for (const Frame& frame : kFrames)
        if (isIn(frame.marks, character))
            return frame.before + typed + frame.after;
    return standsBefore(character) ? typed + kCircle : kCircle + typed;
}

} // namespace layouts
