// Chooses how the terminal shows pictures, and writes what is new in them.
#include "terminal_picture.h"

#include <algorithm>
#include <cstring>

#include "kitty_image.h"
#include "terminal_colors.h"

namespace host
{

namespace
{

// The keyboard has five rows of keys. xterm shows 16 images at most, and by default none that is
// wider or higher than 1000 pixels.
const int kTileColumns = 3;
const int kTileRows = 5;
const PixelSize kSmallestLimit = {1000, 1000};

const int kSixelHeight = 6; // pixels: a sixel image has whole ones

const char kPlain[] = "\033[0m";

// A terminal that knows these shows all tiles at once; others leave them alone.
const char kBeginFrame[] = "\033[?2026h";
const char kEndFrame[] = "\033[?2026l";

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

struct ColoursOfTerminal {
    int colours; // at least, in the terminal database
    ChafaTermSeq sequence;
    ChafaCanvasMode mode;
};

// Best first. The environment may promise direct colour that the database does not know of, but no
// colours where it knows that there are none.
const ColoursOfTerminal kColours[] = {
    {8, CHAFA_TERM_SEQ_SET_COLOR_FGBG_DIRECT, CHAFA_CANVAS_MODE_TRUECOLOR},
    {256, CHAFA_TERM_SEQ_SET_COLOR_FGBG_256, CHAFA_CANVAS_MODE_INDEXED_240},
    {16, CHAFA_TERM_SEQ_SET_COLOR_FGBG_16, CHAFA_CANVAS_MODE_INDEXED_16},
    {8, CHAFA_TERM_SEQ_SET_COLOR_FGBG_8, CHAFA_CANVAS_MODE_INDEXED_8},
};

ChafaCanvasMode canvasMode(const ChafaTermInfo* terminal)
{
    const int known = terminalColors();
    for (const ColoursOfTerminal& entry : kColours)
        if (has(terminal, entry.sequence) && (known < 0 || known >= entry.colours))
            return entry.mode;
    return CHAFA_CANVAS_MODE_FGBG_BGFG; // each terminal can reverse its two colours
}

using Config = std::unique_ptr<ChafaCanvasConfig, decltype(&chafa_canvas_config_unref)>;
using Canvas = std::unique_ptr<ChafaCanvas, decltype(&chafa_canvas_unref)>;

// The picture's own pixels: as one cell of its size.
std::string sixelImage(ChafaTermInfo* terminal, const Picture& picture)
{
    const Config config(chafa_canvas_config_new(), &chafa_canvas_config_unref);
    chafa_canvas_config_set_geometry(config.get(), 1, 1);
    chafa_canvas_config_set_cell_geometry(config.get(), picture.width, picture.height);
    chafa_canvas_config_set_pixel_mode(config.get(), CHAFA_PIXEL_MODE_SIXELS);
    const Canvas canvas(chafa_canvas_new(config.get()), &chafa_canvas_unref);
    chafa_canvas_draw_all_pixels(canvas.get(), CHAFA_PIXEL_RGBA8_UNASSOCIATED, picture.rgba.data(),
                                 picture.width, picture.height, picture.width * 4);
    GString* printed = chafa_canvas_print(canvas.get(), terminal);
    std::string text(printed->str, printed->len);
    g_string_free(printed, TRUE);
    return text;
}

} // namespace

TerminalPicture::TerminalPicture(PictureMode mode)
    : m_chosen(mode != PictureMode::Auto), m_limit(kSmallestLimit)
{
    gchar** environment = g_get_environ();
    ChafaTermDb* known = chafa_term_db_get_default();
    ChafaTermInfo* terminal = chafa_term_db_detect(known, environment);
    g_strfreev(environment);
    m_mode = m_chosen ? mode : bestMode(terminal);
    m_colours = canvasMode(terminal);

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
    if (m_mode == PictureMode::Sixel) {
        area.columns = std::min(room.columns, kTileColumns * (m_limit.width / cell.width));
        area.rows =
            std::min(room.rows, kTileRows * ((m_limit.height - kSixelHeight) / cell.height));
    }
    chafa_calc_canvas_geometry(picture.width, picture.height, &area.columns, &area.rows,
                               static_cast<gfloat>(cell.width) / static_cast<gfloat>(cell.height),
                               TRUE, FALSE);
    return area;
}

std::string TerminalPicture::update(const Picture& picture, int row, CellArea area, CellSize cell,
                                    const std::vector<Label>& labels)
{
    if (m_mode == PictureMode::Symbols)
        return updateLines(symbolLines(m_terminal.get(), m_colours, picture, area, cell, labels),
                           row);
    return updateTiles(picture, row, area, cell);
}

std::string TerminalPicture::remove()
{
    std::string output;
    if (m_mode == PictureMode::Kitty && !m_shown.rgba.empty())
        for (int number = 1; number <= kTileColumns * kTileRows; ++number)
            output += kittyRemoval(number);
    forget();
    return output;
}

void TerminalPicture::forget()
{
    m_shown = Picture();
    m_lines.clear();
}

std::vector<TerminalPicture::Tile> TerminalPicture::tilesOf(CellArea area) const
{
    std::vector<Tile> tiles;
    for (int y = 0; y < kTileRows; ++y) {
        const int top = y * area.rows / kTileRows;
        const int bottom = (y + 1) * area.rows / kTileRows;
        for (int x = 0; x < kTileColumns; ++x) {
            const int left = x * area.columns / kTileColumns;
            const int right = (x + 1) * area.columns / kTileColumns;
            tiles.push_back({left, top, {right - left, bottom - top}});
        }
    }
    return tiles;
}

bool TerminalPicture::differs(const Picture& picture, const PixelArea& source) const
{
    if (m_shown.width != picture.width || m_shown.height != picture.height)
        return true;
    for (int y = source.y; y < source.y + source.height; ++y) {
        const size_t at = 4 * (static_cast<size_t>(y) * static_cast<size_t>(picture.width) +
                               static_cast<size_t>(source.x));
        if (std::memcmp(&picture.rgba[at], &m_shown.rgba[at],
                        4 * static_cast<size_t>(source.width)) != 0)
            return true;
    }
    return false;
}

// Sixel images overlap the one below, as whole sixels may need more rows; at the picture's end they
// leave these rows out.
PixelArea TerminalPicture::imageArea(const PixelArea& tile, PixelSize size) const
{
    PixelArea area = tile;
    if (m_mode != PictureMode::Sixel)
        return area;
    area.height = (tile.height + kSixelHeight - 1) / kSixelHeight * kSixelHeight;
    if (area.y + area.height > size.height)
        area.height = tile.height / kSixelHeight * kSixelHeight;
    return area;
}

std::string TerminalPicture::updateTiles(const Picture& picture, int row, CellArea area,
                                         CellSize cell)
{
    const PixelSize size = {area.columns * cell.width, area.rows * cell.height};
    std::string output;
    int number = 0;
    for (const Tile& tile : tilesOf(area)) {
        ++number;
        const PixelArea part =
            imageArea({tile.column * cell.width, tile.row * cell.height,
                       tile.cells.columns * cell.width, tile.cells.rows * cell.height},
                      size);
        if (part.width == 0 || part.height == 0 || !differs(picture, sourceOf(picture, size, part)))
            continue;
        const Picture scaled = scaledPart(picture, size, part);
        output += cursorTo(row + tile.row, 1 + tile.column);
        output += m_mode == PictureMode::Kitty ? kittyImage(number, scaled, tile.cells)
                                               : sixelImage(m_terminal.get(), scaled);
    }
    m_shown = picture;
    return output.empty() ? output : kBeginFrame + output + kEndFrame;
}

std::string TerminalPicture::updateLines(std::vector<std::string> lines, int row)
{
    std::string output;
    for (size_t i = 0; i < lines.size(); ++i, ++row)
        if (i >= m_lines.size() || m_lines[i] != lines[i])
            output += cursorTo(row, 1) + lines[i] + kPlain;
    m_lines = std::move(lines);
    return output;
}

} // namespace host
