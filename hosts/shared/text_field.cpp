#include "text_field.h"

#include <algorithm>

#include "screen.h"
#include "text_line.h"

namespace host
{

namespace
{

const int kLabelSize = 24;
const int kTextSize = 40;
const int kMargin = 4;
const int kBoxTop = 40;
const int kBoxHeight = 72;
const int kInset = 16;
const int kCaretWidth = 3;

void fill(IDirectFBSurface* surface, const DFBRectangle& area, u8 grey)
{
    surface->SetColor(surface, grey, grey, grey, 0xFF);
    surface->FillRectangle(surface, area.x, area.y, area.w, area.h);
}

void write(IDirectFBSurface* surface, IDirectFBFont* font, const std::string& text, int x, int y)
{
    surface->SetFont(surface, font);
    surface->DrawString(surface, text.c_str(), -1, x, y, DSTF_TOPLEFT);
}

} // namespace

TextField::TextField(IDirectFB* dfb, const std::string& font, const std::string& label)
    : m_small(loadFont(dfb, font, kLabelSize)), m_large(loadFont(dfb, font, kTextSize)),
      m_label(label)
{
}

int TextField::widthOf(const std::string& text) const
{
    int width = 0;
    m_large->GetStringWidth(m_large, text.c_str(), -1, &width);
    return width;
}

void TextField::draw(IDirectFBSurface* surface, const TextLine& line, int y, bool entered,
                     const std::string& composed) const
{
    int width = 0;
    surface->GetSize(surface, &width, nullptr);
    surface->SetColor(surface, 0xB0, 0xB0, 0xB0, 0xFF);
    write(surface, m_small, m_label, kMargin, y + kMargin);

    const DFBRectangle border = {kMargin, y + kBoxTop, width - 2 * kMargin, kBoxHeight};
    const DFBRectangle box = {border.x + 2, border.y + 2, border.w - 4, border.h - 4};
    fill(surface, border, entered ? 0xF0 : 0x60);
    fill(surface, box, 0x28);

    TextLine shown = line;
    shown.insert(composed);
    const int room = box.w - 2 * kInset - kCaretWidth;
    const int caret = widthOf(shown.beforeCaret());
    const int left = box.x + kInset - std::max(0, caret - room);
    const DFBRegion clip = {box.x + kInset, box.y, box.x + box.w - kInset, box.y + box.h - 1};
    surface->SetClip(surface, &clip);
    surface->SetColor(surface, 0xFF, 0xFF, 0xFF, 0xFF);
    write(surface, m_large, shown.text(), left, box.y + kInset / 2);
    const int composedWidth = composed.empty() ? 0 : widthOf(composed);
    fill(surface, {left + caret - composedWidth, box.y + box.h - kInset, composedWidth, 2}, 0xFF);
    if (entered)
        fill(surface, {left + caret, box.y + kInset / 2, kCaretWidth, box.h - kInset}, 0xFF);
    surface->SetClip(surface, nullptr);
}

} // namespace host
