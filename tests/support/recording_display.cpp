#include "recording_display.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <utility>

#include <dlfcn.h>
#include <malloc.h>

namespace test_support
{

namespace
{

// What hangs behind an interface's priv pointer.
struct Object {
    std::string name;
    int width;  // surfaces and windows
    int height; // fonts too
    bool alive = true;
    IDirectFBSurface* surface = nullptr; // windows
};

template <class Interface> struct Made {
    Made* previous;
    Object object;
    Interface table{};
};

[[noreturn]] void stop(const std::string& why)
{
    const Lines before = takeTrace();
    std::fprintf(stderr, "recording display: %s; known before it: %s\n", why.c_str(),
                 before.empty() ? "nothing" : before.back().c_str());
    std::abort();
}

void refuseUnknownSlot()
{
    stop("a method was called that it does not offer: add it, if the keyboard is to use it");
}

template <class Interface> void refuseEverySlot(Interface& table)
{
    using Slot = void (*)();
    const Slot slot = refuseUnknownSlot;
    char* const end = reinterpret_cast<char*>(&table + 1);
    for (char* at = reinterpret_cast<char*>(&table.AddRef); at + sizeof slot <= end;
         at += sizeof slot)
        std::memcpy(at, &slot, sizeof slot);
}

template <class Interface> Object& objectOf(Interface* table)
{
    return *static_cast<Object*>(table->priv);
}

std::string newName(const std::string& kind)
{
    return kind + std::to_string(++RecordingDisplay::state.numbers[kind]);
}

std::string hex(unsigned int value)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", value);
    return text;
}

// An argument as the lines show it.
std::string asText(int number)
{
    return std::to_string(number);
}

std::string asText(const std::string& text)
{
    return text;
}

std::string asText(IDirectFBFont* font)
{
    return font == nullptr ? "null" : objectOf(font).name;
}

std::string asText(DFBSurfaceFlipFlags flags)
{
    return flags == DSFLIP_NONE ? "NONE" : flags == DSFLIP_WAITFORSYNC ? "WAITFORSYNC" : hex(flags);
}

std::string asText(DFBSurfaceTextFlags flags)
{
    return flags == DSTF_TOPCENTER ? "TOPCENTER" : hex(flags);
}

std::string asText(DFBDisplayLayerCooperativeLevel level)
{
    return level == DLSCL_ADMINISTRATIVE ? "ADMINISTRATIVE" : hex(level);
}

template <class... Arguments> std::string list(const Arguments&... arguments)
{
    std::string text;
    ((text += (text.empty() ? "" : ",") + asText(arguments)), ...);
    return text;
}

// Records one call and tells what it is to return.
template <class Interface, class... Arguments>
DFBResult called(Interface* self, const std::string& method, const Arguments&... arguments)
{
    DisplayState& now = RecordingDisplay::state;
    record(objectOf(self).name + "." + method + "(" + list(arguments...) + ")");

    if (now.callsUntilFailure > 0 && --now.callsUntilFailure == 0)
        return now.failure;
    const auto failing = now.failingMethods.find(method);
    if (failing != now.failingMethods.end())
        return failing->second;
    return objectOf(self).alive ? DFB_OK : DFB_DESTROYED;
}

// Lets a call that goes well give a value.
template <class Value, class Make> DFBResult give(DFBResult result, Value* value, const Make& make)
{
    if (result == DFB_OK)
        *value = make();
    return result;
}

// The interfaces outlive the displays, so they are only ever added to.
template <class Interface> Interface& add(const std::string& name, int width = 0, int height = 0)
{
    static Made<Interface>* newest = nullptr;
    newest = new Made<Interface>{newest, {name, width, height}};
    RecordingDisplay::state.bytesKept +=
        ::malloc_usable_size(newest) + sizeof(size_t); // and the heap's own word
    refuseEverySlot(newest->table);
    newest->table.priv = &newest->object;
    return newest->table;
}

IDirectFBFont* addFont()
{
    IDirectFBFont& font =
        add<IDirectFBFont>(newName("font"), 0, RecordingDisplay::state.fontHeight);
    font.GetHeight = [](auto* self, int* height) {
        return give(called(self, "GetHeight"), height, [self] { return objectOf(self).height; });
    };
    font.Release = [](auto* self) {
        if (!objectOf(self).alive)
            stop(objectOf(self).name + " is released a second time");
        called(self, "Release");
        objectOf(self).alive = false;
        --RecordingDisplay::state.liveFonts;
        return DR_OK;
    };
    ++RecordingDisplay::state.liveFonts;
    return &font;
}

IDirectFBSurface* surfaceOf(Object& window)
{
    if (window.surface == nullptr)
        window.surface = RecordingDisplay::newSurface(window.width, window.height);
    return window.surface;
}

IDirectFBWindow* addWindow(int width, int height)
{
    IDirectFBWindow& window = add<IDirectFBWindow>(newName("window"), width, height);
    window.GetSurface = [](auto* self, auto** surface) {
        return give(called(self, "GetSurface"), surface,
                    [self] { return surfaceOf(objectOf(self)); });
    };
    window.SetOpacity = [](auto* self, u8 opacity) { return called(self, "SetOpacity", opacity); };
    window.RaiseToTop = [](auto* self) { return called(self, "RaiseToTop"); };
    window.LowerToBottom = [](auto* self) { return called(self, "LowerToBottom"); };
    window.Destroy = [](auto* self) {
        const DFBResult result = called(self, "Destroy");
        if (result == DFB_OK) {
            objectOf(self).alive = false;
            --RecordingDisplay::state.liveWindows;
        }
        return result;
    };
    ++RecordingDisplay::state.liveWindows;
    return &window;
}

std::string fields(const DFBWindowDescription& wanted)
{
    return "{flags=" + hex(wanted.flags) + " caps=" + hex(wanted.caps) +
           " width=" + asText(wanted.width) + " height=" + asText(wanted.height) +
           " pixelformat=" + hex(wanted.pixelformat) + " posx=" + asText(wanted.posx) +
           " posy=" + asText(wanted.posy) + " surface_caps=" + hex(wanted.surface_caps) +
           " stacking=" + asText(wanted.stacking) + "}";
}

std::string fields(const DFBFontDescription& wanted)
{
    return "{flags=" + (wanted.flags == DFDESC_HEIGHT ? "HEIGHT" : hex(wanted.flags)) +
           " height=" + asText(wanted.height) + "}";
}

IDirectFBDisplayLayer* theLayer()
{
    static IDirectFBDisplayLayer& layer = add<IDirectFBDisplayLayer>("layer");
    layer.CreateWindow = [](auto* self, const auto* wanted, auto** window) {
        const DFBResult result = called(self, "CreateWindow", fields(*wanted));
        if (result == DFB_OK && (wanted->width < 1 || wanted->height < 1))
            return DFB_INVARG; // as DirectFB's own does
        return give(result, window, [wanted] { return addWindow(wanted->width, wanted->height); });
    };
    layer.SetCooperativeLevel = [](auto* self, auto level) {
        return called(self, "SetCooperativeLevel", level);
    };
    return &layer;
}

} // namespace

RecordingDisplay::RecordingDisplay()
{
    state = DisplayState();
    takeTrace();
}

IDirectFB* RecordingDisplay::dfb()
{
    static IDirectFB& dfb = add<IDirectFB>("dfb");
    dfb.GetDisplayLayer = [](auto* self, auto id, auto** layer) {
        return give(called(self, "GetDisplayLayer", id == DLID_PRIMARY ? "PRIMARY" : hex(id)),
                    layer, theLayer);
    };
    dfb.CreateFont = [](auto* self, const char* path, const auto* wanted, auto** font) {
        return give(called(self, "CreateFont", path, fields(*wanted)), font, addFont);
    };
    return &dfb;
}

IDirectFBSurface* RecordingDisplay::newSurface(int width, int height)
{
    IDirectFBSurface& surface = add<IDirectFBSurface>(newName("surface"), width, height);
    surface.GetSize = [](auto* self, int* w, int* h) {
        const DFBResult result = called(self, "GetSize");
        if (result == DFB_OK)
            *w = objectOf(self).width, *h = objectOf(self).height;
        return result;
    };
    surface.Clear = [](auto* self, auto... rgba) { return called(self, "Clear", rgba...); };
    surface.Flip = [](auto* self, const auto* region, auto flags) {
        if (region == nullptr)
            return called(self, "Flip", "null", flags);
        const std::string corners = list(region->x1, region->y1, region->x2, region->y2);
        return called(self, "Flip", "{" + corners + "}", flags);
    };
    surface.SetColor = [](auto* self, auto... rgba) { return called(self, "SetColor", rgba...); };
    surface.FillRectangle = [](auto* self, auto... area) {
        return called(self, "FillRectangle", area...);
    };
    surface.DrawLine = [](auto* self, auto... ends) { return called(self, "DrawLine", ends...); };
    surface.SetFont = [](auto* self, auto* font) { return called(self, "SetFont", font); };
    surface.DrawString = [](auto* self, const char* text, auto... more) {
        return called(self, "DrawString", "\"" + std::string(text) + "\"", more...);
    };
    return &surface;
}

} // namespace test_support

// A program's own definition takes the place of the shared library's.
extern "C" DFBResult DirectFBErrorFatal(const char* msg, DFBResult result)
{
    if (test_support::RecordingDisplay::state.throwsFatalErrors)
        throw test_support::FatalError{msg, result};

    using Function = DFBResult(const char*, DFBResult);
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, "DirectFBErrorFatal"))(msg, result);
}
