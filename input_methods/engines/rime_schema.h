#ifndef INPUT_METHODS_ENGINES_RIME_SCHEMA_H
#define INPUT_METHODS_ENGINES_RIME_SCHEMA_H

#include <string>

#include <rime_api.h>

#include "engine.h"

namespace input_methods
{

// The process's own: rime keeps one set of folders for all its sessions, those of the first call.
// They are never taken down: rime does so by itself when the process ends.
RimeApi* startRime(const EngineSettings& settings);

// Opens the schema that the settings name, with its spelling alone. False with a problem where it
// or its dictionary is missing or not whole. It stays open for as long as sessions use it, as rime
// shares it with them only as long.
bool openSchema(RimeApi* api, const EngineSettings& settings, RimeConfig& schema,
                std::string& problem);

} // namespace input_methods

#endif
