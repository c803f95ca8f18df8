#include "recording_display.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <utility>

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
    Interface table{};
    Object object;
};

// The interfaces outlive the displays, so they are only ever added to.
template <class Interface> std::deque<Made<Interface>>& made()
{
    static std::deque<Made<Interface>> all;
    return all;
}

struct State {
    std::map<std::string, int> numbers; // last number given to a kind of object
    std::map<std::string, DFBResult> failingMethods;
    std::function<void(const std::string&)> observer;
    size_t callsUntilFailure = 0; // 0: none is to fail
    DFBResult failure = DFB_FAILURE;
    int fontHeight = 37;
    size_t liveFonts = 0;
    size_t liveWindows = 0;
    std::string lastCall = "none";
};

State& state()
{
    static State current;
    return current;
}

[[noreturn]] void stop(const std::string& why)
{
    std::fprintf(stderr, "recording display: %s; last known call: %s\n", why.c_str(),
                 state().lastCall.c_str());
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

template <class Interface> std::string nameOf(Interface* table)
{
    return table == nullptr ? "null" : objectOf(table).name;
}

std::string newName(const std::string& kind)
{
    return kind + std::to_string(++state().numbers[kind]);
}

std::string asText(int number)
{
    return std::to_string(number);
}

std::string asText(const std::string& text)
{
    return text;
}

std::string hex(unsigned int value)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", value);
    return text;
}

template <class First, class... More> std::string list(const First& first, const More&... more)
{
    std::string text = asText(first);
    ((text += "," + asText(more)), ...);
    return text;
}

std::string list()
{
    return "";
}

// Records one call and tells what it is to return.
template <class Interface, class... Arguments>
DFBResult called(Interface* self, const std::string& method, const Arguments&... arguments)
{
    State& now = state();
    const std::string line = nameOf(self) + "." + method + "(" + list(arguments...) + ")";
    record(line);
    now.lastCall = line;
    if (now.observer)
        now.observer(line);

    if (now.callsUntilFailure > 0 && --now.callsUntilFailure == 0)
        return now.failure;
    const auto failing = now.failingMethods.find(method);
    if (failing != now.failingMethods.end())
        return failing->second;
    return objectOf(self).alive ? DFB_OK : DFB_DESTROYED;
}

template <class Interface> Made<Interface>& add(const std::string& name)
{
    Made<Interface>& one = made<Interface>().emplace_back();
    refuseEverySlot(one.table);
    one.object.name = name;
    one.table.priv = &one.object;
    return one;
}

std::string flipFlags(DFBSurfaceFlipFlags flags)
{
    if (flags == DSFLIP_NONE)
        return "NONE";
    return flags == DSFLIP_WAITFORSYNC ? "WAITFORSYNC" : hex(static_cast<unsigned int>(flags));
}

std::string textFlags(DFBSurfaceTextFlags flags)
{
    return flags == DSTF_TOPCENTER ? "TOPCENTER" : hex(static_cast<unsigned int>(flags));
}

// A template, because the tables name the region's type in another way from version to version.
template <class Region> std::string regionText(const Region* region)
{
    if (region == nullptr)
        return "null";
    return "{" + list(region->x1, region->y1, region->x2, region->y2) + "}";
}

DFBResult surfaceGetSize(IDirectFBSurface* self, int* width, int* height)
{
    const DFBResult result = called(self, "GetSize");
    if (result != DFB_OK)
        return result;
    *width = objectOf(self).width;
    *height = objectOf(self).height;
    return result;
}

DFBResult surfaceClear(IDirectFBSurface* self, u8 r, u8 g, u8 b, u8 a)
{
    return called(self, "Clear", r, g, b, a);
}

template <class Region>
DFBResult surfaceFlip(IDirectFBSurface* self, const Region* region, DFBSurfaceFlipFlags flags)
{
    return called(self, "Flip", regionText(region), flipFlags(flags));
}

DFBResult surfaceSetColor(IDirectFBSurface* self, u8 r, u8 g, u8 b, u8 a)
{
    return called(self, "SetColor", r, g, b, a);
}

DFBResult surfaceFillRectangle(IDirectFBSurface* self, int x, int y, int w, int h)
{
    return called(self, "FillRectangle", x, y, w, h);
}

DFBResult surfaceDrawLine(IDirectFBSurface* self, int x1, int y1, int x2, int y2)
{
    return called(self, "DrawLine", x1, y1, x2, y2);
}

DFBResult surfaceSetFont(IDirectFBSurface* self, IDirectFBFont* font)
{
    return called(self, "SetFont", nameOf(font));
}

DFBResult surfaceDrawString(IDirectFBSurface* self, const char* text, int bytes, int x, int y,
                            DFBSurfaceTextFlags flags)
{
    return called(self, "DrawString", "\"" + std::string(text) + "\"", bytes, x, y,
                  textFlags(flags));
}

IDirectFBSurface* addSurface(int width, int height)
{
    Made<IDirectFBSurface>& one = add<IDirectFBSurface>(newName("surface"));
    one.object.width = width;
    one.object.height = height;
    one.table.GetSize = surfaceGetSize;
    one.table.Clear = surfaceClear;
    one.table.Flip = surfaceFlip;
    one.table.SetColor = surfaceSetColor;
    one.table.FillRectangle = surfaceFillRectangle;
    one.table.DrawLine = surfaceDrawLine;
    one.table.SetFont = surfaceSetFont;
    one.table.DrawString = surfaceDrawString;
    return &one.table;
}

DFBResult fontGetHeight(IDirectFBFont* self, int* height)
{
    const DFBResult result = called(self, "GetHeight");
    if (result == DFB_OK)
        *height = objectOf(self).height;
    return result;
}

DirectResult fontRelease(IDirectFBFont* self)
{
    if (!objectOf(self).alive)
        stop(nameOf(self) + " is released a second time");
    called(self, "Release");
    objectOf(self).alive = false;
    --state().liveFonts;
    return DR_OK;
}

IDirectFBFont* addFont()
{
    Made<IDirectFBFont>& one = add<IDirectFBFont>(newName("font"));
    one.object.height = state().fontHeight;
    one.table.GetHeight = fontGetHeight;
    one.table.Release = fontRelease;
    ++state().liveFonts;
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

DFBResult windowSetOpacity(IDirectFBWindow* self, u8 opacity)
{
    return called(self, "SetOpacity", opacity);
}

DFBResult windowRaiseToTop(IDirectFBWindow* self)
{
    return called(self, "RaiseToTop");
}

DFBResult windowLowerToBottom(IDirectFBWindow* self)
{
    return called(self, "LowerToBottom");
}

DFBResult windowDestroy(IDirectFBWindow* self)
{
    const DFBResult result = called(self, "Destroy");
    if (result != DFB_OK)
        return result;
    objectOf(self).alive = false;
    --state().liveWindows;
    return result;
}

IDirectFBWindow* addWindow(int width, int height)
{
    Made<IDirectFBWindow>& one = add<IDirectFBWindow>(newName("window"));
    one.object.width = width;
    one.object.height = height;
    one.table.GetSurface = windowGetSurface;
    one.table.SetOpacity = windowSetOpacity;
    one.table.RaiseToTop = windowRaiseToTop;
    one.table.LowerToBottom = windowLowerToBottom;
    one.table.Destroy = windowDestroy;
    ++state().liveWindows;
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

DFBResult layerSetCooperativeLevel(IDirectFBDisplayLayer* self,
                                   DFBDisplayLayerCooperativeLevel level)
{
    return called(self, "SetCooperativeLevel",
                  level == DLSCL_ADMINISTRATIVE ? std::string("ADMINISTRATIVE")
                                                : hex(static_cast<unsigned int>(level)));
}

IDirectFBDisplayLayer* theLayer()
{
    static IDirectFBDisplayLayer* const layer = [] {
        Made<IDirectFBDisplayLayer>& one = add<IDirectFBDisplayLayer>("layer");
        one.table.CreateWindow = layerCreateWindow;
        one.table.SetCooperativeLevel = layerSetCooperativeLevel;
        return &one.table;
    }();
    return layer;
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
    static IDirectFB* const dfb = [] {
        Made<IDirectFB>& one = add<IDirectFB>("dfb");
        one.table.GetDisplayLayer = dfbGetDisplayLayer;
        one.table.CreateFont = dfbCreateFont;
        return &one.table;
    }();
    return dfb;
}

} // namespace

RecordingDisplay::RecordingDisplay()
{
    state() = State();
    takeTrace();
}

RecordingDisplay::~RecordingDisplay()
{
    state().observer = nullptr;
}

IDirectFB* RecordingDisplay::dfb()
{
    return theDirectFB();
}

IDirectFBSurface* RecordingDisplay::newSurface(int width, int height)
{
    return addSurface(width, height);
}

void RecordingDisplay::setFontHeight(int pixels)
{
    state().fontHeight = pixels;
}

void RecordingDisplay::failCall(size_t count, DFBResult result)
{
    state().callsUntilFailure = count;
    state().failure = result;
}

void RecordingDisplay::failEvery(const std::string& method, DFBResult result)
{
    state().failingMethods[method] = result;
}

void RecordingDisplay::onCall(std::function<void(const std::string&)> observer)
{
    state().observer = std::move(observer);
}

size_t RecordingDisplay::liveFonts() const
{
    return state().liveFonts;
}

size_t RecordingDisplay::liveWindows() const
{
    return state().liveWindows;
}

} // namespace test_support
