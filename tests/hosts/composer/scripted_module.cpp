// The scripted engine as a module, for hosts that load it by a table. The scheme is its candidates
// with blanks between.
#include <sstream>

#include "scripted_engine.h"

input_methods::Engine* VKB_MAKE_ENGINE(const input_methods::EngineSettings& settings, std::string&)
{
    std::istringstream words(settings.scheme);
    std::vector<std::string> candidates;
    for (std::string word; words >> word;)
        candidates.push_back(word);
    return new input_methods_test::ScriptedEngine(candidates);
}
