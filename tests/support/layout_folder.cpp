#include "layout_folder.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <json/json.h>

namespace test_support
{

namespace
{

namespace fs = std::filesystem;

const char kRootVariable[] = "VKB_TEST_ROOT";

std::string newTemporaryFolder()
{
    std::string pattern = (fs::temp_directory_path() / "vkb-test-XXXXXX").string();
    if (::mkdtemp(&pattern[0]) == nullptr)
        throw std::runtime_error(pattern + ": cannot be made: is the temporary folder writable?");
    return pattern;
}

Json::Value asValue(const GridRect& rect)
{
    Json::Value value;
    value["positionX"] = rect.column;
    value["positionY"] = rect.row;
    value["width"] = rect.columns;
    value["height"] = rect.rows;
    return value;
}

Json::Value asValue(const Key& key)
{
    Json::Value value;
    value["id"] = key.id;
    value["text"] = key.text;
    value["isSpecial"] = key.isSpecial;
    value["isLanguage"] = key.isLanguage;
    value["keyCode"] = key.keyCode;
    value["character"] = key.character;
    value["left_button"] = key.left;
    value["right_button"] = key.right;
    value["up_button"] = key.up;
    value["down_button"] = key.down;
    value["shift_text"] = key.shiftText;
    value["shiftKeyCharacter"] = key.shiftCharacter;
    return value;
}

Json::Value asValue(const std::string& text)
{
    return text;
}

template <class Element> Json::Value asArray(const std::vector<Element>& elements)
{
    Json::Value array(Json::arrayValue);
    for (const Element& element : elements)
        array.append(asValue(element));
    return array;
}

} // namespace

std::string asJson(const Catalogue& catalogue)
{
    Json::Value root;
    root["language"] = asArray(catalogue.names);
    root["Rect"]["positionXValue"] = catalogue.gapX;
    root["Rect"]["positionYValue"] = catalogue.gapY;
    root["Rect"]["widthValue"] = catalogue.cellWidth;
    root["Rect"]["heightValue"] = catalogue.cellHeight;
    root["RectValue"] = asArray(catalogue.rects);
    return root.toStyledString();
}

std::string asJson(const std::vector<Key>& defaultKeys, const std::vector<Key>& symbolKeys)
{
    Json::Value root;
    root["Keys"]["KeyMode_Default"] = asArray(defaultKeys);
    root["Keys"]["KeyMode_Symbol"] = asArray(symbolKeys);
    return root.toStyledString();
}

LayoutFolder::LayoutFolder() : m_root(newTemporaryFolder())
{
    ::setenv(kRootVariable, m_root.c_str(), 1);
}

LayoutFolder::~LayoutFolder()
{
    ::unsetenv(kRootVariable);
    std::error_code ignored;
    fs::remove_all(m_root, ignored);
}

void LayoutFolder::removeFile(const std::string& path)
{
    fs::remove(m_root + path);
}

fs::path LayoutFolder::clearedPlace(const std::string& path)
{
    removeFile(path);
    fs::path place = m_root + path;
    fs::create_directories(place.parent_path());
    return place;
}

void LayoutFolder::writeFile(const std::string& path, const std::string& text)
{
    std::ofstream stream(clearedPlace(path), std::ios::binary);
    stream << text;
    if (!stream.flush())
        throw std::runtime_error(m_root + path + ": cannot be written");
}

void LayoutFolder::linkFile(const std::string& path, const std::string& target)
{
    fs::create_symlink(target, clearedPlace(path));
}

} // namespace test_support
