// Pictures of characters: half blocks for even edges, and the keys' letters as text.
#include "symbol_picture.h"

#include <algorithm>
#include <memory>

#include <unistr.h>
#include <uniwidth.h>

namespace host
{

namespace
{

using Config = std::unique_ptr<ChafaCanvasConfig, decltype(&chafa_canvas_config_unref)>;
using Canvas = std::unique_ptr<ChafaCanvas, decltype(&chafa_canvas_unref)>;

const int kFocusBackground = 0xFFFFFF;
const int kFocusText = 0x000000;
const int kLabelText = 0xFFFFFF;

Config makeConfig(ChafaCanvasMode colours, CellArea area, CellSize cell)
{
    Config config(chafa_canvas_config_new(), &chafa_canvas_config_unref);
    chafa_canvas_config_set_geometry(config.get(), area.columns, area.rows);
    chafa_canvas_config_set_cell_geometry(config.get(), cell.width, cell.height);
    chafa_canvas_config_set_pixel_mode(config.get(), CHAFA_PIXEL_MODE_SYMBOLS);
    chafa_canvas_config_set_canvas_mode(config.get(), colours);

    ChafaSymbolMap* symbols = chafa_symbol_map_new();
    chafa_symbol_map_add_by_tags(symbols, CHAFA_SYMBOL_TAG_SPACE);
    chafa_symbol_map_add_by_tags(symbols, CHAFA_SYMBOL_TAG_VHALF);
    chafa_canvas_config_set_symbol_map(config.get(), symbols);
    chafa_symbol_map_unref(symbols);
    return config;
}

int colourAt(const Picture& picture, int x, int y)
{
    const int column = std::clamp(x, 0, picture.width - 1);
    const int row = std::clamp(y, 0, picture.height - 1);
    const uint8_t* pixel =
        &picture.rgba[4 * (static_cast<size_t>(row) * static_cast<size_t>(picture.width) +
                           static_cast<size_t>(column))];
    return pixel[0] << 16 | pixel[1] << 8 | pixel[2];
}

// Cells from the first to before the second; inside: that lie in the span of pixels as a whole.
struct Cells {
    int from, to;
};

Cells cellsInside(int pixel, int size, int cells, int pixels)
{
    return {(pixel * cells + pixels - 1) / pixels, (pixel + size) * cells / pixels};
}

Cells cellsTouched(int pixel, int size, int cells, int pixels)
{
    return {pixel * cells / pixels, ((pixel + size) * cells + pixels - 1) / pixels};
}

void setCell(ChafaCanvas* canvas, int column, int row, gunichar character, int colour,
             int background)
{
    chafa_canvas_set_char_at(canvas, column, row, character);
    chafa_canvas_set_colors_at(canvas, column, row, colour, background);
}

// Fills the cells that lie in the key and writes its label into the middle of them; a label that
// is too wide may also use the cells that the key only touches.
void writeLabel(ChafaCanvas* canvas, const Picture& picture, CellArea area, const Label& label)
{
    const int kInside = 3; // pixels: within the key's border lines
    const int background =
        label.focused ? kFocusBackground : colourAt(picture, label.x + kInside, label.y + kInside);
    const int colour = label.focused ? kFocusText : kLabelText;

    const Cells rows = cellsInside(label.y, label.height, area.rows, picture.height);
    Cells columns = cellsInside(label.x, label.width, area.columns, picture.width);
    for (int row = rows.from; row < rows.to; ++row)
        for (int column = columns.from; column < columns.to; ++column)
            setCell(canvas, column, row, ' ', colour, background);

    const uint8_t* text = reinterpret_cast<const uint8_t*>(label.text.data());
    const uint8_t* end = text + label.text.size();
    const int width = u8_width(text, label.text.size(), "UTF-8");
    if (width > columns.to - columns.from)
        columns = cellsTouched(label.x, label.width, area.columns, picture.width);
    const int row = std::max(rows.from, (rows.from + rows.to - 1) / 2);
    int column = columns.from + std::max(0, (columns.to - columns.from - width) / 2);
    ucs4_t character = 0;
    while (text < end && row < area.rows) {
        text += u8_mbtouc(&character, text, static_cast<size_t>(end - text));
        const int next = column + uc_width(character, "UTF-8");
        if (next <= column || next > columns.to)
            continue;
        setCell(canvas, column, row, character, colour, background);
        column = next;
    }
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines(1);
    for (const char byte : text) {
        if (byte == '\n')
            lines.emplace_back();
        else
            lines.back() += byte;
    }
    return lines;
}

} // namespace

std::vector<std::string> symbolLines(ChafaTermInfo* terminal, ChafaCanvasMode colours,
                                     const Picture& picture, CellArea area, CellSize cell,
                                     const std::vector<Label>& labels)
{
    const Config config = makeConfig(colours, area, cell);
    const Canvas canvas(chafa_canvas_new(config.get()), &chafa_canvas_unref);
    chafa_canvas_draw_all_pixels(canvas.get(), CHAFA_PIXEL_RGBA8_UNASSOCIATED, picture.rgba.data(),
                                 picture.width, picture.height, picture.width * 4);
    for (const Label& label : labels)
        writeLabel(canvas.get(), picture, area, label);

    GString* printed = chafa_canvas_print(canvas.get(), terminal);
    const std::string text(printed->str, printed->len);
    g_string_free(printed, TRUE);
    return linesOf(text);
}

} // namespace host
