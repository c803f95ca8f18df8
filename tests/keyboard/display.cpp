#include "display.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>

#include "window_description.h"

namespace
{

// More windows than any test opens.
const DFBWindowID kHighestWindow = 32;

void require(DFBResult result, const std::string& call)
{
    if (result != DFB_OK)
        throw std::runtime_error(call + ": " + DirectFBErrorString(result));
}

} // namespace

void prepareDisplay()
{
    setenv("DFBARGS", "system=dummy,mode=1920x1080,quiet,no-cursor", 1);
    setenv("CSP_DEBUG_LEVEL", "0", 1);
}

Display::Display()
{
    prepareDisplay();
    // Without arguments of its own, DirectFB would take the test program's.
    int argc = 0;
    char** argv = nullptr;
    require(DirectFBInit(&argc, &argv), "DirectFBInit");
    require(DirectFBCreate(&m_dfb), "DirectFBCreate");
    require(m_dfb->GetDisplayLayer(m_dfb, DLID_PRIMARY, &m_layer), "GetDisplayLayer");
    require(m_layer->SetCooperativeLevel(m_layer, DLSCL_ADMINISTRATIVE), "SetCooperativeLevel");
}

IDirectFBSurface* Display::newWindow(int width, int height)
{
    const DFBWindowDescription description =
        velmora::browser::vkb::windowDescription(0, 0, width, height);
    IDirectFBWindow* window = nullptr;
    IDirectFBSurface* surface = nullptr;
    require(m_layer->CreateWindow(m_layer, &description, &window), "CreateWindow");
    require(window->GetSurface(window, &surface), "GetSurface");
    return surface;
}

IDirectFBSurface* Display::newestWindow()
{
    IDirectFBWindow* newest = nullptr;
    for (DFBWindowID id = 0; id <= kHighestWindow; ++id) {
        IDirectFBWindow* window = nullptr;
        if (m_layer->GetWindow(m_layer, id, &window) == DFB_OK)
            newest = window;
    }
    if (newest == nullptr)
        throw std::runtime_error("no window is open, expected the keyboard's");

    IDirectFBSurface* surface = nullptr;
    require(newest->GetSurface(newest, &surface), "GetSurface");
    return surface;
}

test_support::Picture shownOn(IDirectFBSurface* surface)
{
    test_support::Picture picture;
    require(surface->GetSize(surface, &picture.width, &picture.height), "GetSize");
    DFBSurfacePixelFormat format = DSPF_UNKNOWN;
    require(surface->GetPixelFormat(surface, &format), "GetPixelFormat");
    if (format != DSPF_ARGB)
        throw std::runtime_error("surface: expected the pixel format ARGB");

    void* data = nullptr;
    int pitch = 0;
    require(surface->Lock(surface, DSLF_READ, &data, &pitch), "Lock");
    const size_t row = static_cast<size_t>(picture.width);
    picture.pixels.resize(row * static_cast<size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(&picture.pixels[row * static_cast<size_t>(y)],
                    static_cast<const char*>(data) + static_cast<ptrdiff_t>(y) * pitch,
                    row * sizeof(uint32_t));
    require(surface->Unlock(surface), "Unlock");
    return picture;
}

void expectShown(const char* picture, IDirectFBSurface* surface)
{
    if (picture == nullptr)
        EXPECT_THAT(shownOn(surface).pixels, testing::Each(0u));
    else
        EXPECT_PICTURE(picture, shownOn(surface));
}
