// Reads the layout files: the catalogue and the key maps.
// Texts, function names, line numbers and the order of calls are an interface, misspellings
// included.

#include "Language_Parser.h"

#include <fstream>
#include <utility>

#include <json/json.h>

#include "keyboard_constants.h"
#include "log.h"

namespace velmora
{
namespace browser
{
namespace vkb
{

namespace
{

const char* const kKeyMapSuffix = ".json";

// Json::Reader is deprecated in newer releases of the library; the television's has no other
// reader.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
bool parseJson(std::ifstream& file, Json::Value& root)
{
    // Whole blocks at a time: the reader itself would take the stream byte by byte. What cannot be
    // read, such as a folder of that name, is an empty text and so no JSON.
    std::string text;
    char block[4096];
    do {
        file.read(block, sizeof block);
        text.append(block, static_cast<size_t>(file.gcount()));
    } while (file);

    Json::Reader reader;
    return reader.parse(text.data(), text.data() + text.size(), root, true);
}
#pragma GCC diagnostic pop

// Keeps the low 16 bits.
int16_t low16(uint32_t value)
{
    return static_cast<int16_t>(static_cast<uint16_t>(value));
}

int16_t readInt16(Json::Value& value)
{
    return low16(static_cast<uint32_t>(value.asInt()));
}

// From one margin to the far edge of a key plus one more gap. Unsigned, so that a nonsensical
// file wraps round instead of overflowing.
int32_t extent(Json::Value& start, Json::Value& span, int32_t gap, int32_t cell)
{
    const uint32_t first = static_cast<uint32_t>(start.asInt());
    const uint32_t cells = first + static_cast<uint32_t>(span.asInt());
    const uint32_t pitch = static_cast<uint32_t>(gap) + static_cast<uint32_t>(cell);
    return static_cast<int32_t>(cells * pitch + static_cast<uint32_t>(gap));
}

// Pixels from the keyboard's edge to grid line number line, and across span cells without the
// gap behind them.
int16_t gridLine(int16_t line, int32_t gap, int32_t cell)
{
    const uint32_t pitch = static_cast<uint32_t>(gap) + static_cast<uint32_t>(cell);
    return low16(static_cast<uint32_t>(gap) + static_cast<uint32_t>(line) * pitch);
}

int16_t gridSpan(int16_t span, int32_t gap, int32_t cell)
{
    const uint32_t pitch = static_cast<uint32_t>(gap) + static_cast<uint32_t>(cell);
    return low16(static_cast<uint32_t>(span) * pitch - static_cast<uint32_t>(gap));
}

// "NULL" is the files' way to write an empty label.
std::string readLabel(Json::Value& value)
{
    std::string label = value.asString();
    if (label == "NULL")
        label.clear();
    return label;
}

Button_t readPlainKey(Json::Value& key, const Rect_t& rect)
{
    Button_t plain = {};
    plain.id = key["id"].asInt();
    plain.text = readLabel(key["text"]);
    plain.isSpecial = key["isSpecial"].asBool();
    plain.isLanguage = key["isLanguage"].asBool();
    plain.rect = rect;
    plain.keyCode = key["keyCode"].asInt();
    plain.character = key["character"].asInt();
    plain.left_button = key["left_button"].asInt();
    plain.right_button = key["right_button"].asInt();
    plain.up_button = key["up_button"].asInt();
    plain.down_button = key["down_button"].asInt();
    return plain;
}

Button_t readShiftedKey(Json::Value& key, const Button_t& plain)
{
    Button_t shifted = plain;
    shifted.text = readLabel(key["shift_text"]);
    shifted.character = key["shiftKeyCharacter"].asInt();
    return shifted;
}

} // namespace

LanguageParser::LanguageParser()
    : m_gap_x(0), m_gap_y(0), m_cell_width(0), m_cell_height(0), m_keyboard_width(0),
      m_keyboard_height(0)
{
    ParseLayout();
    // There is no current layout yet, so this reads the file of the empty name, if there is one.
    // Kept.
    ParseCurrentLayoutKeyMaps();
}

bool LanguageParser::ParseLayout()
{
    VKB_LOG(LogTrace, "called\n");
    // Only the names start anew. Positions of a second read are appended behind the first ones,
    // which go on answering: kept.
    m_layout_names.clear();

    std::ifstream file(kCatalogueFile, std::ios::in | std::ios::binary);
    Json::Value root;
    if (!parseJson(file, root))
        return false;

    VKB_LOG(LogTrace, "Layout Parse Successfully !\n");
    Json::Value& names = root["language"];
    for (Json::ArrayIndex i = 0; i < names.size(); ++i)
        m_layout_names.push_back(names[i].asString());

    Json::Value& grid = root["Rect"];
    m_gap_x = grid["positionXValue"].asInt();
    m_gap_y = grid["positionYValue"].asInt();
    m_cell_width = grid["widthValue"].asInt();
    m_cell_height = grid["heightValue"].asInt();

    Json::Value& positions = root["RectValue"];
    for (Json::ArrayIndex i = 0; i < positions.size(); ++i) {
        Json::Value& position = positions[i];
        const Rect_t rect = {readInt16(position["positionX"]), readInt16(position["positionY"]),
                             readInt16(position["width"]), readInt16(position["height"])};
        m_key_rects.push_back(rect);
    }

    // The author lists the bottom-right key last. In a catalogue without positions this asks for
    // element -1, and the library's error goes to the caller.
    Json::Value& last = positions[static_cast<int>(positions.size()) - 1];
    m_keyboard_width = extent(last["positionX"], last["width"], m_gap_x, m_cell_width);
    m_keyboard_height = extent(last["positionY"], last["height"], m_gap_y, m_cell_height);
    return true;
}

std::vector<std::string>& LanguageParser::getLayoutsName()
{
    VKB_LOG(LogTrace, "called\n");
    if (m_layout_names.empty())
        ParseLayout();
    return m_layout_names;
}

void LanguageParser::onLayoutchanged(std::string& name)
{
    m_current_layout = name;
    VKB_LOGF(LogTrace, "Current Layout is :%s \n", m_current_layout.c_str());
    ParseCurrentLayoutKeyMaps();
}

bool LanguageParser::ParseCurrentLayoutKeyMaps()
{
    VKB_LOG(LogTrace, "called\n");
    m_default_keys.clear();
    m_symbol_keys.clear();
    m_default_shift_keys.clear();
    m_symbol_shift_keys.clear();

    std::ifstream file((kKeyMapPrefix + m_current_layout + kKeyMapSuffix).c_str(),
                       std::ios::in | std::ios::binary);
    // A catalogue that could not be read at the start may be there by now.
    if (m_key_rects.empty())
        ParseLayout();

    Json::Value root;
    if (!parseJson(file, root))
        return false;

    VKB_LOG(LogTrace, "Current LayoutKeyMap Parse Successfully !\n");
    Json::Value& keys = root["Keys"];
    readKeys(keys["KeyMode_Default"], m_default_keys, m_default_shift_keys);
    readKeys(keys["KeyMode_Symbol"], m_symbol_keys, m_symbol_shift_keys);
    return true;
}

std::vector<Button_t>& LanguageParser::getKeyMap(std::string&, bool shift, bool alt)
{
    VKB_LOG(LogTrace, "called\n");
    std::vector<Button_t>& plain = alt ? m_symbol_keys : m_default_keys;
    std::vector<Button_t>& shifted = alt ? m_symbol_shift_keys : m_default_shift_keys;
    std::vector<Button_t>& selected = shift ? shifted : plain;
    if (selected.empty())
        ParseCurrentLayoutKeyMaps();
    return selected;
}

void LanguageParser::readKeys(Json::Value& keys, std::vector<Button_t>& plain,
                              std::vector<Button_t>& shifted) const
{
    plain.reserve(keys.size());
    shifted.reserve(keys.size());
    for (Json::ArrayIndex i = 0; i < keys.size(); ++i) {
        Json::Value& key = keys[i];
        Button_t plain_key = readPlainKey(key, pixelRect(i));
        Button_t shifted_key = readShiftedKey(key, plain_key);
        plain.push_back(std::move(plain_key));
        shifted.push_back(std::move(shifted_key));
    }
}

Rect_t LanguageParser::pixelRect(size_t position) const
{
    // A key map longer than the catalogue's table: the key is there, with nothing to see of it.
    if (position >= m_key_rects.size())
        return Rect_t();

    const Rect_t& grid = m_key_rects[position];
    return {gridLine(grid.positionX, m_gap_x, m_cell_width),
            gridLine(grid.positionY, m_gap_y, m_cell_height),
            gridSpan(grid.width, m_gap_x, m_cell_width),
            gridSpan(grid.height, m_gap_y, m_cell_height)};
}

} // namespace vkb
} // namespace browser
} // namespace velmora
