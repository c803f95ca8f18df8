// Paints keys on a surface, and nothing but painting.
// Texts, function names, line numbers and the order of calls are an interface, misspellings
// included.

#include "keyboard_ui.h"

#include <unistd.h>

#include "directfb_check.h"
#include "log.h"

namespace velmora
{
namespace browser
{
namespace vkb
{

namespace
{

// Colours are 0xAARRGGBB.
const unsigned int kBackground = 0xFF1E1E1E;
const unsigned int kTransparent = 0x00000000;
const unsigned int kKeyFill = 0xFF323232;
const unsigned int kSunkenFill = 0xFF191919;
const unsigned int kText = 0xFFFFFFFF;
const unsigned int kShadow = 0xFF0A0A0A;
const unsigned int kFocusFrame = 0xFFFFFFFF;

const int kDefaultFontSize = 30; // pixels

struct Colour {
    u8 red;
    u8 green;
    u8 blue;
    u8 alpha;
};

Colour split(unsigned int argb)
{
    return {static_cast<u8>(argb >> 16), static_cast<u8>(argb >> 8), static_cast<u8>(argb),
            static_cast<u8>(argb >> 24)};
}

enum Edge { EdgeLeft, EdgeTop, EdgeRight, EdgeBottom };

// A line along a whole edge of a key, moved towards the key's middle by inset
// pixels.
struct EdgeLine {
    Edge edge;
    int inset;
    const char* text;
};

const EdgeLine kLeft = {EdgeLeft, 0, "m_surface->DrawLine(m_surface,x,y,x,y+h)"};
const EdgeLine kTop = {EdgeTop, 0, "m_surface->DrawLine(m_surface,x,y,x+w,y)"};
const EdgeLine kRight = {EdgeRight, 0, "m_surface->DrawLine(m_surface,x+w,y,x+w,y+h)"};
const EdgeLine kBottom = {EdgeBottom, 0, "m_surface->DrawLine(m_surface,x,y+h,x+w,y+h)"};
const EdgeLine kInnerLeft = {EdgeLeft, 1, "m_surface->DrawLine(m_surface,x+1,y,x+1,y+h)"};
const EdgeLine kInnerTop = {EdgeTop, 1, "m_surface->DrawLine(m_surface,x,y+1,x+w,y+1)"};
const EdgeLine kInnerRight = {EdgeRight, 1, "m_surface->DrawLine(m_surface,x+w-1,y,x+w-1,y+h)"};
const EdgeLine kInnerBottom = {EdgeBottom, 1, "m_surface->DrawLine(m_surface,x,y+h-1,x+w,y+h-1)"};

// End points, both drawn.
DFBRegion ends(const EdgeLine& line, const Rect_t& rect)
{
    const int left = rect.positionX;
    const int top = rect.positionY;
    const int right = left + rect.width;
    const int bottom = top + rect.height;

    if (line.edge == EdgeLeft)
        return {left + line.inset, top, left + line.inset, bottom};
    if (line.edge == EdgeTop)
        return {left, top + line.inset, right, top + line.inset};
    if (line.edge == EdgeRight)
        return {right - line.inset, top, right - line.inset, bottom};
    return {left, bottom - line.inset, right, bottom - line.inset};
}

} // namespace

struct KeyLook {
    unsigned int rect_c;
    unsigned int line_c;
    EdgeLine lines[4];
};

namespace
{

// Shadow at the right and the bottom: the key stands out.
const KeyLook kNormal = {kKeyFill, kShadow, {kRight, kBottom, kInnerRight, kInnerBottom}};

// Shadow at the top and the left: the key is pushed in.
const KeyLook kSunken = {kSunkenFill, kShadow, {kTop, kLeft, kInnerTop, kInnerLeft}};

// The focus frame in the shadow's place: a released key is the focused one.
const KeyLook kFocused = {kKeyFill, kFocusFrame, {kRight, kBottom, kTop, kLeft}};

} // namespace

KeyBoardUI::KeyBoardUI(IDirectFB* dfb, IDirectFBSurface* surface)
    : m_dfb(dfb), m_surface(surface), m_win_width(0), m_win_height(0),
      m_font_size(kDefaultFontSize), m_font_height(0), m_font(nullptr), m_buttons(nullptr),
      m_is_drawn(false)
{
    checkDirectFB(m_surface->GetSize(m_surface, &m_win_width, &m_win_height),
                  "m_surface->GetSize(m_surface, &m_win_width,&m_win_height)");
    VKB_LOGF(LogTrace, "called (%d/%d)\n", m_win_width, m_win_height);
    clear(kBackground, true);
}

KeyBoardUI::~KeyBoardUI()
{
    VKB_LOG(LogTrace, "called \n");
    if (m_font != nullptr)
        m_font->Release(m_font);
}

bool KeyBoardUI::setLayoutData(std::vector<Button_t>* buttons, int fontSize, const char* fontPath)
{
    VKB_LOGF(LogTrace, "called lines;%d\n", static_cast<int>(buttons->size()));
    m_buttons = buttons;
    m_font_size = fontSize;
    if (fontPath == nullptr) {
        VKB_LOG(LogError, "font file is null\n");
        return false;
    }
    if (access(fontPath, F_OK) != 0) {
        VKB_LOG(LogError, "font file is not exist !!!\n");
        return false;
    }

    DFBFontDescription desc = {};
    desc.flags = DFDESC_HEIGHT;
    desc.height = m_font_size;
    // Not checked: a font that cannot be loaded leaves none, and nothing is painted. The font
    // before this one is not released and stays until the process ends. Both are kept.
    m_dfb->CreateFont(m_dfb, fontPath, &desc, &m_font);
    m_surface->SetFont(m_surface, m_font);
    if (m_font != nullptr)
        m_font->GetHeight(m_font, &m_font_height);
    VKB_LOGF(LogTrace, "font-height:%d\n", m_font_height);
    return true;
}

void KeyBoardUI::clear(unsigned int argb, bool flip)
{
    VKB_LOG(LogTrace, "called \n");
    fill(argb);
    if (flip) {
        checkDirectFB(m_surface->Flip(m_surface, nullptr, DSFLIP_NONE),
                      "m_surface->Flip(m_surface,NULL, DSFLIP_NONE)");
        // The flip swapped the buffers: the one now at the back holds an old frame.
        fill(argb);
    }
    m_is_drawn = false;
}

void KeyBoardUI::draw(bool flip)
{
    VKB_LOG(LogDetail, "called\n");
    if (m_font == nullptr)
        return;

    clear(kBackground, false);
    for (const Button_t& key : *m_buttons)
        drawElement(key, kNormal);
    for (const Button_t& key : m_locked_buttons)
        drawElement(key, kSunken);
    if (flip)
        flipWhole();
    m_is_drawn = true;
    VKB_LOG(LogDetail, "done\n");
}

void KeyBoardUI::show()
{
    VKB_LOG(LogTrace, "called \n");
    if (!m_is_drawn)
        draw(true);
}

void KeyBoardUI::hide()
{
    VKB_LOG(LogTrace, "called\n");
    if (m_is_drawn)
        clear(kTransparent, true);
}

void KeyBoardUI::setfocus(Button_t& key)
{
    VKB_LOG(LogTrace, "called \n");
    draw(false);
    drawLines(key.rect, kFocused);
    flipWhole();
}

void KeyBoardUI::press(Button_t key)
{
    drawElement(key, kSunken);
    flipKey(key.rect);
}

void KeyBoardUI::pressed(Button_t key)
{
    drawElement(key, kFocused);
    flipKey(key.rect);
}

void KeyBoardUI::setLocked(std::vector<Button_t>& locked)
{
    VKB_LOG(LogTrace, "called \n");
    m_locked_buttons = locked;
    draw(false);
    flipWhole();
}

void KeyBoardUI::fill(unsigned int argb)
{
    const Colour c = split(argb);
    checkDirectFB(m_surface->Clear(m_surface, c.red, c.green, c.blue, c.alpha),
                  "m_surface->Clear(m_surface, ARGB_R(argb), "
                  "ARGB_G(argb),ARGB_B(argb),ARGB_A(argb))");
}

void KeyBoardUI::setColour(unsigned int argb, const char* text)
{
    const Colour c = split(argb);
    checkDirectFB(m_surface->SetColor(m_surface, c.red, c.green, c.blue, c.alpha), text);
}

void KeyBoardUI::drawElement(const Button_t& key, const KeyLook& look)
{
    const int x = key.rect.positionX;
    const int y = key.rect.positionY;
    const int w = key.rect.width;
    const int h = key.rect.height;

    setColour(look.rect_c, "m_surface->SetColor(m_surface,ARGB_R(rect_c),ARGB_G(rect_c),"
                           "ARGB_B(rect_c),ARGB_A(rect_c))");
    // The edge lines lie on x+w and y+h.
    checkDirectFB(m_surface->FillRectangle(m_surface, x, y, w + 1, h + 1),
                  "m_surface->FillRectangle(m_surface,x,y,w+1,h+1)");

    const int Xcenter = x + w / 2;
    const int Ycenter = y + (h - m_font_height) / 2;
    VKB_LOGF(LogDetail, "[%d/%d-%d/%d-%s] \n", x, y, w, h, key.text.c_str());
    setColour(kText, "m_surface->SetColor(m_surface,ARGB_R(font_c),ARGB_G(font_c),"
                     "ARGB_B(font_c),ARGB_A(font_c))");
    checkDirectFB(
        m_surface->DrawString(m_surface, key.text.c_str(), -1, Xcenter, Ycenter, DSTF_TOPCENTER),
        "m_surface->DrawString(m_surface,key.text.c_str(),-1,Xcenter,"
        "Ycenter,DSTF_TOPCENTER)");

    drawLines(key.rect, look);
}

void KeyBoardUI::drawLines(const Rect_t& rect, const KeyLook& look)
{
    setColour(look.line_c, "m_surface->SetColor(m_surface,ARGB_R(line_c),ARGB_G(line_c),"
                           "ARGB_B(line_c),ARGB_A(line_c))");
    for (const EdgeLine& line : look.lines) {
        const DFBRegion end = ends(line, rect);
        checkDirectFB(m_surface->DrawLine(m_surface, end.x1, end.y1, end.x2, end.y2), line.text);
    }
}

void KeyBoardUI::flipWhole()
{
    checkDirectFB(m_surface->Flip(m_surface, nullptr, DSFLIP_WAITFORSYNC),
                  "m_surface->Flip (m_surface, NULL, DSFLIP_WAITFORSYNC)");
}

void KeyBoardUI::flipKey(const Rect_t& rect)
{
    const DFBRegion region = {rect.positionX, rect.positionY, rect.positionX + rect.width,
                              rect.positionY + rect.height};
    checkDirectFB(m_surface->Flip(m_surface, &region, DSFLIP_WAITFORSYNC),
                  "m_surface->Flip (m_surface, &region, DSFLIP_WAITFORSYNC)");
}

} // namespace vkb
} // namespace browser
} // namespace velmora
