// Looks at the pictures of a tour as a viewer does: which key has the frame, which is sunken,
// which labels have changed. The shipped layout files say where the keys are.
#include <cstdint>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <json/json.h>
#include <png.h>

namespace
{

const int kScreenWidth = 1920;
const int kScreenHeight = 1080;
const int kWindowX = 600;
const int kWindowY = 600;
const uint32_t kWhite = 0xFFFFFF;
const uint32_t kNormal = 0x323232;
const uint32_t kSunken = 0x191919;

class Picture
{
public:
    explicit Picture(const std::string& name)
    {
        const std::string path = std::string(PICTURES "/") + name + ".png";
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        if (png_image_begin_read_from_file(&image, path.c_str()) == 0)
            throw std::runtime_error(path + ": " + image.message);
        image.format = PNG_FORMAT_RGB;
        if (image.width != kScreenWidth || image.height != kScreenHeight)
            throw std::runtime_error(path + ": not the size of the screen");
        m_bytes.resize(PNG_IMAGE_SIZE(image));
        if (png_image_finish_read(&image, nullptr, m_bytes.data(), 0, nullptr) == 0)
            throw std::runtime_error(path + ": " + image.message);
    }

    uint32_t at(int x, int y) const
    {
        const size_t first = static_cast<size_t>(y * kScreenWidth + x) * 3;
        return static_cast<uint32_t>(m_bytes[first] << 16 | m_bytes[first + 1] << 8 |
                                     m_bytes[first + 2]);
    }

private:
    std::vector<uint8_t> m_bytes;
};

struct Key {
    int x;
    int y;
    int width;
    int height;
};

Json::Value read(const std::string& name)
{
    std::ifstream file(std::string(LAYOUTS "/") + name);
    Json::Value value;
    file >> value;
    return value;
}

// Where each key lies on the screen.
std::vector<Key> keys()
{
    const Json::Value catalogue = read("Language_Name.json");
    const Json::Value& grid = catalogue["Rect"];
    const int gap_x = grid["positionXValue"].asInt();
    const int gap_y = grid["positionYValue"].asInt();
    const int step_x = gap_x + grid["widthValue"].asInt();
    const int step_y = gap_y + grid["heightValue"].asInt();

    std::vector<Key> result;
    for (const Json::Value& cell : catalogue["RectValue"]) {
        result.push_back({kWindowX + gap_x + cell["positionX"].asInt() * step_x,
                          kWindowY + gap_y + cell["positionY"].asInt() * step_y,
                          cell["width"].asInt() * step_x - gap_x,
                          cell["height"].asInt() * step_y - gap_y});
    }
    return result;
}

const Key& key(int id)
{
    static const std::vector<Key> all = keys();
    return all.at(static_cast<size_t>(id));
}

int key_count()
{
    return static_cast<int>(keys().size());
}

bool has_frame(const Picture& picture, const Key& key)
{
    for (int x = key.x; x <= key.x + key.width; ++x) {
        if (picture.at(x, key.y) != kWhite || picture.at(x, key.y + key.height) != kWhite)
            return false;
    }
    for (int y = key.y; y <= key.y + key.height; ++y) {
        if (picture.at(key.x, y) != kWhite || picture.at(key.x + key.width, y) != kWhite)
            return false;
    }
    return true;
}

std::set<int> framed(const Picture& picture)
{
    std::set<int> result;
    for (int id = 0; id < key_count(); ++id) {
        if (has_frame(picture, key(id)))
            result.insert(id);
    }
    return result;
}

// A key's fill, beside its bevel and off its label.
uint32_t fill(const Picture& picture, const Key& key)
{
    return picture.at(key.x + 4, key.y + 4);
}

std::set<int> sunken(const Picture& picture)
{
    std::set<int> result;
    for (int id = 0; id < key_count(); ++id) {
        if (fill(picture, key(id)) == kSunken)
            result.insert(id);
    }
    return result;
}

// Whether the insides of a key are alike, its frame and bevel left out.
bool same_label(const Picture& one, const Picture& other, const Key& key)
{
    for (int y = key.y + 3; y < key.y + key.height - 3; ++y) {
        for (int x = key.x + 3; x < key.x + key.width - 3; ++x) {
            if (one.at(x, y) != other.at(x, y))
                return false;
        }
    }
    return true;
}

struct Face {
    const char* layout;
    const char* set;
    const char* text;
};

const Face kEnglish = {"English", "KeyMode_Default", "text"};
const Face kEnglishShift = {"English", "KeyMode_Default", "shift_text"};
const Face kEnglishSymbols = {"English", "KeyMode_Symbol", "text"};

Face second_layout()
{
    static const std::string name = read("Language_Name.json")["language"][1].asString();
    return {name.c_str(), "KeyMode_Default", "text"};
}

std::vector<std::string> labels(const Face& face)
{
    std::vector<std::string> result;
    const Json::Value map = read(std::string("Language_") + face.layout + ".json");
    for (const Json::Value& entry : map["Keys"][face.set])
        result.push_back(entry[face.text].asString());
    return result;
}

int find(const std::string& label)
{
    const std::vector<std::string> all = labels(kEnglish);
    for (size_t id = 0; id < all.size(); ++id) {
        if (all[id] == label)
            return static_cast<int>(id);
    }
    throw std::runtime_error("no key " + label);
}

// Two pictures differ on exactly those keys whose labels the layout files give differently.
// A sunken key looks different with the same label, so those are left out.
void expect_labels_changed(const std::string& from, const Face& face, const std::string& to,
                           const Face& other_face)
{
    const Picture one(from);
    const Picture other(to);
    const std::vector<std::string> before = labels(face);
    const std::vector<std::string> after = labels(other_face);
    const std::set<int> skipped = sunken(other);
    int changed = 0;
    for (int id = 0; id < key_count(); ++id) {
        if (skipped.count(id) != 0)
            continue;
        const size_t index = static_cast<size_t>(id);
        const bool same_text = before.at(index) == after.at(index);
        EXPECT_EQ(same_text, same_label(one, other, key(id)))
            << "key " << id << ": " << before[index] << " and " << after[index];
        changed += same_text ? 0 : 1;
    }
    EXPECT_GT(changed, 2) << "the two faces hardly differ, so this shows nothing";
}

} // namespace

TEST(TourPictures, FrameIsOnTheFocusedKeyAlone)
{
    const std::vector<std::pair<std::string, std::string>> steps = {
        {"01-start", "Hide"},  {"02-move", "1"},      {"03-type", "t"},        {"04-letter", "v"},
        {"05-shift", "Shift"}, {"07-shifted", "z"},   {"08-unshift", "Shift"}, {"09-alt", "Alt"},
        {"10-symbol", "a"},    {"11-language", "EN"}, {"12-german", "q"},      {"14-show", "q"},
    };
    for (const auto& step : steps)
        EXPECT_EQ(std::set<int>{find(step.second)}, framed(Picture(step.first))) << step.first;
}

TEST(TourPictures, EveryKeyIsPaintedAndNoneSunkenAtTheStart)
{
    const Picture start("01-start");
    for (int id = 0; id < key_count(); ++id)
        EXPECT_EQ(kNormal, fill(start, key(id))) << "key " << id;
}

TEST(TourPictures, ShiftIsSunkenWhileItIsOn)
{
    const std::set<int> shift = {find("Shift")};
    EXPECT_EQ(shift, sunken(Picture("05-shift")));
    EXPECT_EQ(shift, sunken(Picture("06-shift-lock")));
    EXPECT_EQ(shift, sunken(Picture("07-shifted"))) << "locked, it stays after a letter";
    EXPECT_EQ(std::set<int>{}, sunken(Picture("08-unshift")));
}

TEST(TourPictures, ShiftShowsTheShiftedLabels)
{
    expect_labels_changed("01-start", kEnglish, "07-shifted", kEnglishShift);
    expect_labels_changed("08-unshift", kEnglish, "07-shifted", kEnglishShift);
}

TEST(TourPictures, AltIsSunkenAndShowsTheSymbols)
{
    EXPECT_EQ(std::set<int>{find("Alt")}, sunken(Picture("09-alt")));
    expect_labels_changed("01-start", kEnglish, "09-alt", kEnglishSymbols);
}

TEST(TourPictures, LanguageKeyShowsTheSecondLayout)
{
    expect_labels_changed("01-start", kEnglish, "11-language", second_layout());
    EXPECT_EQ(std::set<int>{}, sunken(Picture("11-language"))) << "Alt went off with the layout";
}

TEST(TourPictures, HiddenKeyboardLeavesTheScreenEmpty)
{
    const Picture hidden("13-hide");
    std::set<uint32_t> colours;
    for (int y = 0; y < kScreenHeight; ++y) {
        for (int x = 0; x < kScreenWidth; ++x)
            colours.insert(hidden.at(x, y));
    }
    EXPECT_EQ(std::set<uint32_t>{0x000000}, colours);
}

TEST(TourPictures, ShownAgainItIsAsBefore)
{
    const Picture before("12-german");
    const Picture after("14-show");
    for (int y = 0; y < kScreenHeight; ++y) {
        for (int x = 0; x < kScreenWidth; ++x)
            ASSERT_EQ(before.at(x, y), after.at(x, y)) << "at " << x << "," << y;
    }
}
