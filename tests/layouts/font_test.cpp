#include <algorithm>
#include <set>

#include <directfb.h>
#include <gtest/gtest.h>

#include "font.h"
#include "font_files.h"
#include "shipped.h"
#include "text.h"

using namespace layouts;

namespace
{

std::set<std::string> fontsOfTheTable()
{
    std::set<std::string> fonts;
    for (const Language& language : languages())
        fonts.insert(language.font);
    return fonts;
}

std::set<std::string> labelsDrawnWith(const std::string& font)
{
    std::set<std::string> labels;
    for (const Language& language : languages()) {
        if (language.font != font)
            continue;
        const KeyMap keyMap = shippedKeyMap(language.name);
        for (const Face& face : kFaces)
            for (const Key& key : keysOf(keyMap, face))
                labels.insert(legendOf(key, face).text);
    }
    return labels;
}

// U+02CA is named there and blank.
TEST(FontFile, AGlyphWithoutInkIsNone)
{
    const Font font(findFontFile("wqy-microhei.ttc"));
    EXPECT_TRUE(font.hasGlyph(U'ㄅ'));
    EXPECT_TRUE(font.hasGlyph(U' '));
    EXPECT_FALSE(font.hasGlyph(U'ˊ'));
    EXPECT_FALSE(font.hasGlyph(U'ꀀ'));
}

// So nobody could tell their keys apart, and the plain one stands for all.
TEST(FontFiles, DrawTheHyphensOfTypesettingAsThePlainOne)
{
    for (const Language& language : languages()) {
        if (punctuationOf(language).empty())
            continue;
        const Font font(findFontFile(language.font));
        const Font::Extent plain = font.measure("-");
        for (const char* hyphen : {"\u2010", "\u2011"}) {
            const Font::Extent extent = font.measure(hyphen);
            EXPECT_EQ(extent.advance, plain.advance) << language.font;
            EXPECT_EQ(extent.left, plain.left) << language.font;
            EXPECT_EQ(extent.right, plain.right) << language.font;
        }
    }
}

class DrawnFont : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        char name[] = "layouts_tests";
        char* arguments[] = {name, nullptr};
        char** argv = arguments;
        int argc = 1;
        setenv("DFBARGS", "system=dummy,mode=1920x1080,quiet,no-cursor,no-sighandler", 1);
        ASSERT_EQ(DirectFBInit(&argc, &argv), DFB_OK);
        ASSERT_EQ(DirectFBCreate(&m_dfb), DFB_OK);
        DFBFontDescription description = {};
        description.flags = DFDESC_HEIGHT;
        description.height = 30;
        ASSERT_EQ(m_dfb->CreateFont(m_dfb, findFontFile(GetParam()).c_str(), &description, &m_font),
                  DFB_OK);
    }

    IDirectFB* m_dfb = nullptr;
    IDirectFBFont* m_font = nullptr;
};

// The check measures with FreeType alone; this is what makes its word good. DirectFB moves a few
// pairs of letters closer together, which the check leaves out to be on the safe side.
TEST_P(DrawnFont, IsNoWiderThanTheCheckSays)
{
    constexpr int kMostKerning = 4;
    const Font font(findFontFile(GetParam()));
    const std::set<std::string> labels = labelsDrawnWith(GetParam());
    ASSERT_GT(labels.size(), 90u);
    for (const std::string& label : labels) {
        int width = 0;
        ASSERT_EQ(m_font->GetStringWidth(m_font, label.c_str(), -1, &width), DFB_OK);
        const int measured = font.measure(label).advance;
        EXPECT_LE(width, measured) << label;
        EXPECT_GE(width, measured - (codePoints(label).size() > 1 ? kMostKerning : 0)) << label;
    }
}

std::string testName(const testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param.substr(0, info.param.find('.'));
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
}

INSTANTIATE_TEST_SUITE_P(Table, DrawnFont, testing::ValuesIn(fontsOfTheTable()), testName);

TEST(FontFiles, NamesWhatIsMissing)
{
    try {
        findFontFile("NoSuchFont.ttf");
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "font NoSuchFont.ttf: not below /usr/share/fonts; "
                                   "docs/layouts.md names the package to install");
    }
}

} // namespace
