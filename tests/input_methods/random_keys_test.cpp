// Keys in no order, for as long as VKB_SOAK_STEPS says: nothing breaks, is lost or gets stuck.
#include <cstdlib>
#include <random>

#include <gtest/gtest.h>

#include "text.h"
#include "text_field.h"

namespace input_methods_test
{

using input_methods::InputMethod;
using input_methods::InputMethods;

namespace
{

struct Keys {
    const char* layout;
    const char* letters;
};

std::ostream& operator<<(std::ostream& stream, const Keys& keys)
{
    return stream << keys.layout;
}

std::string nameOfTest(const testing::TestParamInfo<Keys>& tested)
{
    return tested.param.layout;
}

const char kLatin[] = "abcdefghijklmnopqrstuvwxyz'-`ABSWZ. 12357é中";

const Keys kKeys[] = {
    {"Amharic", kLatin},
    {"Cantonese", kLatin},
    {"Cherokee", kLatin},
    {"Chinese_Pinyin", kLatin},
    {"Chinese_Traditional_Pinyin", kLatin},
    {"Chinese_Zhuyin",
     "ㄅㄆㄇㄈㄉㄊㄋㄌㄍㄎㄏㄐㄑㄒㄓㄔㄕㄖㄗㄘㄙㄧㄨㄩㄚㄛㄜㄝㄞㄟㄠㄡㄢㄣㄤㄥㄦˊˇˋ˙ 123a"},
    {"Japanese", kLatin},
    {"Japanese_Kana",
     "あいうえおかきくけこさしすせそたちつてとはひふへほん゛゜ーゃゅょっ。、 123a"},
    {"Korean", "ㄱㄲㄴㄷㄸㄹㅁㅂㅃㅅㅆㅇㅈㅉㅊㅋㅌㅍㅎㅏㅐㅑㅒㅓㅔㅕㅖㅗㅛㅜㅠㅡㅣ a1."},
    {"Tigrinya", kLatin},
    {"Vai", kLatin},
    {"Vietnamese", "aăâeêioôơuưy\u0301\u0300\u0309\u0303\u0323 b"},
    {"Vietnamese_Telex", kLatin},
    {"Yi", kLatin},
};

const int kControlKeys[] = {kBack, kBack, kTab, kClearAll, kEnter, kLeft, kRight, kRight, kDel};

int steps()
{
    const int kTenth = 10; // a dictionary takes longer than the keyboard for a key
    const char* given = std::getenv("VKB_SOAK_STEPS");
    return given == nullptr ? 3000 : std::max(1000, std::atoi(given) / kTenth);
}

class SoakInputMethod : public testing::TestWithParam<Keys>
{
protected:
    void step(TextField& field)
    {
        const int kind = pick(20);
        if (kind < 12)
            field.type(m_letters[static_cast<size_t>(pick(static_cast<int>(m_letters.size())))]);
        else if (kind < 16)
            field.press(kControlKeys[pick(std::size(kControlKeys))]);
        else if (kind < 17)
            field.choose(pick(11));
        else if (kind < 18)
            field.page(pick(2) == 0 ? -1 : 1);
        else if (kind < 19)
            m_finished = finish(field);
        else if (pick(10) == 0)
            field.reset();
    }

    int pick(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

    // What was composed is in the field afterwards, and nothing is composed any more.
    static bool finish(TextField& field)
    {
        const bool isComposing = !field.last().preedit.empty();
        const size_t before = field.text().size();
        field.finish();
        return field.last().preedit.empty() && (!isComposing || field.text().size() > before);
    }

    std::mt19937 m_random{20240229};
    std::vector<std::string> m_letters = characters(GetParam().letters);
    bool m_finished = true;
};

TEST_P(SoakInputMethod, StaysSound)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    InputMethod* method = find(*methods, GetParam().layout);
    ASSERT_NE(method, nullptr);
    TextField field(*method);
    const size_t most = input_methods::kMaxPreedit + 3;
    for (int i = 0; i < steps(); ++i) {
        step(field);
        ASSERT_EQ(field.fault(), "") << "step " << i;
        ASSERT_TRUE(m_finished) << "step " << i << ": " << field.text();
        ASSERT_LE(input_methods::letters(field.last().preedit), most) << "step " << i;
        if (i % 50 == 0)
            field.clear();
    }
    for (size_t i = 0; i < most && !field.last().preedit.empty(); ++i)
        EXPECT_TRUE(field.press(kBack).used);
    EXPECT_EQ(field.last().preedit, "");
}

INSTANTIATE_TEST_SUITE_P(, SoakInputMethod, testing::ValuesIn(kKeys), nameOfTest);

} // namespace

} // namespace input_methods_test
