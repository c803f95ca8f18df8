// The composed screen, pixel by pixel: the page that the engine draws, and the keyboard above it.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>
#include <unistd.h>

#include "keyboard_constants.h"
#include "keyboard_host.h"
#include "picture.h"
#include "png_recorder.h"
#include "screen.h"

namespace
{

using namespace host;
using velmora::browser::vkb::kWindowX;
using velmora::browser::vkb::kWindowY;

const Screen::Option kScreenOptions[] = {
    {"system", "dummy"}, {"mode", "1920x1080"}, {"quiet", nullptr}, {nullptr, nullptr}};

Picture readPng(const std::string& file)
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, file.c_str()) == 0)
        throw std::runtime_error(file + ": " + image.message);
    image.format = PNG_FORMAT_RGBA;
    Picture picture;
    picture.width = static_cast<int>(image.width);
    picture.height = static_cast<int>(image.height);
    picture.rgba.resize(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, picture.rgba.data(), 0, nullptr) == 0)
        throw std::runtime_error(file + ": " + image.message);
    return picture;
}

uint32_t pixel(const Picture& picture, int x, int y)
{
    const size_t i =
        (static_cast<size_t>(y) * static_cast<size_t>(picture.width) + static_cast<size_t>(x)) * 4;
    return static_cast<uint32_t>(picture.rgba[i] << 16 | picture.rgba[i + 1] << 8 |
                                 picture.rgba[i + 2]);
}

// A folder of its own for each test; what the browser wrote stays there when the test fails.
class ComposedScreen : public testing::Test
{
protected:
    ComposedScreen() : m_folder(testing::TempDir() + "composed-screen-XXXXXX")
    {
        if (::mkdtemp(m_folder.data()) == nullptr)
            throw std::runtime_error(m_folder + ": cannot be made");
    }

    ~ComposedScreen() override
    {
        if (!HasFailure())
            (void)std::system(("rm -r " + m_folder).c_str());
    }

    // Plays the steps on the page of coloured bars and returns the pictures that they take.
    std::vector<Picture> play(const std::string& steps, const std::vector<std::string>& pictures)
    {
        std::ofstream(m_folder + "/steps") << steps;
        const std::string command = "cd " + m_folder +
                                    " && DFBARGS=system=dummy,mode=1920x1080,quiet,no-cursor "
                                    "LD_PRELOAD=" TEST_SEAMS " " BROWSER_HOST " file://" PAGES
                                    "/bars.html --play steps "
                                    "--patience 240";
        EXPECT_EQ(std::system(command.c_str()), 0) << m_folder;
        std::vector<Picture> read;
        read.reserve(pictures.size());
        for (const std::string& picture : pictures)
            read.push_back(readPng(m_folder + "/" + picture));
        return read;
    }

    std::string m_folder;
};

// The page: bars of 30 rows, bar i in the colour 0x10 * i, blue 0x80.
uint32_t barAt(int y)
{
    const uint32_t level = static_cast<uint32_t>(y / 30 % 16) * 0x10;
    return level << 16 | level << 8 | 0x80;
}

bool isKeyboard(const Picture& keyboard, int x, int y)
{
    return x >= kWindowX && x < kWindowX + keyboard.width && y >= kWindowY &&
           y < kWindowY + keyboard.height;
}

TEST_F(ComposedScreen, IsThePageAndTheKeyboardAsItDrawsAlone)
{
    const std::vector<Picture> got = play(
        "wait page ready\nwait keyboard shown\npicture start.png\npress right\npicture moved.png\n",
        {"start.png", "moved.png"});

    ASSERT_NE(chooseFont(), "");
    const Screen screen(kScreenOptions);
    KeyboardHost keyboard(screen);
    ASSERT_TRUE(keyboard.show());
    for (const Picture& whole : got) {
        const Picture alone = keyboard.picture();
        writePng(m_folder + "/keyboard.png", alone); // to look at when the test fails
        ASSERT_EQ(whole.width, 1920);
        ASSERT_EQ(whole.height, 1080);
        for (int y = 0; y < whole.height; ++y)
            for (int x = 0; x < whole.width; ++x) {
                const bool isField = (x < 250 && y >= 1020) || y < 60; // and what the page says
                if (isField)
                    continue;
                const uint32_t expected =
                    isKeyboard(alone, x, y) ? pixel(alone, x - kWindowX, y - kWindowY) : barAt(y);
                ASSERT_EQ(pixel(whole, x, y), expected) << x << ", " << y << ", " << m_folder;
            }
        keyboard.press(Press::Right);
    }
}

// A field at the page's lower end: its picture moves up, and goes on below as its last row.
TEST_F(ComposedScreen, GoesOnBesideTheKeyboardWhenThePageMovesUp)
{
    const std::vector<Picture> got =
        play("wait page ready\npress red\nwait page below\npicture up.png\n"
             "press back\nwait keyboard hidden\npicture down.png\n",
             {"up.png", "down.png"});
    const int kLastBar = 1050;
    const int up = 1080 - (kWindowY - 24); // the field ends with the page
    for (int y = 60; y < 1080; ++y) {
        const int from = y + up;
        const bool isField = from >= 1020 && from < 1079;
        if (!isField) {
            ASSERT_EQ(pixel(got[0], 300, y), barAt(std::min(from, kLastBar))) << y << m_folder;
        }
        ASSERT_EQ(pixel(got[1], 300, y), barAt(y)) << y << ", " << m_folder;
    }
}

} // namespace
