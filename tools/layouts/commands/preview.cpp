// Draws the four faces of a layout with the keyboard's own renderer.
#include "preview.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <vector>

#include <directfb.h>
#include <png.h>

#include "catalogue.h"
#include "key_map.h"
#include "keyboard_ui.h"

namespace layouts
{
namespace
{

using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardUI;

constexpr int kFontSize = 30;
constexpr int kCaptionHeight = 64; // pixels above each face
constexpr int kCaptionSize = 32;

// How the viewer comes to each of kFaces.
constexpr const char* kCaptions[] = {"1   Default", "2   Shift", "3   Alt", "4   Alt and Shift"};

struct Picture {
    int width;
    int height;
    std::vector<uint32_t> pixels; // ARGB

    Picture(int w, int h) : width(w), height(h), pixels(size_t(w) * size_t(h), 0xFF000000u) {}
    uint32_t* line(int y) { return &pixels[size_t(y) * size_t(width)]; }
};

void require(DFBResult result, const char* what)
{
    if (result != DFB_OK)
        throw std::runtime_error(std::string("DirectFB: ") + what + ": " +
                                 DirectFBErrorString(result));
}

// A display without a screen; the renderer's log lines are switched off.
IDirectFB* startDirectFB()
{
    setenv("DFBARGS", "system=dummy,mode=1920x1080,quiet,no-cursor,no-sighandler", 1);
    setenv("CSP_DEBUG_LEVEL", "0", 1);
    IDirectFB* dfb = nullptr;
    char name[] = "layouts";
    char* arguments[] = {name, nullptr};
    char** argv = arguments;
    int argc = 1;
    require(DirectFBInit(&argc, &argv), "start");
    require(DirectFBCreate(&dfb), "start");
    return dfb;
}

std::vector<Button_t> buttonsOf(const KeyMap& keyMap, const Face& face, const Catalogue& catalogue)
{
    const int pitchX = catalogue.gapX + catalogue.cellWidth;
    const int pitchY = catalogue.gapY + catalogue.cellHeight;
    const std::vector<Key>& keys = keysOf(keyMap, face);
    std::vector<Button_t> buttons;
    for (size_t i = 0; i < keys.size() && i < catalogue.cells.size(); ++i) {
        const Cell& cell = catalogue.cells[i];
        Button_t button = {};
        button.text = legendOf(keys[i], face).text;
        button.rect = {static_cast<int16_t>(catalogue.gapX + cell.column * pitchX),
                       static_cast<int16_t>(catalogue.gapY + cell.row * pitchY),
                       static_cast<int16_t>(keyWidth(catalogue, cell)),
                       static_cast<int16_t>(keyHeight(catalogue, cell))};
        button.id = static_cast<int32_t>(i);
        buttons.push_back(button);
    }
    return buttons;
}

// The keys that are down when this face is on the screen.
std::vector<Button_t> lockedOf(const std::vector<Button_t>& buttons, const Face& face)
{
    std::vector<Button_t> locked;
    for (const Button_t& button : buttons)
        if ((face.shifted && button.text == "Shift") || (face.symbol && button.text == "Alt"))
            locked.push_back(button);
    return locked;
}

void copy(IDirectFBSurface* surface, Picture& picture, int y, int height)
{
    void* data = nullptr;
    int pitch = 0; // bytes
    require(surface->Lock(surface, DSLF_READ, &data, &pitch), "reading the picture");
    for (int line = 0; line < height; ++line)
        std::memcpy(picture.line(y + line),
                    static_cast<const char*>(data) + size_t(line) * size_t(pitch),
                    size_t(picture.width) * sizeof(uint32_t));
    surface->Unlock(surface);
}

IDirectFBSurface* createSurface(IDirectFB* dfb, int width, int height)
{
    DFBSurfaceDescription description = {};
    description.flags = static_cast<DFBSurfaceDescriptionFlags>(DSDESC_CAPS | DSDESC_WIDTH |
                                                                DSDESC_HEIGHT | DSDESC_PIXELFORMAT);
    description.caps = DSCAPS_DOUBLE;
    description.width = width;
    description.height = height;
    description.pixelformat = DSPF_ARGB;
    IDirectFBSurface* surface = nullptr;
    require(dfb->CreateSurface(dfb, &description, &surface), "a surface");
    return surface;
}

void drawCaption(IDirectFB* dfb, const char* caption, int left, const std::string& fontFile,
                 Picture& picture, int y)
{
    DFBFontDescription description = {};
    description.flags = DFDESC_HEIGHT;
    description.height = kCaptionSize;
    IDirectFBFont* font = nullptr;
    require(dfb->CreateFont(dfb, fontFile.c_str(), &description, &font), fontFile.c_str());
    IDirectFBSurface* surface = createSurface(dfb, picture.width, kCaptionHeight);
    surface->Clear(surface, 0, 0, 0, 0xFF);
    surface->SetColor(surface, 0xFF, 0xC8, 0x3C, 0xFF);
    surface->SetFont(surface, font);
    surface->DrawString(surface, caption, -1, left, (kCaptionHeight - kCaptionSize) / 2,
                        DSTF_TOPLEFT);
    surface->Flip(surface, nullptr, DSFLIP_NONE);
    copy(surface, picture, y, kCaptionHeight);
    surface->Release(surface);
    font->Release(font);
}

void drawFace(IDirectFB* dfb, const KeyMap& keyMap, const Face& face, const Catalogue& catalogue,
              const std::string& fontFile, Picture& picture, int y, int height)
{
    IDirectFBSurface* surface = createSurface(dfb, picture.width, height);
    std::vector<Button_t> buttons = buttonsOf(keyMap, face, catalogue);
    std::vector<Button_t> locked = lockedOf(buttons, face);
    {
        KeyBoardUI ui(dfb, surface);
        ui.setLayoutData(&buttons, kFontSize, fontFile.c_str());
        ui.setLocked(locked);
        copy(surface, picture, y, height);
    }
    surface->Release(surface);
}

void writePng(const Picture& picture, const std::string& file)
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_BGRA; // ARGB in a little-endian word
    if (!png_image_write_to_file(&image, file.c_str(), 0, picture.pixels.data(), 0, nullptr))
        throw std::runtime_error(file + ": cannot be written: " + image.message);
}

} // namespace

void writePreview(const KeyMap& keyMap, const Catalogue& catalogue, const std::string& fontFile,
                  const std::string& pngFile)
{
    const Cell& last = catalogue.cells.back();
    const int width =
        (last.column + last.width) * (catalogue.gapX + catalogue.cellWidth) + catalogue.gapX;
    const int height =
        (last.row + last.height) * (catalogue.gapY + catalogue.cellHeight) + catalogue.gapY;
    Picture picture(width, 4 * (kCaptionHeight + height));
    IDirectFB* dfb = startDirectFB();
    int y = 0;
    const char* const* caption = kCaptions;
    for (const Face& face : kFaces) {
        drawCaption(dfb, *caption++, catalogue.gapX, fontFile, picture, y);
        drawFace(dfb, keyMap, face, catalogue, fontFile, picture, y + kCaptionHeight, height);
        y += kCaptionHeight + height;
    }
    writePng(picture, pngFile);
}

} // namespace layouts
