#ifndef INPUT_METHODS_ENGINE_H
#define INPUT_METHODS_ENGINE_H

#include <cstddef>
#include <cstdint>
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

    // One code point. Returns false when it is none of the language's; an engine that ends what it
    // composes at such a character has then added that to the commit.
    virtual bool type(uint32_t character, Answer& answer) = 0;

    // Takes the last letter of the preedit away. Returns false when there is none.
    virtual bool erase(Answer& answer) = 0;

    // Drops everything: the preedit is empty afterwards.
    virtual void reset() = 0;

    // Behind what the text holds.
    virtual void addPreedit(std::string& text) const = 0;
    std::string preedit() const
    {
        std::string text;
        addPreedit(text);
        return text;
    }

    // Commits everything as it stands.
    virtual void finish(Answer& answer)
    {
        addPreedit(answer.commit);
        reset();
    }

    // For a language that converts: adds at most count candidates from this index on, fewer when
    // there are no more; and takes one. Index and from count all candidates, not those of a page.
    virtual bool converts() const { return false; }
    virtual void addCandidates(size_t /*from*/, size_t /*count*/, std::vector<std::string>&) {}
    virtual void take(size_t /*index*/, Answer&) {}

    // For one that composes: what composes this character, each a row of letters to type; the
    // shortest first.
    virtual std::vector<std::string> spellings(uint32_t /*character*/) { return {}; }
};

// What an adapter gets from the table of layouts and from the host.
struct EngineSettings {
    std::string scheme;         // the engine's own name of the way of typing
    std::string dataFolder;     // our own tables, such as those for m17n
    std::string engineData;     // where packages have their data: /usr/share
    std::string learningFolder; // for this engine alone, exists and can be written; empty: none

    bool learns() const { return !learningFolder.empty(); }

    // For engines that ask for a folder in any case: where nothing is learned there is none.
    std::string userFolder() const { return learns() ? learningFolder : "/nonexistent"; }
};

// The one function of an engine's module, a shared library. Returns null, with a line that says
// what is missing, when the engine or its data is not there.
using MakeEngine = Engine* (*)(const EngineSettings& settings, std::string& problem);
#define VKB_MAKE_ENGINE makeInputMethodEngine

} // namespace input_methods

extern "C" input_methods::Engine* VKB_MAKE_ENGINE(const input_methods::EngineSettings& settings,
                                                  std::string& problem);

#endif
