// Draws in the keyboard's looks: its background, its keys and its focus frame.
#include "candidate_bar.h"

#include <algorithm>

#include "keyboard_constants.h"

#include "screen.h"

namespace host
{

using velmora::browser::vkb::kWindowX;
using velmora::browser::vkb::kWindowY;

namespace
{

// Greys.
const u8 kBackground = 0x1E;
const u8 kFill = 0x32;
const u8 kFocusFill = 0x64; // as a key below the bar keeps the keyboard's own focus frame
const u8 kShadow = 0x0A;
const u8 kPaleText = 0xB0;
const u8 kText = 0xFF;

// Pixels. A page of the most letters, in nine candidates and with both arrows, just fits.
const int kSmallSize = 20;
const int kLargeSize = 28;
const int kPreeditTop = 2;
const int kKeyTop = 32;
const int kKeyHeight = 48;
const int kPadding = 9;
const int kNumberGap = 4;
const int kGap = 3;
const int kArrowWidth = 24;

void setGrey(IDirectFBSurface* surface, u8 grey)
{
    surface->SetColor(surface, grey, grey, grey, 0xFF);
}

int widthOf(IDirectFBFont* font, const std::string& text)
{
    int width = 0;
    font->GetStringWidth(font, text.c_str(), -1, &width);
    return width;
}

int middleOf(IDirectFBFont* font)
{
    int height = 0;
    font->GetHeight(font, &height);
    return kKeyTop + (kKeyHeight - height) / 2;
}

void write(IDirectFBSurface* surface, IDirectFBFont* font, const std::string& text, int x, int y)
{
    surface->SetFont(surface, font);
    surface->DrawString(surface, text.c_str(), -1, x, y, DSTF_TOPLEFT);
}

void frame(IDirectFBSurface* surface, const DFBRectangle& key, bool isFocused)
{
    const int right = key.x + key.w;
    const int bottom = key.y + key.h;
    setGrey(surface, isFocused ? kText : kShadow);
    surface->DrawLine(surface, right, key.y, right, bottom);
    surface->DrawLine(surface, key.x, bottom, right, bottom);
    if (!isFocused)
        return;
    surface->DrawLine(surface, key.x, key.y, right, key.y);
    surface->DrawLine(surface, key.x, key.y, key.x, bottom);
}

} // namespace

CandidateBar::CandidateBar(const Screen& screen, const std::string& font, int width)
    : m_screen(screen), m_width(width), m_small(loadFont(screen.directFB(), font, kSmallSize)),
      m_large(loadFont(screen.directFB(), font, kLargeSize))
{
}

void CandidateBar::show(const input_methods::Answer& answer, int focus)
{
    if (m_window == nullptr)
        openWindow();
    m_surface->Clear(m_surface, kBackground, kBackground, kBackground, 0xFF);
    setGrey(m_surface, kText);
    write(m_surface, m_small, answer.preedit, kArrowWidth + kPadding, kPreeditTop);
    if (answer.hasPrevious)
        drawArrow("\u2190", 0);
    int x = kArrowWidth;
    for (size_t i = 0; i < answer.candidates.size(); ++i) {
        const int index = static_cast<int>(i);
        drawCandidate(answer.candidates[i], index + 1, index == focus, x);
    }
    if (answer.hasNext)
        drawArrow("\u2192", m_width - kArrowWidth);
    require(m_surface->Flip(m_surface, nullptr, DSFLIP_WAITFORSYNC), "Flip");
    if (!m_is_shown) {
        m_window->SetOpacity(m_window, 0xFF);
        m_window->RaiseToTop(m_window);
    }
    m_is_shown = true;
}

void CandidateBar::hide()
{
    if (m_is_shown)
        m_window->SetOpacity(m_window, 0);
    m_is_shown = false;
}

void CandidateBar::openWindow()
{
    DFBWindowDescription description = {};
    description.flags = static_cast<DFBWindowDescriptionFlags>(
        DWDESC_CAPS | DWDESC_WIDTH | DWDESC_HEIGHT | DWDESC_POSX | DWDESC_POSY | DWDESC_STACKING);
    description.caps =
        static_cast<DFBWindowCapabilities>(DWCAPS_ALPHACHANNEL | DWCAPS_DOUBLEBUFFER);
    description.width = static_cast<unsigned int>(m_width);
    description.height = kHeight;
    description.posx = kWindowX;
    description.posy = kWindowY - kHeight;
    description.stacking = DWSC_UPPER;
    IDirectFBDisplayLayer* layer = m_screen.layer();
    require(layer->CreateWindow(layer, &description, &m_window), "CreateWindow");
    require(m_window->GetSurface(m_window, &m_surface), "GetSurface");
}

// A candidate that is wider than the bar loses its end behind the right arrow.
void CandidateBar::drawCandidate(const std::string& text, int number, bool isFocused, int& x)
{
    const std::string digit = std::to_string(number);
    const int numberWidth = widthOf(m_small, digit);
    const int room = m_width - kArrowWidth - kGap - x;
    const int wanted = 2 * kPadding + numberWidth + kNumberGap + widthOf(m_large, text);
    const DFBRectangle key = {x, kKeyTop, std::min(wanted, room), kKeyHeight};
    if (key.w <= 0)
        return;

    setGrey(m_surface, isFocused ? kFocusFill : kFill);
    m_surface->FillRectangle(m_surface, key.x, key.y, key.w + 1, key.h + 1);
    const DFBRegion inside = {key.x, key.y, key.x + key.w - 1, key.y + key.h - 1};
    m_surface->SetClip(m_surface, &inside);
    setGrey(m_surface, kPaleText);
    write(m_surface, m_small, digit, key.x + kPadding, middleOf(m_small));
    setGrey(m_surface, kText);
    write(m_surface, m_large, text, key.x + kPadding + numberWidth + kNumberGap, middleOf(m_large));
    m_surface->SetClip(m_surface, nullptr);
    frame(m_surface, key, isFocused);
    x += key.w + kGap;
}

void CandidateBar::drawArrow(const char* arrow, int x)
{
    setGrey(m_surface, kText);
    write(m_surface, m_large, arrow, x + (kArrowWidth - widthOf(m_large, arrow)) / 2,
          middleOf(m_large));
}

} // namespace host
