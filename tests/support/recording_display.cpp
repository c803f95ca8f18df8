#include "recording_display.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <utility>

#include <malloc.h>

namespace test_support
{

namespace
{

// What hangs behind an interface's priv pointer.
struct Object {
    std::string name;
    bool alive = true;
    int width = 0;                       // surfaces and windows
    int height = 0;                      // fonts too
    IDirectFBSurface* surface = nullptr; // windows
};

template <class Interface> struct Made {
    Made* previous;
    Interface table{};
    Object object{};
};

[[noreturn]] void stop(const std::string& why)
{
    std::fprintf(stderr, "recording display: %s; last known call: %s\n", why.c_str(),
                 RecordingDisplay::state.lastCall.c_str());
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
    if (flags == DSFLIP_NONE)
        return "NONE";
    return flags == DSFLIP_WAITFORSYNC ? "WAITFORSYNC" : hex(static_cast<unsigned int>(flags));
}

std::string asText(DFBSurfaceTextFlags flags)
{
    return flags == DSTF_TOPCENTER ? "TOPCENTER" : hex(static_cast<unsigned int>(flags));
}

std::string asText(DFBDisplayLayerCooperativeLevel level)
{
    return level == DLSCL_ADMINISTRATIVE ? "ADMINISTRATIVE" : hex(static_cast<unsigned int>(level));
}

std::string list()
{
    return "";
}

template <class First, class... More> std::string list(const First& first, const More&... more)
{
    std::string text = asText(first);
    ((text += "," + asText(more)), ...);
    return text;
}

// Records one call and tells what it is to return.
template <class Interface, class... Arguments>
DFBResult called(Interface* self, const std::string& method, const Arguments&... arguments)
{
    DisplayState& now = RecordingDisplay::state;
    const std::string line = objectOf(self).name + "." + method + "(" + list(arguments...) + ")";
    record(line);
    now.lastCall = line;

    if (now.callsUntilFailure > 0 && --now.callsUntilFailure == 0)
        return now.failure;
    const auto failing = now.failingMethods.find(method);
    if (failing != now.failingMethods.end())
        return failing->second;
    return objectOf(self).alive ? DFB_OK : DFB_DESTROYED;
}

// The interfaces outlive the displays, so they are only ever added to.
template <class Interface> Made<Interface>& add(const std::string& name)
{
    static Made<Interface>* newest = nullptr;
    newest = new Made<Interface>{newest};
    RecordingDisplay::state.bytesKept +=
        ::malloc_usable_size(newest) + sizeof(size_t); // and the heap's own word
    Made<Interface>& one = *newest;
    refuseEverySlot(one.table);
    one.object.name = name;
    one.table.priv = &one.object;
    return one;
}

IDirectFBSurface* addSurface(int width, int height)
{
    Made<IDirectFBSurface>& one = add<IDirectFBSurface>(newName("surface"));
    one.object.width = width;
    one.object.height = height;
    one.table.GetSize = [](auto* self, int* w, int* h) {
        const DFBResult result = called(self, "GetSize");
        if (result == DFB_OK)
            *w = objectOf(self).width, *h = objectOf(self).height;
        return result;
    };
    one.table.Clear = [](auto* self, auto... rgba) { return called(self, "Clear", rgba...); };
    one.table.Flip = [](auto* self, const auto* region, auto flags) {
        if (region == nullptr)
            return called(self, "Flip", std::string("null"), flags);
        const std::string corners = list(region->x1, region->y1, region->x2, region->y2);
        return called(self, "Flip", "{" + corners + "}", flags);
    };
    one.table.SetColor = [](auto* self, auto... rgba) { return called(self, "SetColor", rgba...); };
    one.table.FillRectangle = [](auto* self, auto... area) {
        return called(self, "FillRectangle", area...);
    };
    one.table.DrawLine = [](auto* self, auto... ends) { return called(self, "DrawLine", ends...); };
    one.table.SetFont = [](auto* self, auto* font) { return called(self, "SetFont", font); };
    one.table.DrawString = [](auto* self, const char* text, auto... more) {
        return called(self, "DrawString", "\"" + std::string(text) + "\"", more...);
    };
    return &one.table;
}

DirectResult fontRelease(IDirectFBFont* self)
{
    if (!objectOf(self).alive)
        stop(objectOf(self).name + " is released a second time");
    called(self, "Release");
    objectOf(self).alive = false;
    --RecordingDisplay::state.liveFonts;
    return DR_OK;
}

IDirectFBFont* addFont()
{
    Made<IDirectFBFont>& one = add<IDirectFBFont>(newName("font"));
    one.object.height = RecordingDisplay::state.fontHeight;
    one.table.GetHeight = [](auto* self, int* height) {
        const DFBResult result = called(self, "GetHeight");
        if (result == DFB_OK)
            *height = objectOf(self).height;
        return result;
    };
    one.table.Release = fontRelease;
    ++RecordingDisplay::state.liveFonts;
    return &one.table;
}

DFBResult windowGetSurface(IDirectFBWindow* self, IDirectFBSurface** surface)
{
    const DFBResult result = called(self, "GetSurface");
    if (result != DFB_OK)
        return result;
    Object& window = objectOf(self);
    if (window.surface == nullptr)
        window.surface = addSurface(window.width, window.height);
    *surface = window.surface;
    return result;
}

IDirectFBWindow* addWindow(int width, int height)
{
    Made<IDirectFBWindow>& one = add<IDirectFBWindow>(newName("window"));
    one.object.width = width;
    one.object.height = height;
    one.table.GetSurface = windowGetSurface;
    one.table.SetOpacity = [](auto* self, u8 opacity) {
        return called(self, "SetOpacity", opacity);
    };
    one.table.RaiseToTop = [](auto* self) { return called(self, "RaiseToTop"); };
    one.table.LowerToBottom = [](auto* self) { return called(self, "LowerToBottom"); };
    one.table.Destroy = [](auto* self) {
        const DFBResult result = called(self, "Destroy");
        if (result == DFB_OK) {
            objectOf(self).alive = false;
            --RecordingDisplay::state.liveWindows;
        }
        return result;
    };
    ++RecordingDisplay::state.liveWindows;
    return &one.table;
}

std::string fields(const DFBWindowDescription& wanted)
{
    return "{flags=" + hex(static_cast<unsigned int>(wanted.flags)) +
           " caps=" + hex(static_cast<unsigned int>(wanted.caps)) +
           " width=" + asText(wanted.width) + " height=" + asText(wanted.height) +
           " pixelformat=" + hex(static_cast<unsigned int>(wanted.pixelformat)) +
           " posx=" + asText(wanted.posx) + " posy=" + asText(wanted.posy) +
           " surface_caps=" + hex(static_cast<unsigned int>(wanted.surface_caps)) +
           " stacking=" + asText(static_cast<int>(wanted.stacking)) + "}";
}

DFBResult layerCreateWindow(IDirectFBDisplayLayer* self, const DFBWindowDescription* wanted,
                            IDirectFBWindow** window)
{
    const DFBResult result = called(self, "CreateWindow", fields(*wanted));
    if (result != DFB_OK)
        return result;
    if (wanted->width < 1 || wanted->height < 1)
        return DFB_INVARG; // as DirectFB's own does
    *window = addWindow(wanted->width, wanted->height);
    return result;
}

IDirectFBDisplayLayer* theLayer()
{
    static IDirectFBDisplayLayer* const kLayer = [] {
        Made<IDirectFBDisplayLayer>& one = add<IDirectFBDisplayLayer>("layer");
        one.table.CreateWindow = layerCreateWindow;
        one.table.SetCooperativeLevel = [](auto* self, auto level) {
            return called(self, "SetCooperativeLevel", level);
        };
        return &one.table;
    }();
    return kLayer;
}

DFBResult dfbGetDisplayLayer(IDirectFB* self, DFBDisplayLayerID id, IDirectFBDisplayLayer** layer)
{
    const DFBResult result =
        called(self, "GetDisplayLayer", id == DLID_PRIMARY ? std::string("PRIMARY") : hex(id));
    if (result == DFB_OK)
        *layer = theLayer();
    return result;
}

std::string fields(const DFBFontDescription& wanted)
{
    const std::string flags =
        wanted.flags == DFDESC_HEIGHT ? "HEIGHT" : hex(static_cast<unsigned int>(wanted.flags));
    return "{flags=" + flags + " height=" + asText(wanted.height) + "}";
}

DFBResult dfbCreateFont(IDirectFB* self, const char* path, const DFBFontDescription* wanted,
                        IDirectFBFont** font)
{
    const DFBResult result = called(self, "CreateFont", std::string(path), fields(*wanted));
    if (result == DFB_OK)
        *font = addFont();
    return result;
}

IDirectFB* theDirectFB()
{
    static IDirectFB* const kDfb = [] {
        Made<IDirectFB>& one = add<IDirectFB>("dfb");
        one.table.GetDisplayLayer = dfbGetDisplayLayer;
        one.table.CreateFont = dfbCreateFont;
        return &one.table;
    }();
    return kDfb;
}

} // namespace

RecordingDisplay::RecordingDisplay()
{
    state = DisplayState();
    takeTrace();
}

IDirectFB* RecordingDisplay::dfb()
{
    return theDirectFB();
}

IDirectFBSurface* RecordingDisplay::newSurface(int width, int height)
{
    return addSurface(width, height);
}

} // namespace test_support
