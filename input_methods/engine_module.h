#ifndef INPUT_METHODS_ENGINE_MODULE_H
#define INPUT_METHODS_ENGINE_MODULE_H

#include <memory>
#include <string>

#include "engine.h"

namespace input_methods
{

// Where the library lies, or the program that it is part of.
std::string folderOfThisLibrary();

// Loads the engine's module, which lies in the folder velmora_vkb beside this library, and makes
// an engine. Null with a problem where the module, its library or its data is missing.
std::unique_ptr<Engine> loadEngine(const std::string& name, const EngineSettings& settings,
                                   std::string& problem);

} // namespace input_methods

#endif
