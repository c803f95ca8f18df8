// Draws the remote control: a body, a ring with four arrows around OK, and Back.
#include "remote_picture.h"

#include <cmath>

#include "keyboard_constants.h"
#include "page_colors.h"
#include "screen.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

const int kFontSize = 28;
const int kBodyRadius = 56;
const DFBPoint kRing = {110, 154};
const int kRingRadius = 98;
const int kArrowDistance = 68; // from the ring's centre
const int kArrowRadius = 28;
const int kOkRadius = 36;
const DFBPoint kBack = {110, 362};
const int kBackRadius = 46;

const Color kBody = {0x2C, 0x34, 0x46};
const Color kKey = {0x46, 0x50, 0x66};
const Color kRingColor = {0x38, 0x42, 0x56};

struct Arrow {
    RemoteKeyCode keyCode;
    int dx, dy; // where it points
};

const Arrow kArrows[] = {
    {RemoteLeft, -1, 0}, {RemoteUp, 0, -1}, {RemoteRight, 1, 0}, {RemoteDown, 0, 1}};

void disc(IDirectFBSurface* surface, const DFBPoint& centre, int radius)
{
    for (int dy = -radius; dy <= radius; ++dy) {
        const int half = static_cast<int>(std::lround(std::sqrt(radius * radius - dy * dy)));
        surface->FillRectangle(surface, centre.x - half, centre.y + dy, 2 * half + 1, 1);
    }
}

void body(IDirectFBSurface* surface)
{
    const int right = RemotePicture::kWidth - 1 - kBodyRadius;
    const int bottom = RemotePicture::kHeight - 1 - kBodyRadius;
    for (const int x : {kBodyRadius, right})
        for (const int y : {kBodyRadius, bottom})
            disc(surface, {x, y}, kBodyRadius);
    surface->FillRectangle(surface, kBodyRadius, 0, right - kBodyRadius + 1,
                           RemotePicture::kHeight);
    surface->FillRectangle(surface, 0, kBodyRadius, RemotePicture::kWidth,
                           bottom - kBodyRadius + 1);
}

void arrow(IDirectFBSurface* surface, const Arrow& arrow, bool lit)
{
    const DFBPoint centre = {kRing.x + arrow.dx * kArrowDistance,
                             kRing.y + arrow.dy * kArrowDistance};
    if (lit) {
        setColor(surface, kLight);
        disc(surface, centre, kArrowRadius);
    }
    const int along = 12;
    const int across = 14;
    setColor(surface, lit ? kDark : kWhite);
    surface->FillTriangle(surface, centre.x + arrow.dx * along, centre.y + arrow.dy * along,
                          centre.x - arrow.dx * along + arrow.dy * across,
                          centre.y - arrow.dy * along + arrow.dx * across,
                          centre.x - arrow.dx * along - arrow.dy * across,
                          centre.y - arrow.dy * along - arrow.dx * across);
}

void labelled(IDirectFBSurface* surface, const DFBPoint& centre, int radius, const char* label,
              bool lit)
{
    setColor(surface, lit ? kLight : kKey);
    disc(surface, centre, radius);
    setColor(surface, lit ? kDark : kWhite);
    surface->DrawString(surface, label, -1, centre.x, centre.y - kFontSize * 5 / 8, DSTF_TOPCENTER);
}

} // namespace

RemotePicture::RemotePicture(IDirectFB* dfb, const std::string& font)
    : m_font(loadFont(dfb, font, kFontSize))
{
}

void RemotePicture::draw(IDirectFBSurface* surface, const RemoteKey& pressed) const
{
    const int code = pressed.meaning == RemoteKey::ForKeyboard ? pressed.keyCode : 0;
    surface->Clear(surface, kPageColor.red, kPageColor.green, kPageColor.blue, 0xFF);
    surface->SetFont(surface, m_font);
    setColor(surface, kBody);
    body(surface);
    setColor(surface, kRingColor);
    disc(surface, kRing, kRingRadius);
    for (const Arrow& each : kArrows)
        arrow(surface, each, code == each.keyCode);
    labelled(surface, kRing, kOkRadius, "OK", code == RemoteOk);
    labelled(surface, kBack, kBackRadius, "Back", pressed.meaning == RemoteKey::Back);
}

} // namespace host
