#include "screen.h"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

#include "directfb_check.h"

namespace host
{

using velmora::browser::vkb::checkDirectFB;

namespace
{

const char kFontVariable[] = "VIRTUAL_KEYBOARD_FONT_PATH";
const char kTelevisionFont[] = "/usr/local/opt/font/TarvoL2700.ttf";
const char kPackagedFont[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

bool exists(const char* file)
{
    return ::access(file, R_OK) == 0;
}

} // namespace

Screen::Screen(const Option* options)
{
    // Without arguments it would look for the process's own and write them down.
    char name[] = "host";
    char* arguments[] = {name, nullptr};
    char** argv = arguments;
    int argc = 1;
    checkDirectFB(DirectFBInit(&argc, &argv), "DirectFBInit");
    for (const Option* option = options; option->name != nullptr; ++option)
        checkDirectFB(DirectFBSetOption(option->name, option->value), option->name);
    checkDirectFB(DirectFBCreate(&m_dfb), "DirectFBCreate");
    checkDirectFB(m_dfb->GetDisplayLayer(m_dfb, DLID_PRIMARY, &m_layer), "GetDisplayLayer");
    checkDirectFB(m_layer->SetCooperativeLevel(m_layer, DLSCL_ADMINISTRATIVE),
                  "SetCooperativeLevel");
    checkDirectFB(m_layer->GetSurface(m_layer, &m_shown), "GetSurface");
}

IDirectFBSurface* Screen::createSurface(int width, int height) const
{
    DFBSurfaceDescription description = {};
    description.flags =
        static_cast<DFBSurfaceDescriptionFlags>(DSDESC_WIDTH | DSDESC_HEIGHT | DSDESC_PIXELFORMAT);
    description.width = width;
    description.height = height;
    description.pixelformat = DSPF_ARGB;
    IDirectFBSurface* surface = nullptr;
    checkDirectFB(m_dfb->CreateSurface(m_dfb, &description, &surface), "CreateSurface");
    return surface;
}

Picture Screen::picture(const DFBRectangle& area) const
{
    IDirectFBSurface* copy = createSurface(area.w, area.h);
    checkDirectFB(copy->Blit(copy, m_shown, &area, 0, 0), "Blit");
    Picture picture = pictureOf(copy);
    copy->Release(copy);
    return picture;
}

void endProcess(int status)
{
    std::fflush(nullptr);
    std::_Exit(status);
}

Picture pictureOf(IDirectFBSurface* surface)
{
    Picture picture;
    checkDirectFB(surface->GetSize(surface, &picture.width, &picture.height), "GetSize");
    picture.rgba.reserve(static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height) *
                         4);

    void* data = nullptr;
    int bytesPerRow = 0;
    checkDirectFB(surface->Lock(surface, DSLF_READ, &data, &bytesPerRow), "Lock");
    for (int y = 0; y < picture.height; ++y) {
        const uint32_t* pixels = reinterpret_cast<const uint32_t*>(
            static_cast<const uint8_t*>(data) + static_cast<ptrdiff_t>(y) * bytesPerRow);
        for (int x = 0; x < picture.width; ++x) {
            for (const int shift : {16, 8, 0})
                picture.rgba.push_back(static_cast<uint8_t>(pixels[x] >> shift));
            picture.rgba.push_back(0xFF);
        }
    }
    checkDirectFB(surface->Unlock(surface), "Unlock");
    return picture;
}

std::string noFontMessage()
{
    return std::string(kFontVariable) +
           ": found no font file, expected the path of a TrueType font; install the package "
           "fonts-dejavu-core or set another";
}

std::string noLayoutsMessage()
{
    return "/usr/local/opt/nerovista/resources/oskeyboard_config/Language_Name.json: found no "
           "layouts, expected a catalogue that lists them; `make install` puts it there, "
           "scripts/with-layouts COMMAND runs without";
}

IDirectFBFont* loadFont(IDirectFB* dfb, const std::string& file, int size)
{
    DFBFontDescription description = {};
    description.flags = DFDESC_HEIGHT;
    description.height = size;
    IDirectFBFont* font = nullptr;
    checkDirectFB(dfb->CreateFont(dfb, file.c_str(), &description, &font), file.c_str());
    return font;
}

std::string chooseFont()
{
    const char* chosen = std::getenv(kFontVariable);
    if (chosen != nullptr)
        return exists(chosen) ? chosen : "";
    if (exists(kTelevisionFont))
        return kTelevisionFont;
    if (!exists(kPackagedFont))
        return "";
    ::setenv(kFontVariable, kPackagedFont, 1);
    return kPackagedFont;
}

} // namespace host
