// Linked by test programs on real DirectFB, and loaded with LD_PRELOAD into the programs that they
// start. The keyboard never releases the fonts of earlier reloads, nor the windows and surfaces
// that it or its driver opened: they stay for the life of the process, as they are to. This
// remembers whatever is made through DirectFB, so that a leak checker sees it as kept and reports
// only what else is lost. That released objects are released, the recording display tells.

#include <vector>

#include <directfb.h>
#include <dlfcn.h>

namespace
{

// DirectFB's objects are tables of functions: each slot replaced here calls the one that was
// there before. All objects of one kind have the same.
decltype(IDirectFB::GetDisplayLayer) g_get_display_layer;
decltype(IDirectFB::CreateFont) g_create_font;
decltype(IDirectFBDisplayLayer::CreateWindow) g_create_window;
decltype(IDirectFBDisplayLayer::GetWindow) g_get_window;
decltype(IDirectFBWindow::GetSurface) g_get_surface;

template <class Function> void replace(Function& slot, Function& real, Function keeping)
{
    if (slot == keeping)
        return;
    real = slot;
    slot = keeping;
}

// Never freed: leak checkers look after the last destructor.
void keep(void* object)
{
    static std::vector<void*>* const kept = new std::vector<void*>;
    kept->push_back(object);
}

DFBResult getSurface(IDirectFBWindow* window, IDirectFBSurface** surface)
{
    const DFBResult result = g_get_surface(window, surface);
    if (result == DFB_OK)
        keep(*surface);
    return result;
}

void keepWindow(IDirectFBWindow* window)
{
    replace(window->GetSurface, g_get_surface, getSurface);
    keep(window);
}

DFBResult createWindow(IDirectFBDisplayLayer* layer, const DFBWindowDescription* wanted,
                       IDirectFBWindow** window)
{
    const DFBResult result = g_create_window(layer, wanted, window);
    if (result == DFB_OK)
        keepWindow(*window);
    return result;
}

DFBResult getWindow(IDirectFBDisplayLayer* layer, DFBWindowID id, IDirectFBWindow** window)
{
    const DFBResult result = g_get_window(layer, id, window);
    if (result == DFB_OK)
        keepWindow(*window);
    return result;
}

DFBResult getDisplayLayer(IDirectFB* dfb, DFBDisplayLayerID id, IDirectFBDisplayLayer** layer)
{
    const DFBResult result = g_get_display_layer(dfb, id, layer);
    if (result != DFB_OK)
        return result;
    replace((*layer)->CreateWindow, g_create_window, createWindow);
    replace((*layer)->GetWindow, g_get_window, getWindow);
    keep(*layer);
    return result;
}

DFBResult createFont(IDirectFB* dfb, const char* path, const DFBFontDescription* wanted,
                     IDirectFBFont** font)
{
    const DFBResult result = g_create_font(dfb, path, wanted, font);
    if (result == DFB_OK)
        keep(*font);
    return result;
}

} // namespace

extern "C" DFBResult DirectFBCreate(IDirectFB** dfb)
{
    const auto real =
        reinterpret_cast<decltype(&DirectFBCreate)>(::dlsym(RTLD_NEXT, "DirectFBCreate"));
    const DFBResult result = real(dfb);
    if (result != DFB_OK)
        return result;
    replace((*dfb)->GetDisplayLayer, g_get_display_layer, getDisplayLayer);
    replace((*dfb)->CreateFont, g_create_font, createFont);
    keep(*dfb);
    return result;
}
