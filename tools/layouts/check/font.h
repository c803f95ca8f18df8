#ifndef TOOLS_LAYOUTS_CHECK_FONT_H
#define TOOLS_LAYOUTS_CHECK_FONT_H

#include <memory>
#include <string>

namespace layouts
{

// A font as the keyboard draws with it: one glyph after another at 30 pixels, without shaping.
class Font
{
public:
    // Throws std::runtime_error for a file that is no font.
    explicit Font(const std::string& file);
    ~Font();

    // Whether there is a picture, with ink in it.
    bool hasGlyph(char32_t codePoint) const;

    struct Extent {
        int advance; // pixels; the label is centred by it
        int left;    // the ink's edges, from the label's origin
        int right;
    };
    Extent measure(const std::string& text) const;

private:
    struct Library;
    std::unique_ptr<Library> m_library;
};

} // namespace layouts

#endif
