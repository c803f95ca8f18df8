#include "terminal_picture.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <gif_lib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include "recorder.h"
#include "terminal_view.h"

namespace
{

using host::Label;
using host::Picture;
using host::PictureMode;
using host::TerminalPicture;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const host::CellSize kCell = {10, 20};

Picture grey(int width, int height, uint8_t level)
{
    Picture picture;
    picture.width = width;
    picture.height = height;
    for (int i = 0; i < width * height; ++i)
        for (const uint8_t value : {level, level, level, uint8_t(255)})
            picture.rgba.push_back(value);
    return picture;
}

void paint(Picture& picture, int x, int y, uint8_t level)
{
    for (int i = 0; i < 3; ++i)
        picture.rgba[4 * (size_t(y) * size_t(picture.width) + size_t(x)) + size_t(i)] = level;
}

class TerminalKind : public testing::Test
{
protected:
    void setTerminal(const char* term, const char* colours)
    {
        for (const char* other : {"TERM_PROGRAM", "KITTY_PID", "TMUX", "VTE_VERSION", "MLTERM"})
            unsetenv(other);
        setenv("TERM", term, 1);
        setenv("COLORTERM", colours, 1);
    }
};

TEST_F(TerminalKind, XtermShowsSymbolsUntilItSaysSixel)
{
    setTerminal("xterm-256color", "");
    TerminalPicture picture(PictureMode::Auto);
    EXPECT_EQ(picture.mode(), PictureMode::Symbols);
    picture.sixelIsPossible();
    EXPECT_EQ(picture.mode(), PictureMode::Sixel);
    EXPECT_THAT(picture.update(grey(100, 40, 50), 4, {10, 2}, kCell, {}), HasSubstr("\x1bP"));
}

TEST_F(TerminalKind, KittyShowsItsOwnPictures)
{
    setTerminal("xterm-kitty", "truecolor");
    TerminalPicture picture(PictureMode::Auto);
    EXPECT_EQ(picture.mode(), PictureMode::Kitty);
    EXPECT_THAT(picture.update(grey(100, 40, 50), 4, {10, 2}, kCell, {}), HasSubstr("\x1b_G"));
}

TEST_F(TerminalKind, WhatTheUserAskedForStays)
{
    setTerminal("xterm-kitty", "truecolor");
    TerminalPicture picture(PictureMode::Symbols);
    picture.sixelIsPossible();
    EXPECT_EQ(picture.mode(), PictureMode::Symbols);
}

TEST_F(TerminalKind, SymbolsCarryTheLabels)
{
    setTerminal("xterm-256color", "truecolor");
    TerminalPicture picture(PictureMode::Symbols);
    std::vector<Label> labels = {{0, 0, 50, 60, "Hi", false}, {50, 0, 50, 60, "ü", true}};
    const std::string first = picture.update(grey(100, 60, 50), 4, {10, 3}, kCell, labels);
    EXPECT_THAT(first, HasSubstr("Hi"));
    EXPECT_THAT(first, HasSubstr("ü"));
    EXPECT_THAT(first, HasSubstr("48;2;255;255;255")); // the focused key stands out
    EXPECT_THAT(first, HasSubstr("\x1b[6;1H"));

    EXPECT_EQ(picture.update(grey(100, 60, 50), 4, {10, 3}, kCell, labels), "");
    labels[0].text = "Ho";
    const std::string second = picture.update(grey(100, 60, 50), 4, {10, 3}, kCell, labels);
    EXPECT_THAT(second, StartsWith("\x1b[5;1H"));
    EXPECT_THAT(second, HasSubstr("Ho"));
    EXPECT_THAT(second, Not(HasSubstr("\x1b[6;1H")));
}

TEST_F(TerminalKind, KeepsThePicturesProportions)
{
    setTerminal("xterm-256color", "truecolor");
    const TerminalPicture picture(PictureMode::Symbols);
    const host::CellArea area = picture.fit(grey(1000, 400, 50), {50, 40}, kCell);
    EXPECT_EQ(area.columns, 50);
    EXPECT_EQ(area.rows, 10);
}

TEST(HalvedPicture, KeepsAWhiteLineOfOnePixelBright)
{
    Picture picture = grey(4, 4, 0);
    for (int y = 0; y < 4; ++y)
        paint(picture, 2, y, 255);
    const Picture half = host::halved(picture);
    EXPECT_EQ(half.width, 2);
    EXPECT_EQ(half.height, 2);
    const std::vector<uint8_t> row = {0, 0, 0, 255, 186, 186, 186, 255}; // 255 * 0.5^(1 / 2.2)
    std::vector<uint8_t> expected = row;
    expected.insert(expected.end(), row.begin(), row.end());
    EXPECT_EQ(half.rgba, expected);
}

TEST(HalvedPicture, LeavesAnOddLastRowAndColumnOut)
{
    Picture picture = grey(3, 3, 100);
    paint(picture, 2, 0, 255);
    paint(picture, 0, 2, 255);
    const Picture half = host::halved(picture);
    EXPECT_EQ(half.width, 1);
    EXPECT_EQ(half.rgba, (std::vector<uint8_t>{100, 100, 100, 255}));
}

TEST(TerminalView, ALongTextShowsItsEnd)
{
    EXPECT_EQ(host::lastColumns("Grüße", 3), "üße");
    EXPECT_EQ(host::lastColumns("漢字", 3), "字");
    EXPECT_EQ(host::lastColumns("ab", 5), "ab");
}

class Recording : public testing::Test
{
protected:
    std::string path(const std::string& name) const { return testing::TempDir() + name; }

    void recordTwoFrames(const std::string& file)
    {
        Picture frame = grey(8, 6, 0);
        const auto recorder = host::makeRecorder(file);
        recorder->add(frame, 100);
        paint(frame, 3, 2, 255);
        paint(frame, 5, 4, 255);
        recorder->add(frame, 250);
        recorder->finish();
    }
};

TEST_F(Recording, AGifHoldsTheFirstFrameAndThenWhatChanged)
{
    const std::string file = path("host-recording.gif");
    recordTwoFrames(file);

    GifFileType* gif = DGifOpenFileName(file.c_str(), nullptr);
    ASSERT_NE(gif, nullptr);
    ASSERT_EQ(DGifSlurp(gif), GIF_OK);
    ASSERT_EQ(gif->ImageCount, 2);
    EXPECT_EQ(gif->SWidth, 8);
    EXPECT_EQ(gif->SHeight, 6);
    const GifImageDesc& changed = gif->SavedImages[1].ImageDesc;
    EXPECT_EQ(changed.Left, 3);
    EXPECT_EQ(changed.Top, 2);
    EXPECT_EQ(changed.Width, 3);
    EXPECT_EQ(changed.Height, 3);
    const GifColorType* colours = gif->SColorMap->Colors;
    const GifByteType* pixels = gif->SavedImages[1].RasterBits;
    EXPECT_EQ(colours[pixels[0]].Red, 255);
    EXPECT_EQ(colours[pixels[1]].Red, 0);
    EXPECT_EQ(colours[pixels[8]].Red, 255);
    GraphicsControlBlock control = {};
    ASSERT_EQ(DGifSavedExtensionToGCB(gif, 1, &control), GIF_OK);
    EXPECT_EQ(control.DelayTime, 25); // hundredths of a second
    DGifCloseFile(gif, nullptr);
    std::remove(file.c_str());
}

TEST_F(Recording, PngFilesAreNumbered)
{
    recordTwoFrames(path("host-recording.png"));
    const std::string second = path("host-recording-002.png");
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(png_image_begin_read_from_file(&image, second.c_str()), 0);
    image.format = PNG_FORMAT_GRAY;
    std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(image));
    ASSERT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0);
    EXPECT_EQ(image.width, 8U);
    EXPECT_EQ(pixels[2 * 8 + 3], 255);
    EXPECT_EQ(pixels[2 * 8 + 4], 0);
    std::remove(second.c_str());
    std::remove(path("host-recording-001.png").c_str());
}

TEST_F(Recording, SaysWhatIsWrongWithTheFile)
{
    const auto message = [](const std::string& file) -> std::string {
        try {
            host::makeRecorder(file);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(message("a.jpg"), "a.jpg: expected a name that ends in .gif or .png");
    EXPECT_EQ(message("/no-such-folder/a.gif"),
              "/no-such-folder/a.gif: cannot be made: No such file or directory");
}

} // namespace
