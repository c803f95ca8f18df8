// Linked by test programs on real DirectFB, and loaded with LD_PRELOAD into the programs that they
// start. The calls themselves are made on the real DirectFB.
//
// The keyboard never releases the fonts of earlier reloads, nor the windows and surfaces that it or
// its driver opened: they stay for the life of the process, as they are to. This remembers whatever
// is made through DirectFB, so that a leak checker sees it as kept and reports only what else is
// lost. That released objects are released, the recording display tells.
//
//   VKB_TEST_TRACE=1                 writes each call that is put in here to standard output, one
//                                    line each
//   VKB_TEST_FAIL="CreateWindow 1"   and the first CreateWindow returns DFB_FAILURE undone

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include <directfb.h>
#include <dlfcn.h>
#include <unistd.h>

namespace
{

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

// An argument as the line shows it, unless it is a place for what is made.
template <class Argument> std::string shown(Argument argument)
{
    if constexpr (std::is_pointer_v<Argument>)
        return "";
    else
        return " " + std::to_string(argument);
}

std::string shown(const DFBWindowDescription* wanted)
{
    char text[256];
    std::snprintf(text, sizeof text,
                  " flags 0x%X caps %u size %ux%u at %d,%d stacking %u; not flagged: format 0x%08X "
                  "surface caps 0x%X",
                  wanted->flags, wanted->caps, wanted->width, wanted->height, wanted->posx,
                  wanted->posy, wanted->stacking, wanted->pixelformat, wanted->surface_caps);
    return text;
}

// Never freed: leak checkers look after the last destructor.
void watch(void* object)
{
    static std::vector<void*>* const kKept = new std::vector<void*>;
    kKept->push_back(object);
}

void watch(IDirectFBDisplayLayer* layer);
void watch(IDirectFBWindow* window);

template <class Argument> void watchWhatIsMade(Argument argument)
{
    if constexpr (std::is_pointer_v<std::remove_pointer_t<Argument>>)
        watch(*argument);
}

// DirectFB's objects are tables of functions, the same in all objects of one kind: the function
// that is put into a slot calls the one that was there before.
template <auto Slot> struct Hook;

template <class Object, class Result, class... Arguments,
          Result (*Object::*Slot)(Object*, Arguments...)>
struct Hook<Slot> {
    static inline const char* name = nullptr;
    static inline Result (*real)(Object*, Arguments...) = nullptr;

    static Result traced(Object* self, Arguments... arguments)
    {
        if (trace(name, (std::string() + ... + shown(arguments))))
            return static_cast<Result>(DFB_FAILURE);
        const Result result = real(self, arguments...);
        if (static_cast<DFBResult>(result) == DFB_OK)
            (watchWhatIsMade(arguments), ...);
        return result;
    }

    static void put(Object* object, const char* call)
    {
        if (object->*Slot == traced)
            return;
        name = call;
        real = object->*Slot;
        object->*Slot = traced;
    }
};

void watch(IDirectFBWindow* window)
{
    watch(static_cast<void*>(window));
    Hook<&IDirectFBWindow::GetSurface>::put(window, "GetSurface");
    Hook<&IDirectFBWindow::SetOpacity>::put(window, "SetOpacity");
    Hook<&IDirectFBWindow::RequestFocus>::put(window, "RequestFocus");
    Hook<&IDirectFBWindow::RaiseToTop>::put(window, "RaiseToTop");
}

void watch(IDirectFBDisplayLayer* layer)
{
    watch(static_cast<void*>(layer));
    Hook<&IDirectFBDisplayLayer::SetCooperativeLevel>::put(layer, "SetCooperativeLevel");
    Hook<&IDirectFBDisplayLayer::CreateWindow>::put(layer, "CreateWindow");
    Hook<&IDirectFBDisplayLayer::GetWindow>::put(layer, "GetWindow");
    Hook<&IDirectFBDisplayLayer::Release>::put(layer, "layer Release");
}

void watch(IDirectFB* dfb)
{
    watch(static_cast<void*>(dfb));
    Hook<&IDirectFB::GetDisplayLayer>::put(dfb, "GetDisplayLayer");
    Hook<&IDirectFB::CreateFont>::put(dfb, "CreateFont");
    Hook<&IDirectFB::Release>::put(dfb, "dfb Release");
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
