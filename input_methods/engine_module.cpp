// Engines are shared libraries of their own, so that one that is not used is not even loaded.
#include "engine_module.h"

#include <algorithm>

#include <dlfcn.h>

namespace input_methods
{

namespace
{

const char kModuleFunction[] = "makeInputMethodEngine";

bool isName(const std::string& name)
{
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    });
}

} // namespace

std::string folderOfThisLibrary()
{
    Dl_info info = {};
    if (::dladdr(reinterpret_cast<const void*>(&loadEngine), &info) == 0)
        return ".";
    const std::string file = info.dli_fname;
    const size_t slash = file.rfind('/');
    return slash == std::string::npos ? "." : file.substr(0, slash);
}

std::unique_ptr<Engine> loadEngine(const std::string& name, const EngineSettings& settings,
                                   std::string& problem)
{
    if (!isName(name)) {
        problem = "found '" + name + "', expected the name of an engine, such as hangul";
        return nullptr;
    }
    // Never closed: most engines leave data and functions behind that the process still runs.
    const std::string file = folderOfThisLibrary() + "/velmora_vkb/" + name + ".so";
    void* module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        problem = ::dlerror();
        return nullptr;
    }
    const MakeEngine make = reinterpret_cast<MakeEngine>(::dlsym(module, kModuleFunction));
    if (make == nullptr) {
        problem = ::dlerror();
        return nullptr;
    }
    return std::unique_ptr<Engine>(make(settings, problem));
}

} // namespace input_methods
