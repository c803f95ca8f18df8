// Every look of the candidate bar, pixel by pixel.
#include <gtest/gtest.h>

#include "candidate_bar.h"
#include "screen.h"
#include "test_picture.h"

namespace
{

using host::CandidateBar;
using input_methods::Answer;
using test_support::Picture;

const int kWidth = 1302;

const host::Screen& screen()
{
    static const host::Screen::Option kOptions[] = {
        {"system", "dummy"},    {"mode", "1920x1080"},      {"quiet", nullptr},
        {"no-cursor", nullptr}, {"no-sighandler", nullptr}, {"no-deinit-check", nullptr},
        {nullptr, nullptr},
    };
    static host::Screen opened(kOptions);
    return opened;
}

Picture shown()
{
    const host::Picture seen =
        screen().picture({600, 600 - CandidateBar::kHeight, kWidth, CandidateBar::kHeight});
    Picture picture = {seen.width, seen.height, {}};
    for (size_t i = 0; i < seen.rgba.size(); i += 4)
        picture.pixels.push_back(uint32_t(0xFF000000) | uint32_t(seen.rgba[i]) << 16 |
                                 uint32_t(seen.rgba[i + 1]) << 8 | seen.rgba[i + 2]);
    return picture;
}

class Bar : public testing::Test
{
protected:
    void show(const Answer& answer, int focus = CandidateBar::kNoFocus)
    {
        m_bar.show(answer, focus);
    }

    static Answer answer(std::vector<std::string> candidates)
    {
        Answer answer;
        answer.preedit = "ni hao";
        answer.candidates = std::move(candidates);
        return answer;
    }

    CandidateBar m_bar{screen(), VKB_BAR_FONT, kWidth};
};

TEST_F(Bar, NumbersTheCandidates)
{
    show(answer({"你好", "妳好", "逆号"}));
    EXPECT_PICTURE("candidates", shown());
}

TEST_F(Bar, FramesTheFocus)
{
    show(answer({"你好", "妳好", "逆号"}), 1);
    EXPECT_PICTURE("focus", shown());
}

// As wide as a page can be: nine candidates with thirty letters between them, and both arrows.
TEST_F(Bar, HoldsAFullPageBetweenItsArrows)
{
    Answer full = answer(std::vector<std::string>(9, "國國國"));
    for (size_t i = 0; i < 3; ++i)
        full.candidates[i] = "國國國國";
    full.preedit = std::string(40, 'w');
    full.hasPrevious = full.hasNext = true;
    show(full, 8);
    EXPECT_PICTURE("full", shown());
}

TEST_F(Bar, CutsACandidateThatIsTooLong)
{
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "長";
    Answer cut = answer({text});
    cut.hasNext = true;
    show(cut);
    EXPECT_PICTURE("cut", shown());
}

TEST_F(Bar, IsGoneWhenItIsHidden)
{
    const Picture before = shown();
    show(answer({"你好"}));
    EXPECT_TRUE(m_bar.isShown());
    EXPECT_FALSE(shown() == before);
    m_bar.hide();
    EXPECT_FALSE(m_bar.isShown());
    EXPECT_TRUE(shown() == before);
}

} // namespace
