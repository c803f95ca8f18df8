// Scripts whose characters are put together from several keys: every one of them.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include <gmock/gmock.h>
#include <uniname.h>

#include "process.h"
#include "text.h"
#include "text_field.h"

namespace input_methods_test
{

using input_methods::InputMethod;
using input_methods::InputMethods;
using input_methods::utf8;

namespace
{

// The tables of the scripts that are typed by Unicode's names.
TEST(SpellingTables, AreAsTheyAreMade)
{
    namespace fs = std::filesystem;
    std::string folder = testing::TempDir() + "spelling-tables-XXXXXX";
    ASSERT_NE(::mkdtemp(&folder[0]), nullptr);
    test_process::Command command;
    command.words = {MAKE_SPELLING_TABLES, folder};
    EXPECT_EQ(test_process::run(command).exitStatus, 0);
    size_t tables = 0;
    for (const fs::directory_entry& made : fs::directory_iterator(folder)) {
        ++tables;
        const auto text = [](const fs::path& path) {
            std::ostringstream all;
            all << std::ifstream(path).rdbuf();
            return all.str();
        };
        EXPECT_EQ(text(made.path()), text(fs::path(DATA_FOLDER) / made.path().filename()))
            << "update them with: make_spelling_tables resources/input_methods";
    }
    EXPECT_EQ(tables, 3u);
    fs::remove_all(folder);
}

class Composing : public testing::Test
{
protected:
    // What stands in the field when these keys were typed and the field is left.
    std::string typed(const std::string& layout, const std::string& keys)
    {
        InputMethod* method = find(*m_methods, layout);
        if (method == nullptr)
            return "";
        TextField field(*method);
        for (const std::string& key : characters(keys)) {
            field.type(key);
            EXPECT_EQ(field.fault(), "") << layout << ": " << keys;
        }
        field.finish();
        return field.text();
    }

private:
    std::vector<std::string> m_lines;
    std::unique_ptr<InputMethods> m_methods = shipped(m_lines);
};

using HangulSyllables = Composing;

const char* const kInitials[] = {"ㄱ", "ㄲ", "ㄴ", "ㄷ", "ㄸ", "ㄹ", "ㅁ", "ㅂ", "ㅃ", "ㅅ",
                                 "ㅆ", "ㅇ", "ㅈ", "ㅉ", "ㅊ", "ㅋ", "ㅌ", "ㅍ", "ㅎ"};
const char* const kVowels[] = {"ㅏ",   "ㅐ",   "ㅑ",   "ㅒ",   "ㅓ",   "ㅔ",   "ㅕ",
                               "ㅖ",   "ㅗ",   "ㅗㅏ", "ㅗㅐ", "ㅗㅣ", "ㅛ",   "ㅜ",
                               "ㅜㅓ", "ㅜㅔ", "ㅜㅣ", "ㅠ",   "ㅡ",   "ㅡㅣ", "ㅣ"};
const char* const kFinals[] = {"",     "ㄱ",   "ㄲ",   "ㄱㅅ", "ㄴ",   "ㄴㅈ", "ㄴㅎ",
                               "ㄷ",   "ㄹ",   "ㄹㄱ", "ㄹㅁ", "ㄹㅂ", "ㄹㅅ", "ㄹㅌ",
                               "ㄹㅍ", "ㄹㅎ", "ㅁ",   "ㅂ",   "ㅂㅅ", "ㅅ",   "ㅆ",
                               "ㅇ",   "ㅈ",   "ㅊ",   "ㅋ",   "ㅌ",   "ㅍ",   "ㅎ"};

TEST_F(HangulSyllables, AreAllTyped)
{
    uint32_t syllable = 0xAC00;
    for (const char* initial : kInitials)
        for (const char* vowel : kVowels)
            for (const char* last : kFinals) {
                const std::string keys = std::string(initial) + vowel + last;
                ASSERT_EQ(typed("Korean", keys), utf8(syllable)) << keys;
                ++syllable;
            }
    EXPECT_EQ(syllable, 0xD7A4u);
}

TEST_F(HangulSyllables, ShortenJamoByJamo)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    InputMethod* method = find(*methods, "Korean");
    ASSERT_NE(method, nullptr);
    TextField field(*method);
    EXPECT_EQ(field.type("ㄱㅏㅂㅅ").preedit, "값");
    for (const char* rest : {"갑", "가", "ㄱ", ""}) {
        EXPECT_TRUE(field.press(kBack).used);
        EXPECT_EQ(field.last().preedit, rest);
    }
    EXPECT_FALSE(field.press(kBack).used);
}

TEST_F(HangulSyllables, GoOnWithTheNext)
{
    EXPECT_EQ(typed("Korean", "ㅎㅏㄴㄱㅡㄹ"), "한글");
    EXPECT_EQ(typed("Korean", "ㅇㅏㄴㄴㅕㅇㅎㅏㅅㅔㅇㅛ!"), "안녕하세요!");
    EXPECT_EQ(typed("Korean", "ㄱㅏㅂㅅㅣ a1"), "갑시 a1");
}

struct Range {
    uint32_t first;
    uint32_t last;
};

// The letters of the locale data (CLDR 72), which no package for ARM brings along.
const Range kAmharic[] = {{0x1200, 0x1206}, {0x1208, 0x1246}, {0x1248, 0x1248}, {0x124A, 0x124D},
                          {0x1260, 0x1286}, {0x1288, 0x1288}, {0x128A, 0x128D}, {0x1290, 0x12AE},
                          {0x12B0, 0x12B0}, {0x12B2, 0x12B5}, {0x12B8, 0x12BE}, {0x12C8, 0x12CE},
                          {0x12D0, 0x12D6}, {0x12D8, 0x12EE}, {0x12F0, 0x12F7}, {0x1300, 0x130E},
                          {0x1310, 0x1310}, {0x1312, 0x1315}, {0x1320, 0x1346}, {0x1348, 0x1357}};
const Range kTigrinya[] = {
    {0x1200, 0x1206}, {0x1208, 0x1246}, {0x1248, 0x1248}, {0x124A, 0x124D}, {0x1250, 0x1256},
    {0x1258, 0x1258}, {0x125A, 0x125D}, {0x1260, 0x1286}, {0x1288, 0x1288}, {0x128A, 0x128D},
    {0x1290, 0x12AE}, {0x12B0, 0x12B0}, {0x12B2, 0x12B5}, {0x12B8, 0x12BE}, {0x12C0, 0x12C0},
    {0x12C2, 0x12C5}, {0x12C8, 0x12CE}, {0x12D0, 0x12D6}, {0x12D8, 0x12EE}, {0x12F0, 0x12F7},
    {0x1300, 0x130E}, {0x1310, 0x1310}, {0x1312, 0x1315}, {0x1320, 0x1357}, {0x135F, 0x135F}};

// What a table file says is typed for each character, as ("keys" ?c).
std::map<std::string, std::string> keysOfTable(const std::string& file)
{
    std::map<std::string, std::string> keys;
    std::ifstream stream(file);
    const std::regex entry("^\\s*\\(\"([^\"]+)\" \\?([^)]+)\\)");
    std::string line;
    std::smatch match;
    while (std::getline(stream, line))
        if (std::regex_search(line, match, entry))
            keys[match[2]] = match[1];
    return keys;
}

template <size_t size> std::vector<uint32_t> lettersOf(const Range (&ranges)[size])
{
    std::vector<uint32_t> found;
    for (const Range& range : ranges)
        for (uint32_t letter = range.first; letter <= range.last; ++letter)
            found.push_back(letter);
    return found;
}

class EthiopicLetters : public Composing
{
protected:
    void expectAll(const std::string& layout, const std::vector<uint32_t>& letters)
    {
        std::map<std::string, std::string> keys = keysOfTable("/usr/share/m17n/am-sera.mim");
        if (layout == "Tigrinya")
            for (const auto& entry : keysOfTable(DATA_FOLDER "/ti-sera.mim"))
                keys[entry.first] = entry.second;
        for (const uint32_t letter : letters)
            EXPECT_EQ(typed(layout, keys[utf8(letter)]), utf8(letter)) << keys[utf8(letter)];
    }
};

TEST_F(EthiopicLetters, AreAllTypedInAmharic)
{
    const std::vector<uint32_t> letters = lettersOf(kAmharic);
    EXPECT_EQ(letters.size(), 282u);
    expectAll("Amharic", letters);
}

TEST_F(EthiopicLetters, AreAllTypedInTigrinya)
{
    const std::vector<uint32_t> letters = lettersOf(kTigrinya);
    EXPECT_EQ(letters.size(), 301u);
    expectAll("Tigrinya", letters);
}

TEST_F(EthiopicLetters, MakeWords)
{
    EXPECT_EQ(typed("Amharic", "selam"), "ሰላም");
    EXPECT_EQ(typed("Tigrinya", "selam"), "ሰላም");
}

std::string nameOf(uint32_t character)
{
    char name[UNINAME_MAX];
    return unicode_character_name(character, name) == nullptr ? "" : name;
}

std::string inSmallLetters(std::string text)
{
    for (char& letter : text)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return text;
}

// The characters of these ranges whose name is the prefix and one word, typed with that word.
int typeByName(const std::function<std::string(const std::string&)>& type, Range range,
               const std::string& prefix, bool isCapital)
{
    int count = 0;
    for (uint32_t character = range.first; character <= range.last; ++character) {
        const std::string name = nameOf(character);
        if (name.compare(0, prefix.size(), prefix) != 0 ||
            name.find(' ', prefix.size()) != std::string::npos)
            continue;
        std::string keys = inSmallLetters(name.substr(prefix.size()));
        if (isCapital)
            keys[0] = static_cast<char>(keys[0] - 'a' + 'A');
        EXPECT_EQ(type(keys), utf8(character)) << name;
        ++count;
    }
    return count;
}

using NamedSyllables = Composing;

TEST_F(NamedSyllables, AreAllTypedInYi)
{
    const auto type = [this](const std::string& keys) { return typed("Yi", keys); };
    EXPECT_EQ(typeByName(type, {0xA000, 0xA48C}, "YI SYLLABLE ", false), 1165);
}

TEST_F(NamedSyllables, AreAllTypedInVai)
{
    const auto type = [this](const std::string& keys) {
        return typed("Vai", keys == "lengthener" ? "-" : keys);
    };
    EXPECT_EQ(typeByName(type, {0xA500, 0xA60C}, "VAI SYLLABLE ", false), 269);
    EXPECT_EQ(typeByName(type, {0xA610, 0xA62B}, "VAI SYLLABLE NDOLE ", true), 5);
}

TEST_F(NamedSyllables, AreAllTypedInCherokee)
{
    const auto type = [this](const std::string& keys) { return typed("Cherokee", keys); };
    EXPECT_EQ(typeByName(type, {0x13A0, 0x13F5}, "CHEROKEE LETTER ", false), 86);
    EXPECT_EQ(typeByName(type, {0x13F8, 0x13FD}, "CHEROKEE SMALL LETTER ", true), 6);
    EXPECT_EQ(typeByName(type, {0xAB70, 0xABBF}, "CHEROKEE SMALL LETTER ", true), 80);
}

TEST_F(NamedSyllables, EndAtAnApostrophe)
{
    EXPECT_EQ(typed("Vai", "hana"), "ꕍꕉ");
    EXPECT_EQ(typed("Vai", "ha'na"), "ꕌꕯ");
    EXPECT_EQ(typed("Yi", "nuo'su bbur'ma"), "ꆈꌠ ꁱꂷ");
}

struct Vowel {
    const char* keys;
    const char* tones; // plain, acute, grave, hook, tilde, dot
};

const Vowel kVietnameseVowels[] = {
    {"a", "aáàảãạ"},  {"aw", "ăắằẳẵặ"}, {"aa", "âấầẩẫậ"}, {"e", "eéèẻẽẹ"},  {"ee", "êếềểễệ"},
    {"i", "iíìỉĩị"},  {"o", "oóòỏõọ"},  {"oo", "ôốồổỗộ"}, {"ow", "ơớờởỡợ"}, {"u", "uúùủũụ"},
    {"uw", "ưứừửữự"}, {"y", "yýỳỷỹỵ"},  {"A", "AÁÀẢÃẠ"},  {"AW", "ĂẮẰẲẴẶ"}, {"AA", "ÂẤẦẨẪẬ"},
    {"E", "EÉÈẺẼẸ"},  {"EE", "ÊẾỀỂỄỆ"}, {"I", "IÍÌỈĨỊ"},  {"O", "OÓÒỎÕỌ"},  {"OO", "ÔỐỒỔỖỘ"},
    {"OW", "ƠỚỜỞỠỢ"}, {"U", "UÚÙỦŨỤ"},  {"UW", "ƯỨỪỬỮỰ"}, {"Y", "YÝỲỶỸỴ"}};

const char* const kTelexTones[] = {"", "s", "f", "r", "x", "j"};
const char* const kMarkTones[] = {"", "\u0301", "\u0300", "\u0309", "\u0303", "\u0323"};

using VietnameseLetters = Composing;

TEST_F(VietnameseLetters, AreAllTypedInTelex)
{
    for (const Vowel& vowel : kVietnameseVowels) {
        const std::vector<std::string> toned = characters(vowel.tones);
        for (size_t tone = 0; tone < toned.size(); ++tone)
            EXPECT_EQ(typed("Vietnamese_Telex", std::string(vowel.keys) + kTelexTones[tone]),
                      toned[tone]);
    }
    EXPECT_EQ(typed("Vietnamese_Telex", "dd"), "đ");
    EXPECT_EQ(typed("Vietnamese_Telex", "DD"), "Đ");
    EXPECT_EQ(typed("Vietnamese_Telex", "tieengs Vieetj, dduwowngf"), "tiếng Việt, đường");
}

TEST_F(VietnameseLetters, BecomeOneCharacterWithTheirMark)
{
    for (const Vowel& vowel : kVietnameseVowels) {
        const std::vector<std::string> toned = characters(vowel.tones);
        for (size_t tone = 0; tone < toned.size(); ++tone)
            EXPECT_EQ(typed("Vietnamese", toned[0] + kMarkTones[tone]), toned[tone]);
    }
    EXPECT_EQ(typed("Vietnamese", "x\u0301"), "x\u0301"); // there is no such character
}

// The character before the caret is known only as long as nothing came between.
TEST_F(VietnameseLetters, TakeNoMarkAfterTheCaretMoved)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    InputMethod* method = find(*methods, "Vietnamese");
    ASSERT_NE(method, nullptr);
    for (const int code : {kLeft, kRight, kBack, kDel, kEnter}) {
        TextField field(*method);
        field.type("a");
        EXPECT_FALSE(field.press(code).used);
        field.type("\u0301");
        EXPECT_EQ(field.last().takeBack, 0) << code;
    }
}

TEST_F(VietnameseLetters, StayTheirKeysOwnWithoutAMark)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    InputMethod* method = find(*methods, "Vietnamese");
    ASSERT_NE(method, nullptr);
    EXPECT_FALSE(method->isUsed("a"));
    const input_methods::Answer answer = method->feed(keyWithText("a"));
    EXPECT_FALSE(answer.used);
    EXPECT_EQ(answer.commit, "");
}

class Spellings : public Composing
{
protected:
    // Each of these, by what the layout's input method says of its keys.
    int typeAll(const std::string& layout, const std::vector<uint32_t>& wanted)
    {
        std::vector<std::string> lines;
        const std::unique_ptr<InputMethods> methods = shipped(lines);
        InputMethod* method = find(*methods, layout);
        if (method == nullptr)
            return 0;
        int count = 0;
        for (const uint32_t character : wanted) {
            const std::string keys = method->spell(utf8(character));
            count += !keys.empty() && typed(layout, keys) == utf8(character) ? 1 : 0;
        }
        return count;
    }
};

TEST_F(Spellings, TypeEverySyllable)
{
    const Range hangul[] = {{0xAC00, 0xD7A3}};
    EXPECT_EQ(typeAll("Korean", lettersOf(hangul)), 11172);
    EXPECT_EQ(typeAll("Amharic", lettersOf(kAmharic)), 282);
    EXPECT_EQ(typeAll("Tigrinya", lettersOf(kTigrinya)), 301);
    const Range yi[] = {{0xA000, 0xA48C}};
    EXPECT_EQ(typeAll("Yi", lettersOf(yi)), 1165);
    const Range cherokee[] = {{0x13A0, 0x13F5}};
    EXPECT_EQ(typeAll("Cherokee", lettersOf(cherokee)), 86);
    const Range vai[] = {{0xA500, 0xA60B}};
    EXPECT_EQ(typeAll("Vai", lettersOf(vai)), 268);
}

TEST_F(Spellings, TypeVietnameseInTelex)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    InputMethod* method = find(*methods, "Vietnamese_Telex");
    ASSERT_NE(method, nullptr);
    for (const Vowel& vowel : kVietnameseVowels)
        for (const std::string& letter : characters(vowel.tones))
            EXPECT_EQ(typed("Vietnamese_Telex", method->spell(letter)), letter);
    EXPECT_EQ(typed("Vietnamese_Telex", method->spell("đường")), "đường");
}

TEST_F(Spellings, AreNoneWhereTheLanguageHasNone)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    EXPECT_EQ(find(*methods, "Korean")->spell("漢"), "");
    EXPECT_EQ(find(*methods, "Korean")->spell("한漢"), "");
    EXPECT_EQ(find(*methods, "Amharic")->spell("한"), "");
}

// The packaged library's own way to begin anew writes to freed memory.
TEST_F(Composing, BeginsAnewAfterEachSign)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    InputMethod* method = find(*methods, "Amharic");
    ASSERT_NE(method, nullptr);
    for (char sign = '!'; sign <= '~'; ++sign) {
        method->feed(keyWithText(std::string(1, sign)));
        method->reset();
    }
    EXPECT_EQ(typed("Amharic", "selam"), "ሰላም");
}

struct Spelled {
    const char* layout;
    const char* keys; // each takes one Back
};

const Spelled kSpelled[] = {
    {"Amharic", "hWa"}, {"Cherokee", "nah"}, {"Korean", "ㄱㅏㅂㅅ"},          {"Tigrinya", "qWe"},
    {"Vai", "leng"},    {"Yi", "zzyr"},      {"Vietnamese_Telex", "tieengs"},
};

using Back = Composing;

// What a key did, one Back takes back; the text before it is never touched.
TEST_F(Back, UndoesKeyByKey)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    for (const Spelled& spelled : kSpelled) {
        InputMethod* method = find(*methods, spelled.layout);
        ASSERT_NE(method, nullptr);
        TextField field(*method);
        field.type("1");
        std::vector<std::string> preedits = {""};
        for (const std::string& key : characters(spelled.keys))
            preedits.push_back(field.type(key).preedit);
        const std::string before = field.text();
        while (!preedits.back().empty()) {
            EXPECT_EQ(field.last().preedit, preedits.back()) << spelled.layout;
            preedits.pop_back();
            EXPECT_TRUE(field.press(kBack).used) << spelled.layout;
            EXPECT_EQ(field.text(), before) << spelled.layout;
            if (!field.last().preedit.empty())
                continue;
            break; // what came before is committed
        }
        EXPECT_FALSE(field.press(kBack).used) << spelled.layout;
    }
}

} // namespace

} // namespace input_methods_test
