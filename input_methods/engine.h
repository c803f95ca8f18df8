#ifndef INPUT_METHODS_ENGINE_H
#define INPUT_METHODS_ENGINE_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "input_method.h"

namespace input_methods
{

// What an adapter makes of a packaged engine. InputMethod, above it, knows keys, pages and limits;
// an engine knows letters and candidates. Calls that change something add to answer's commit and
// takeBack and leave the rest of it alone.
class Engine
{
public:
    virtual ~Engine() = default;

    // One character, UTF-8. Returns false when it is none of the language's; an engine that ends
    // what it composes at such a character has then added that to the commit.
    virtual bool type(const std::string& character, Answer& answer) = 0;

    // Takes the last letter of the preedit away. Returns false when there is none.
    virtual bool erase(Answer& answer) = 0;

    // Index counts all candidates, not those of a page.
    virtual void take(size_t index, Answer& answer) = 0;

    // Commits everything as it stands, or drops it; the preedit is empty afterwards.
    virtual void finish(Answer& answer) = 0;
    virtual void reset() = 0;

    virtual std::string preedit() const = 0;

    // What composes this character, each a row of letters to type; the shortest first. None where
    // the language converts.
    virtual std::vector<std::string> spellings(const std::string&) { return {}; }

    // At most count of them from this index on; fewer when there are no more.
    virtual std::vector<std::string> candidates(size_t from, size_t count) = 0;
};

// What an adapter gets from the table of layouts and from the host.
struct EngineSettings {
    std::string scheme;         // the engine's own name of the way of typing
    std::string dataFolder;     // our own tables, such as those for m17n
    std::string engineData;     // where packages have their data: /usr/share
    std::string learningFolder; // for this engine alone, exists and can be written; empty: none
};

// The one function of an engine's module, a shared library. Returns null, with a line that says
// what is missing, when the engine or its data is not there.
using MakeEngine = Engine* (*)(const EngineSettings& settings, std::string& problem);
#define VKB_MAKE_ENGINE makeInputMethodEngine

} // namespace input_methods

extern "C" input_methods::Engine* VKB_MAKE_ENGINE(const input_methods::EngineSettings& settings,
                                                  std::string& problem);

#endif
