#include "screen.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <sys/shm.h>
#include <unistd.h>

#include "keyboard_constants.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

const char kPackagedFont[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

bool exists(const char* file)
{
    return ::access(file, R_OK) == 0;
}

// DirectFB's pictures on X11 are shared memory, which outlives the process until somebody removes
// it: DirectFB in its Release, which is not called here (see Screen).
void removeSharedMemory()
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        std::string addresses, rights, offset, device, path;
        int number = 0; // of the memory, in the inode's place
        std::istringstream(line) >> addresses >> rights >> offset >> device >> number >> path;
        shmid_ds memory = {};
        if (path.rfind("/SYSV", 0) == 0 && ::shmctl(number, IPC_STAT, &memory) == 0 &&
            memory.shm_cpid == ::getpid())
            ::shmctl(number, IPC_RMID, nullptr);
    }
}

} // namespace

void require(DFBResult result, const char* call)
{
    if (result != DFB_OK)
        DirectFBErrorFatal(call, result);
}

Screen::Screen(const Option* options)
{
    // Without arguments it would look for the process's own and write them down.
    char name[] = "host";
    char* arguments[] = {name, nullptr};
    char** argv = arguments;
    int argc = 1;
    require(DirectFBInit(&argc, &argv), "DirectFBInit");
    for (const Option* option = options; option->name != nullptr; ++option)
        require(DirectFBSetOption(option->name, option->value), option->name);
    require(DirectFBCreate(&m_dfb), "DirectFBCreate");
    require(m_dfb->GetDisplayLayer(m_dfb, DLID_PRIMARY, &m_layer), "GetDisplayLayer");
    require(m_layer->SetCooperativeLevel(m_layer, DLSCL_ADMINISTRATIVE), "SetCooperativeLevel");
    require(m_layer->GetSurface(m_layer, &m_shown), "GetSurface");
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
    require(m_dfb->CreateSurface(m_dfb, &description, &surface), "CreateSurface");
    return surface;
}

Picture Screen::picture(const DFBRectangle& area) const
{
    IDirectFBSurface* copy = createSurface(area.w, area.h);
    require(copy->Blit(copy, m_shown, &area, 0, 0), "Blit");
    Picture picture = pictureOf(copy);
    copy->Release(copy);
    return picture;
}

IDirectFBSurface* Screen::copy() const
{
    DFBRectangle area = {};
    require(m_shown->GetSize(m_shown, &area.w, &area.h), "GetSize");
    IDirectFBSurface* copy = createSurface(area.w, area.h);
    require(copy->Blit(copy, m_shown, &area, 0, 0), "Blit");
    return copy;
}

void endProcess(int status)
{
    removeSharedMemory();
    std::fflush(nullptr);
    std::_Exit(status);
}

Picture pictureOf(IDirectFBSurface* surface)
{
    Picture picture;
    require(surface->GetSize(surface, &picture.width, &picture.height), "GetSize");
    picture.rgba.reserve(static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height) *
                         4);

    void* data = nullptr;
    int bytesPerRow = 0;
    require(surface->Lock(surface, DSLF_READ, &data, &bytesPerRow), "Lock");
    for (int y = 0; y < picture.height; ++y) {
        const uint32_t* pixels = reinterpret_cast<const uint32_t*>(
            static_cast<const uint8_t*>(data) + static_cast<ptrdiff_t>(y) * bytesPerRow);
        for (int x = 0; x < picture.width; ++x) {
            for (const int shift : {16, 8, 0})
                picture.rgba.push_back(static_cast<uint8_t>(pixels[x] >> shift));
            picture.rgba.push_back(0xFF);
        }
    }
    require(surface->Unlock(surface), "Unlock");
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
    return std::string(kCatalogueFile) +
           ": found no layouts, expected a catalogue that lists them; `make install` puts it there, "
           "scripts/with-layouts COMMAND runs without";
}

IDirectFBFont* loadFont(IDirectFB* dfb, const std::string& file, int size)
{
    DFBFontDescription description = {};
    description.flags = DFDESC_HEIGHT;
    description.height = size;
    IDirectFBFont* font = nullptr;
    require(dfb->CreateFont(dfb, file.c_str(), &description, &font), file.c_str());
    return font;
}

std::string chooseFont()
{
    const char* chosen = std::getenv(kFontVariable);
    if (chosen != nullptr)
        return exists(chosen) ? chosen : "";
    if (exists(kDefaultFont))
        return kDefaultFont;
    if (!exists(kPackagedFont))
        return "";
    ::setenv(kFontVariable, kPackagedFont, 1);
    return kPackagedFont;
}

} // namespace host
