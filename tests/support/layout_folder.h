#ifndef TESTS_SUPPORT_LAYOUT_FOLDER_H
#define TESTS_SUPPORT_LAYOUT_FOLDER_H

#include <filesystem>
#include <string>
#include <vector>

namespace test_support
{

struct GridRect {
    int column, row, columns, rows;
};

// A catalogue as its file gives it; the numbers are pixels.
struct Catalogue {
    std::vector<std::string> names;
    int gapX, gapY, cellWidth, cellHeight;
    std::vector<GridRect> rects;
};

// One key object of a key map.
struct Key {
    int id;
    std::string text;
    bool isSpecial;
    bool isLanguage;
    int keyCode, character;
    int left, right, up, down;
    std::string shiftText;
    int shiftCharacter;
};

std::string asJson(const Catalogue& catalogue);
std::string asJson(const std::vector<Key>& defaultKeys, const std::vector<Key>& symbolKeys);

// A folder of its own under the system's temporary folder that this process, through test_seams,
// and the processes that it starts with test_seams loaded see in place of the fixed paths of layout
// files and fonts. Empty at first; removed with everything in it at the end.
class LayoutFolder
{
public:
    LayoutFolder();
    ~LayoutFolder();
    LayoutFolder(const LayoutFolder&) = delete;
    LayoutFolder& operator=(const LayoutFolder&) = delete;

    const std::string& root() const { return m_root; }

    void writeCatalogue(const std::string& json) { writeFile(cataloguePath(), json); }
    void writeKeyMap(const std::string& layout, const std::string& json)
    {
        writeFile(keyMapPath(layout), json);
    }
    void removeCatalogue() { removeFile(cataloguePath()); }
    void removeKeyMap(const std::string& layout) { removeFile(keyMapPath(layout)); }

    // Puts a file at a fixed path, such as /usr/local/opt/font/NAME.ttf, in place of what is there:
    // with this text, as a link to another file, or as a link to itself, which nobody can open.
    void writeFile(const std::string& path, const std::string& text);
    void linkFile(const std::string& path, const std::string& target);
    void makeUnreadable(const std::string& path) { linkFile(path, m_root + path); }
    void removeFile(const std::string& path);

    static std::string cataloguePath() { return keyMapPath("Name"); }
    static std::string keyMapPath(const std::string& layout)
    {
        return "/usr/local/opt/nerovista/resources/oskeyboard_config/Language_" + layout + ".json";
    }

private:
    // Its place in the folder, with nothing there.
    std::filesystem::path clearedPlace(const std::string& path);

    std::string m_root;
};

} // namespace test_support

#endif
