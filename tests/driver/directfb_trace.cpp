// Preloaded into the test driver: writes the DirectFB calls with which it opens its display to
// standard output, one line each, and lets one of them fail:
//
//   VKB_TEST_FAIL="CreateWindow 1"   the first CreateWindow returns DFB_FAILURE undone
//
// The calls themselves are made on the real DirectFB.

#include <cinttypes>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include <directfb.h>
#include <dlfcn.h>
#include <unistd.h>

namespace
{

// The real functions. All interfaces of one kind have the same.
DFBResult (*g_get_display_layer)(IDirectFB*, DFBDisplayLayerID, IDirectFBDisplayLayer**);
DirectResult (*g_release)(IDirectFB*);
DirectResult (*g_layer_release)(IDirectFBDisplayLayer*);
DFBResult (*g_set_level)(IDirectFBDisplayLayer*, DFBDisplayLayerCooperativeLevel);
DFBResult (*g_create_window)(IDirectFBDisplayLayer*, const DFBWindowDescription*,
                             IDirectFBWindow**);
DFBResult (*g_get_surface)(IDirectFBWindow*, IDirectFBSurface**);
DFBResult (*g_set_opacity)(IDirectFBWindow*, uint8_t);
DFBResult (*g_request_focus)(IDirectFBWindow*);
DFBResult (*g_raise_to_top)(IDirectFBWindow*);

// Writes the line at once, so that it keeps its place among the log lines. Returns whether the
// call is the one that is to fail.
__attribute__((format(printf, 2, 3))) bool trace(const char* call, const char* format, ...)
{
    static std::map<std::string, int> counts;
    const std::string name = std::string(call) + " " + std::to_string(++counts[call]);

    char arguments[256];
    va_list list;
    va_start(list, format);
    std::vsnprintf(arguments, sizeof arguments, format, list);
    va_end(list);
    const std::string line = std::string("dfb ") + call + arguments + "\n";
    if (::write(STDOUT_FILENO, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        std::abort();

    const char* failing = std::getenv("VKB_TEST_FAIL");
    return failing != nullptr && name == failing;
}

template <typename Function> void replace(Function& slot, Function& real, Function traced)
{
    if (slot == traced)
        return;
    real = slot;
    slot = traced;
}

DFBResult getSurface(IDirectFBWindow* window, IDirectFBSurface** surface)
{
    return trace("GetSurface", "%s", "") ? DFB_FAILURE : g_get_surface(window, surface);
}

DFBResult setOpacity(IDirectFBWindow* window, uint8_t opacity)
{
    return trace("SetOpacity", " 0x%02X", opacity) ? DFB_FAILURE : g_set_opacity(window, opacity);
}

DFBResult requestFocus(IDirectFBWindow* window)
{
    return trace("RequestFocus", "%s", "") ? DFB_FAILURE : g_request_focus(window);
}

DFBResult raiseToTop(IDirectFBWindow* window)
{
    return trace("RaiseToTop", "%s", "") ? DFB_FAILURE : g_raise_to_top(window);
}

DFBResult createWindow(IDirectFBDisplayLayer* layer, const DFBWindowDescription* description,
                       IDirectFBWindow** window)
{
    const DFBWindowDescription& d = *description;
    if (trace("CreateWindow",
              " flags 0x%X caps %u size %ux%u at %d,%d stacking %d; not flagged: format 0x%08X "
              "surface caps 0x%X",
              static_cast<unsigned int>(d.flags), static_cast<unsigned int>(d.caps), d.width,
              d.height, d.posx, d.posy, static_cast<int>(d.stacking),
              static_cast<unsigned int>(d.pixelformat), static_cast<unsigned int>(d.surface_caps)))
        return DFB_FAILURE;

    const DFBResult result = g_create_window(layer, description, window);
    if (result == DFB_OK) {
        replace((*window)->GetSurface, g_get_surface, getSurface);
        replace((*window)->SetOpacity, g_set_opacity, setOpacity);
        replace((*window)->RequestFocus, g_request_focus, requestFocus);
        replace((*window)->RaiseToTop, g_raise_to_top, raiseToTop);
    }
    return result;
}

DFBResult setLevel(IDirectFBDisplayLayer* layer, DFBDisplayLayerCooperativeLevel level)
{
    return trace("SetCooperativeLevel", " %d", static_cast<int>(level)) ? DFB_FAILURE
                                                                        : g_set_level(layer, level);
}

DirectResult releaseLayer(IDirectFBDisplayLayer* layer)
{
    trace("layer Release", "%s", "");
    return g_layer_release(layer);
}

DFBResult getDisplayLayer(IDirectFB* dfb, DFBDisplayLayerID id, IDirectFBDisplayLayer** layer)
{
    if (trace("GetDisplayLayer", " %u", static_cast<unsigned int>(id)))
        return DFB_FAILURE;
    const DFBResult result = g_get_display_layer(dfb, id, layer);
    if (result == DFB_OK) {
        replace((*layer)->SetCooperativeLevel, g_set_level, setLevel);
        replace((*layer)->CreateWindow, g_create_window, createWindow);
        replace((*layer)->Release, g_layer_release, releaseLayer);
    }
    return result;
}

DirectResult release(IDirectFB* dfb)
{
    trace("dfb Release", "%s", "");
    return g_release(dfb);
}

} // namespace

extern "C" {

DFBResult DirectFBInit(int* argc, char*** argv)
{
    if (trace("DirectFBInit", " %d", *argc))
        return DFB_FAILURE;
    const auto real = reinterpret_cast<decltype(&DirectFBInit)>(dlsym(RTLD_NEXT, "DirectFBInit"));
    const DFBResult result = real(argc, argv);
    trace("DirectFBInit left", " %d", *argc);
    return result;
}

DFBResult DirectFBCreate(IDirectFB** dfb)
{
    if (trace("DirectFBCreate", "%s", ""))
        return DFB_FAILURE;
    const auto real =
        reinterpret_cast<decltype(&DirectFBCreate)>(dlsym(RTLD_NEXT, "DirectFBCreate"));
    const DFBResult result = real(dfb);
    if (result == DFB_OK) {
        replace((*dfb)->GetDisplayLayer, g_get_display_layer, getDisplayLayer);
        replace((*dfb)->Release, g_release, release);
    }
    return result;
}
}
