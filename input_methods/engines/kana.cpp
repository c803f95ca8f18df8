// Latin letters to hiragana, after the Hepburn and the Kunrei way of spelling.
#include "kana.h"

#include <algorithm>
#include <iterator>

#include "text.h"

namespace input_methods
{

namespace
{

// A row of consonants with the five vowels a, i, u, e, o; "" where there is none.
struct Row {
    const char* letters;
    const char* kana[5];
};

const char kVowels[] = "aiueo";

const Row kRows[] = {
    {"", {"あ", "い", "う", "え", "お"}},
    {"b", {"ば", "び", "ぶ", "べ", "ぼ"}},
    {"by", {"びゃ", "びぃ", "びゅ", "びぇ", "びょ"}},
    {"ch", {"ちゃ", "ち", "ちゅ", "ちぇ", "ちょ"}},
    {"cy", {"ちゃ", "ちぃ", "ちゅ", "ちぇ", "ちょ"}},
    {"d", {"だ", "ぢ", "づ", "で", "ど"}},
    {"dh", {"でゃ", "でぃ", "でゅ", "でぇ", "でょ"}},
    {"dw", {"どぁ", "どぃ", "どぅ", "どぇ", "どぉ"}},
    {"dy", {"ぢゃ", "ぢぃ", "ぢゅ", "ぢぇ", "ぢょ"}},
    {"f", {"ふぁ", "ふぃ", "ふ", "ふぇ", "ふぉ"}},
    {"fy", {"ふゃ", "ふぃ", "ふゅ", "ふぇ", "ふょ"}},
    {"g", {"が", "ぎ", "ぐ", "げ", "ご"}},
    {"gw", {"ぐぁ", "ぐぃ", "ぐぅ", "ぐぇ", "ぐぉ"}},
    {"gy", {"ぎゃ", "ぎぃ", "ぎゅ", "ぎぇ", "ぎょ"}},
    {"h", {"は", "ひ", "ふ", "へ", "ほ"}},
    {"hy", {"ひゃ", "ひぃ", "ひゅ", "ひぇ", "ひょ"}},
    {"j", {"じゃ", "じ", "じゅ", "じぇ", "じょ"}},
    {"jy", {"じゃ", "じぃ", "じゅ", "じぇ", "じょ"}},
    {"k", {"か", "き", "く", "け", "こ"}},
    {"kw", {"くぁ", "くぃ", "くぅ", "くぇ", "くぉ"}},
    {"ky", {"きゃ", "きぃ", "きゅ", "きぇ", "きょ"}},
    {"l", {"ぁ", "ぃ", "ぅ", "ぇ", "ぉ"}},
    {"lt", {"", "", "っ", "", ""}},
    {"ltsu", {"", "", "っ", "", ""}},
    {"lw", {"ゎ", "", "", "", ""}},
    {"ly", {"ゃ", "ぃ", "ゅ", "ぇ", "ょ"}},
    {"m", {"ま", "み", "む", "め", "も"}},
    {"my", {"みゃ", "みぃ", "みゅ", "みぇ", "みょ"}},
    {"n", {"な", "に", "ぬ", "ね", "の"}},
    {"ny", {"にゃ", "にぃ", "にゅ", "にぇ", "にょ"}},
    {"p", {"ぱ", "ぴ", "ぷ", "ぺ", "ぽ"}},
    {"py", {"ぴゃ", "ぴぃ", "ぴゅ", "ぴぇ", "ぴょ"}},
    {"q", {"くぁ", "くぃ", "く", "くぇ", "くぉ"}},
    {"r", {"ら", "り", "る", "れ", "ろ"}},
    {"ry", {"りゃ", "りぃ", "りゅ", "りぇ", "りょ"}},
    {"s", {"さ", "し", "す", "せ", "そ"}},
    {"sh", {"しゃ", "し", "しゅ", "しぇ", "しょ"}},
    {"sy", {"しゃ", "しぃ", "しゅ", "しぇ", "しょ"}},
    {"t", {"た", "ち", "つ", "て", "と"}},
    {"th", {"てゃ", "てぃ", "てゅ", "てぇ", "てょ"}},
    {"ts", {"つぁ", "つぃ", "つ", "つぇ", "つぉ"}},
    {"tw", {"とぁ", "とぃ", "とぅ", "とぇ", "とぉ"}},
    {"ty", {"ちゃ", "ちぃ", "ちゅ", "ちぇ", "ちょ"}},
    {"v", {"ゔぁ", "ゔぃ", "ゔ", "ゔぇ", "ゔぉ"}},
    {"w", {"わ", "うぃ", "う", "うぇ", "を"}},
    {"wh", {"うぁ", "うぃ", "う", "うぇ", "うぉ"}},
    {"wy", {"", "ゐ", "", "ゑ", ""}},
    {"x", {"ぁ", "ぃ", "ぅ", "ぇ", "ぉ"}},
    {"xk", {"ゕ", "", "", "ゖ", ""}},
    {"xt", {"", "", "っ", "", ""}},
    {"xw", {"ゎ", "", "", "", ""}},
    {"xy", {"ゃ", "ぃ", "ゅ", "ぇ", "ょ"}},
    {"y", {"や", "い", "ゆ", "いぇ", "よ"}},
    {"z", {"ざ", "じ", "ず", "ぜ", "ぞ"}},
    {"zy", {"じゃ", "じぃ", "じゅ", "じぇ", "じょ"}},
};

struct Sign {
    char letter;
    const char* kana;
};

const Sign kSigns[] = {{'-', "ー"}, {',', "、"}, {'.', "。"},
                       {'[', "「"}, {']', "」"}, {'/', "・"}};

struct VoiceMark {
    const char* key;
    uint32_t combining;
};

const VoiceMark kVoiceMarks[] = {{"゛", 0x3099}, {"゜", 0x309A}};

const uint32_t kFirstHiragana = 0x3041;
const uint32_t kLastHiragana = 0x3096;
const uint32_t kToKatakana = 0x60; // between a hiragana and its katakana
const char kN[] = "ん";
const char kSmallTsu[] = "っ";

bool beginsRow(const std::string& letters)
{
    return std::any_of(std::begin(kRows), std::end(kRows), [&](const Row& row) {
        return std::string(row.letters).compare(0, letters.size(), letters) == 0;
    });
}

// Empty when the letters are none of the table's.
std::string kanaOf(const std::string& letters, size_t vowel)
{
    for (const Row& row : kRows)
        if (letters == row.letters)
            return row.kana[vowel];
    return "";
}

const char* signOf(char letter)
{
    for (const Sign& sign : kSigns)
        if (sign.letter == letter)
            return sign.kana;
    return nullptr;
}

// Of a katakana; every other character is its own.
uint32_t hiragana(uint32_t code)
{
    const bool isKatakana =
        code >= kFirstHiragana + kToKatakana && code <= kLastHiragana + kToKatakana;
    return isKatakana ? code - kToKatakana : code;
}

} // namespace

bool Kana::typeRomaji(const std::string& letter)
{
    if (letter.size() != 1)
        return false;
    const char* sign = signOf(letter[0]);
    if (sign != nullptr) {
        m_kana = kana() + rest() + sign;
        m_pending.clear();
        return true;
    }
    if (letter == "'" && (m_pending == "n" || m_pending == "nn")) {
        m_kana += kN;
        m_pending.clear();
        return true;
    }
    const size_t vowel = std::string(kVowels).find(letter);
    if (vowel == std::string::npos && !(letter >= "a" && letter <= "z"))
        return false;

    // Of "nn" the second n may begin a syllable: "konna" has one, "honn" has none.
    const bool goesOn = vowel != std::string::npos || letter == "y";
    if (m_pending == "nn") {
        m_kana += kN;
        m_pending = goesOn ? "n" : "";
    } else if (m_pending == "n" && !goesOn && letter != "n") {
        m_kana += kN;
        m_pending.clear();
    }
    if (vowel != std::string::npos) {
        const std::string kana = kanaOf(m_pending, vowel);
        m_kana += kana.empty() ? m_pending + kanaOf("", vowel) : kana;
        m_pending.clear();
        return true;
    }
    if (m_pending == letter && letter != "n") {
        m_kana += kSmallTsu;
        return true;
    }
    if (letter != "n" || m_pending != "n") {
        if (!m_pending.empty() && !beginsRow(m_pending + letter)) {
            m_kana += m_pending;
            m_pending.clear();
        }
    }
    m_pending += letter;
    return true;
}

bool Kana::typeKana(const std::string& kana)
{
    for (const VoiceMark& mark : kVoiceMarks) {
        if (kana != mark.key)
            continue;
        const size_t last = lastLetterBytes(m_kana);
        const std::string voiced =
            composed(m_kana.substr(m_kana.size() - last) + utf8(mark.combining));
        if (last == 0 || letters(voiced) != 1)
            break;
        m_kana.replace(m_kana.size() - last, last, voiced);
        return true;
    }
    const uint32_t code = hiragana(firstLetter(kana));
    const bool isKana = (code >= 0x3041 && code <= 0x309F) || code == 0x30FC ||
                        (code >= 0x3001 && code <= 0x3002) || (code >= 0x300C && code <= 0x300D) ||
                        code == 0x30FB;
    if (isKana)
        m_kana += utf8(code);
    return isKana;
}

bool Kana::erase()
{
    std::string& text = m_pending.empty() ? m_kana : m_pending;
    const size_t last = lastLetterBytes(text);
    text.resize(text.size() - last);
    return last > 0;
}

std::string Kana::shown() const
{
    return m_pending == "nn" ? m_kana + kN : m_kana + m_pending;
}

std::string Kana::kana() const
{
    const bool isN = m_pending == "n" || m_pending == "nn";
    return isN ? m_kana + kN : m_kana;
}

std::string Kana::rest() const
{
    return kana().size() == m_kana.size() ? m_pending : "";
}

// An n that is not dropped may still become another kana.
void Kana::drop(size_t count)
{
    const size_t typed = letters(m_kana);
    if (count > typed)
        m_pending = rest();
    for (size_t i = 0; i < std::min(count, typed); ++i)
        m_kana.erase(0, firstLetterBytes(m_kana));
}

void Kana::clear()
{
    m_kana.clear();
    m_pending.clear();
}

std::string katakana(const std::string& hiragana)
{
    std::string text;
    for (const char32_t code : characters(hiragana)) {
        const bool isHiragana = code >= kFirstHiragana && code <= kLastHiragana;
        text += utf8(isHiragana ? code + kToKatakana : code);
    }
    return text;
}

} // namespace input_methods
