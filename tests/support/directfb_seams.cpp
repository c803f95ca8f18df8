// Linked by test programs on real DirectFB, and loaded with LD_PRELOAD into the programs that they
// start. The calls themselves are made on the real DirectFB.
//
// The keyboard never releases the fonts of earlier reloads, nor the windows and surfaces that it or
// its driver opened: they stay for the life of the process, as they are to. This remembers whatever
// is made through DirectFB, so that a leak checker sees it as kept and reports only what else is
// lost. That released objects are released, the recording display tells.
//
//   VKB_TEST_TRACE=1                 writes each call that opens or closes the display to standard
//                                    output, one line each
//   VKB_TEST_FAIL="CreateWindow 1"   and the first CreateWindow returns DFB_FAILURE undone

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include <directfb.h>
#include <dlfcn.h>
#include <unistd.h>

namespace
{

// DirectFB's objects are tables of functions: the one put into a slot calls the one that was there
// before. All objects of one kind have the same.
template <auto Slot> struct Hook;

template <class Object, class Result, class... Arguments,
          Result (*Object::*Slot)(Object*, Arguments...)>
struct Hook<Slot> {
    static inline Result (*real)(Object*, Arguments...) = nullptr;

    static void put(Object* object, Result (*own)(Object*, Arguments...))
    {
        if (object->*Slot == own)
            return;
        real = object->*Slot;
        object->*Slot = own;
    }
};

// Never freed: leak checkers look after the last destructor.
void keep(void* object)
{
    static std::vector<void*>* const kKept = new std::vector<void*>;
    kKept->push_back(object);
}

// Writes the line at once, so that it keeps its place among the log lines. Returns whether the
// call is the one that is to fail.
bool trace(const std::string& call, const std::string& arguments = "")
{
    if (std::getenv("VKB_TEST_TRACE") == nullptr)
        return false;
    const std::string line = "dfb " + call + arguments + "\n";
    if (::write(STDOUT_FILENO, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        std::abort();

    static std::map<std::string, int> counts;
    const char* failing = std::getenv("VKB_TEST_FAIL");
    return call + " " + std::to_string(++counts[call]) == (failing == nullptr ? "" : failing);
}

std::string described(const DFBWindowDescription& wanted)
{
    char text[256];
    std::snprintf(text, sizeof text,
                  " flags 0x%X caps %u size %ux%u at %d,%d stacking %d; not flagged: format 0x%08X "
                  "surface caps 0x%X",
                  static_cast<unsigned int>(wanted.flags), static_cast<unsigned int>(wanted.caps),
                  wanted.width, wanted.height, wanted.posx, wanted.posy,
                  static_cast<int>(wanted.stacking), static_cast<unsigned int>(wanted.pixelformat),
                  static_cast<unsigned int>(wanted.surface_caps));
    return text;
}

// Traces a call and makes it, unless it is to fail.
template <auto Slot, class... Arguments>
DFBResult make(const char* name, const std::string& shown, Arguments... arguments)
{
    return trace(name, shown) ? DFB_FAILURE : Hook<Slot>::real(arguments...);
}

void watch(IDirectFBWindow* window)
{
    keep(window);
    Hook<&IDirectFBWindow::GetSurface>::put(window, [](auto* self, IDirectFBSurface** surface) {
        const DFBResult result =
            make<&IDirectFBWindow::GetSurface>("GetSurface", "", self, surface);
        if (result == DFB_OK)
            keep(*surface);
        return result;
    });
    Hook<&IDirectFBWindow::SetOpacity>::put(window, [](auto* self, u8 opacity) {
        const char* shown = opacity == 0xFF ? " 0xFF" : " other";
        return make<&IDirectFBWindow::SetOpacity>("SetOpacity", shown, self, opacity);
    });
    Hook<&IDirectFBWindow::RequestFocus>::put(window, [](auto* self) {
        return make<&IDirectFBWindow::RequestFocus>("RequestFocus", "", self);
    });
    Hook<&IDirectFBWindow::RaiseToTop>::put(window, [](auto* self) {
        return make<&IDirectFBWindow::RaiseToTop>("RaiseToTop", "", self);
    });
}

void watch(IDirectFBDisplayLayer* layer)
{
    using Layer = IDirectFBDisplayLayer;
    keep(layer);
    Hook<&Layer::SetCooperativeLevel>::put(layer, [](auto* self, auto level) {
        return make<&Layer::SetCooperativeLevel>("SetCooperativeLevel", " " + std::to_string(level),
                                                 self, level);
    });
    Hook<&Layer::CreateWindow>::put(layer, [](auto* self, const DFBWindowDescription* wanted,
                                              IDirectFBWindow** window) {
        const DFBResult result =
            make<&Layer::CreateWindow>("CreateWindow", described(*wanted), self, wanted, window);
        if (result == DFB_OK)
            watch(*window);
        return result;
    });
    Hook<&Layer::GetWindow>::put(layer, [](auto* self, DFBWindowID id, IDirectFBWindow** window) {
        const DFBResult result = Hook<&Layer::GetWindow>::real(self, id, window);
        if (result == DFB_OK)
            watch(*window);
        return result;
    });
    Hook<&Layer::Release>::put(layer, [](auto* self) {
        trace("layer Release");
        return Hook<&Layer::Release>::real(self);
    });
}

void watch(IDirectFB* dfb)
{
    keep(dfb);
    Hook<&IDirectFB::GetDisplayLayer>::put(
        dfb, [](auto* self, DFBDisplayLayerID id, IDirectFBDisplayLayer** layer) {
            const DFBResult result = make<&IDirectFB::GetDisplayLayer>(
                "GetDisplayLayer", " " + std::to_string(id), self, id, layer);
            if (result == DFB_OK)
                watch(*layer);
            return result;
        });
    Hook<&IDirectFB::CreateFont>::put(
        dfb, [](auto* self, const char* path, const DFBFontDescription* wanted, auto** font) {
            const DFBResult result = Hook<&IDirectFB::CreateFont>::real(self, path, wanted, font);
            if (result == DFB_OK)
                keep(*font);
            return result;
        });
    Hook<&IDirectFB::Release>::put(dfb, [](auto* self) {
        trace("dfb Release");
        return Hook<&IDirectFB::Release>::real(self);
    });
}

template <class Function> Function* next(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

DFBResult DirectFBInit(int* argc, char*** argv)
{
    if (trace("DirectFBInit", " " + std::to_string(*argc)))
        return DFB_FAILURE;
    const DFBResult result = next<decltype(DirectFBInit)>("DirectFBInit")(argc, argv);
    trace("DirectFBInit left", " " + std::to_string(*argc));
    return result;
}

DFBResult DirectFBCreate(IDirectFB** dfb)
{
    if (trace("DirectFBCreate"))
        return DFB_FAILURE;
    const DFBResult result = next<decltype(DirectFBCreate)>("DirectFBCreate")(dfb);
    if (result == DFB_OK)
        watch(*dfb);
    return result;
}
}
