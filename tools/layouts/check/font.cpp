// Measures labels with FreeType as the keyboard draws them.
#include "font.h"

#include <algorithm>
#include <stdexcept>

#include <ft2build.h>
#include FT_FREETYPE_H

#include "text.h"

namespace layouts
{
namespace
{

constexpr FT_F26Dot6 kSize = 30L * 64;

// Pixels by which a glyph stands further from the one before it. What the font would move closer
// together, DirectFB moves for some pairs only; leaving it out is on the safe side.
int distance(FT_Face face, FT_UInt before, FT_UInt glyph)
{
    FT_Vector kerning = {0, 0};
    if (before == 0 || FT_Get_Kerning(face, before, glyph, FT_KERNING_DEFAULT, &kerning))
        return 0;
    return std::max(0, static_cast<int>(kerning.x >> 6));
}

} // namespace

struct Font::Library {
    FT_Library library = nullptr;
    FT_Face face = nullptr;

    ~Library()
    {
        FT_Done_Face(face);
        FT_Done_FreeType(library);
    }
};

Font::Font(const std::string& file) : m_library(new Library)
{
    if (FT_Init_FreeType(&m_library->library) ||
        FT_New_Face(m_library->library, file.c_str(), 0, &m_library->face) ||
        FT_Set_Char_Size(m_library->face, 0, kSize, 0, 0))
        throw std::runtime_error(file + ": no font file that scales to 30 pixels, expected one "
                                        "(TrueType or OpenType)");
}

Font::~Font() = default;

bool Font::hasGlyph(char32_t codePoint) const
{
    const FT_UInt glyph = FT_Get_Char_Index(m_library->face, codePoint);
    if (glyph == 0 || codePoint == U' ' || isInvisible(static_cast<int32_t>(codePoint)))
        return glyph != 0;
    // Some fonts name a glyph for a character and have nothing in it.
    return FT_Load_Glyph(m_library->face, glyph, FT_LOAD_RENDER) == 0 &&
           m_library->face->glyph->bitmap.width > 0;
}

Font::Extent Font::measure(const std::string& text) const
{
    // Whole pixels, as the display library advances.
    FT_Face face = m_library->face;
    Extent extent = {0, 0, 0};
    FT_UInt before = 0;
    for (const char32_t c : codePoints(text)) {
        const FT_UInt glyph = FT_Get_Char_Index(face, c);
        if (FT_Load_Glyph(face, glyph, FT_LOAD_RENDER))
            continue;
        extent.advance += distance(face, before, glyph);
        before = glyph;
        const int left = extent.advance + face->glyph->bitmap_left;
        extent.left = std::min(extent.left, left);
        extent.right = std::max(extent.right, left + static_cast<int>(face->glyph->bitmap.width));
        extent.advance += static_cast<int>(face->glyph->advance.x >> 6);
    }
    extent.right = std::max(extent.right, extent.advance);
    return extent;
}

} // namespace layouts
