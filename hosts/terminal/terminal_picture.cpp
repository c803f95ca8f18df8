#include "terminal_picture.h"

#include <algorithm>

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

bool has(const ChafaTermInfo* terminal, ChafaTermSeq sequence)
{
    return chafa_term_info_have_seq(terminal, sequence) != FALSE;
}

PictureMode bestMode(const ChafaTermInfo* terminal)
{
    if (has(terminal, CHAFA_TERM_SEQ_BEGIN_KITTY_IMMEDIATE_IMAGE_V1))
        return PictureMode::Kitty;
    if (has(terminal, CHAFA_TERM_SEQ_BEGIN_SIXELS))
        return PictureMode::Sixel;
    return PictureMode::Symbols;
}

ChafaPixelMode pixelMode(PictureMode mode)
{
    switch (mode) {
    case PictureMode::Sixel:
        return CHAFA_PIXEL_MODE_SIXELS;
    case PictureMode::Kitty:
        return CHAFA_PIXEL_MODE_KITTY;
    default:
        return CHAFA_PIXEL_MODE_SYMBOLS;
    }
}

struct ModeOfSequence {
    ChafaTermSeq sequence;
    ChafaCanvasMode mode;
};

// Best first.
const ModeOfSequence kCanvasModes[] = {
    {CHAFA_TERM_SEQ_SET_COLOR_FGBG_DIRECT, CHAFA_CANVAS_MODE_TRUECOLOR},
    {CHAFA_TERM_SEQ_SET_COLOR_FGBG_256, CHAFA_CANVAS_MODE_INDEXED_240},
    {CHAFA_TERM_SEQ_SET_COLOR_FGBG_16, CHAFA_CANVAS_MODE_INDEXED_16},
    {CHAFA_TERM_SEQ_INVERT_COLORS, CHAFA_CANVAS_MODE_FGBG_BGFG},
};

ChafaCanvasMode canvasMode(const ChafaTermInfo* terminal)
{
    for (const ModeOfSequence& entry : kCanvasModes)
        if (has(terminal, entry.sequence))
            return entry.mode;
    return CHAFA_CANVAS_MODE_FGBG;
}

Config makeConfig(const ChafaTermInfo* terminal, PictureMode mode, CellArea area, CellSize cell)
{
    Config config(chafa_canvas_config_new(), &chafa_canvas_config_unref);
    chafa_canvas_config_set_geometry(config.get(), area.columns, area.rows);
    chafa_canvas_config_set_cell_geometry(config.get(), cell.width, cell.height);
    chafa_canvas_config_set_pixel_mode(config.get(), pixelMode(mode));
    chafa_canvas_config_set_canvas_mode(config.get(), canvasMode(terminal));

    // Half blocks give even edges; the letters come as labels.
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

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> lines(1);
    for (const char byte : text) {
        if (byte == separator)
            lines.emplace_back();
        else
            lines.back() += byte;
    }
    return lines;
}

} // namespace

TerminalPicture::TerminalPicture(PictureMode mode) : m_chosen(mode != PictureMode::Auto)
{
    gchar** environment = g_get_environ();
    ChafaTermDb* known = chafa_term_db_get_default();
    ChafaTermInfo* terminal = chafa_term_db_detect(known, environment);
    g_strfreev(environment);
    m_mode = m_chosen ? mode : bestMode(terminal);

    // A kind of picture that the user asked for needs sequences that the environment may not
    // promise.
    ChafaTermInfo* fallback = chafa_term_db_get_fallback_info(known);
    chafa_term_info_supplement(terminal, fallback);
    chafa_term_info_unref(fallback);
    m_terminal.reset(terminal, &chafa_term_info_unref);
}

void TerminalPicture::sixelIsPossible()
{
    if (!m_chosen && m_mode == PictureMode::Symbols)
        m_mode = PictureMode::Sixel;
}

CellArea TerminalPicture::fit(const Picture& picture, CellArea room, CellSize cell) const
{
    CellArea area = room;
    chafa_calc_canvas_geometry(picture.width, picture.height, &area.columns, &area.rows,
                               static_cast<gfloat>(cell.width) / static_cast<gfloat>(cell.height),
                               TRUE, FALSE);
    return area;
}

std::vector<std::string> TerminalPicture::print(const Picture& picture, CellArea area,
                                                CellSize cell,
                                                const std::vector<Label>& labels) const
{
    const Config config = makeConfig(m_terminal.get(), m_mode, area, cell);
    const Canvas canvas(chafa_canvas_new(config.get()), &chafa_canvas_unref);
    chafa_canvas_draw_all_pixels(canvas.get(), CHAFA_PIXEL_RGBA8_UNASSOCIATED, picture.rgba.data(),
                                 picture.width, picture.height, picture.width * 4);
    if (m_mode == PictureMode::Symbols)
        for (const Label& label : labels)
            writeLabel(canvas.get(), picture, area, label);

    GString* printed = chafa_canvas_print(canvas.get(), m_terminal.get());
    const std::string text(printed->str, printed->len);
    g_string_free(printed, TRUE);
    if (m_mode == PictureMode::Symbols)
        return split(text, '\n');
    return {text};
}

} // namespace host
