// Draws the remote control: a body, a ring with four arrows around OK, and Back.
#include "remote_picture.h"

#include <cmath>

#include "colors.h"
#include "keyboard_constants.h"
#include "screen.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

const int kFontSize = 28;
const int kBodyRadius = 56;
const int kMiddle = 110; // from the left: of the ring, OK and Back
const int kRingY = 154;
const int kRingRadius = 98;
const int kArrowDistance = 68; // from the ring's centre
const int kArrowRadius = 28;
const int kOkRadius = 36;
const int kBackY = 362;
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

void disc(IDirectFBSurface* surface, int x, int y, int radius)
{
    for (int dy = -radius; dy <= radius; ++dy) {
        const int half = static_cast<int>(std::lround(std::sqrt(radius * radius - dy * dy)));
        surface->FillRectangle(surface, x - half, y + dy, 2 * half + 1, 1);
    }
}

void body(IDirectFBSurface* surface)
{
    const int right = RemotePicture::kWidth - 1 - kBodyRadius;
    const int bottom = RemotePicture::kHeight - 1 - kBodyRadius;
    for (const int x : {kBodyRadius, right})
        for (const int y : {kBodyRadius, bottom})
            disc(surface, x, y, kBodyRadius);
    surface->FillRectangle(surface, kBodyRadius, 0, right - kBodyRadius + 1,
                           RemotePicture::kHeight);
    surface->FillRectangle(surface, 0, kBodyRadius, RemotePicture::kWidth,
                           bottom - kBodyRadius + 1);
}

void arrow(IDirectFBSurface* surface, const Arrow& arrow, bool lit)
{
    const int x = kMiddle + arrow.dx * kArrowDistance;
    const int y = kRingY + arrow.dy * kArrowDistance;
    if (lit) {
        setColor(surface, kLight);
        disc(surface, x, y, kArrowRadius);
    }
    const int along = 12;
    const int across = 14;
    setColor(surface, lit ? kDark : kWhite);
    surface->FillTriangle(
        surface, x + arrow.dx * along, y + arrow.dy * along,
        x - arrow.dx * along + arrow.dy * across, y - arrow.dy * along + arrow.dx * across,
        x - arrow.dx * along - arrow.dy * across, y - arrow.dy * along - arrow.dx * across);
}

void labelled(IDirectFBSurface* surface, int y, int radius, const char* label, bool lit)
{
    setColor(surface, lit ? kLight : kKey);
    disc(surface, kMiddle, y, radius);
    setColor(surface, lit ? kDark : kWhite);
    surface->DrawString(surface, label, -1, kMiddle, y - kFontSize * 5 / 8, DSTF_TOPCENTER);
}

} // namespace

RemotePicture::RemotePicture(IDirectFB* dfb, const std::string& font)
    : m_font(loadFont(dfb, font, kFontSize))
{
}

void RemotePicture::draw(IDirectFBSurface* screen, const RemoteKey& pressed) const
{
    const int code = pressed.meaning == RemoteKey::ForKeyboard ? pressed.keyCode : 0;
    IDirectFBSurface* surface = nullptr;
    const DFBRectangle area = {kLeft, kTop, kWidth, kHeight};
    require(screen->GetSubSurface(screen, &area, &surface), "GetSubSurface");
    surface->SetFont(surface, m_font);
    setColor(surface, kBody);
    body(surface);
    setColor(surface, kRingColor);
    disc(surface, kMiddle, kRingY, kRingRadius);
    for (const Arrow& each : kArrows)
        arrow(surface, each, code == each.keyCode);
    labelled(surface, kRingY, kOkRadius, "OK", code == RemoteOk);
    labelled(surface, kBackY, kBackRadius, "Back", pressed.meaning == RemoteKey::Back);
    surface->Release(surface);
}

} // namespace host
