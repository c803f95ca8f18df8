#ifndef INPUT_METHODS_INPUT_METHODS_H
#define INPUT_METHODS_INPUT_METHODS_H

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "input_method.h"

namespace input_methods
{

/// Where the table of layouts and our own tables lie on the television. Without a table there,
/// those are taken that were installed with the library.
const char* const kDataFolder = "/usr/local/opt/nerovista/resources/input_methods";

/// What a text field is for. Only Text is composed: a password is not to be learned, and an
/// address is typed letter by letter.
enum class Field { Text, Password, Address };

struct Settings {
    std::string dataFolder;                ///< with layouts.tsv; empty: see kDataFolder
    std::string engineData = "/usr/share"; ///< where the engines' packages have their data
    std::string learningFolder;            ///< for what the user typed; empty: nothing is learned

    /// Gets a line, without a line end, when something is missing; may be empty.
    std::function<void(const std::string&)> report;
};

/// A line of the table.
struct LayoutEngine {
    std::string layout;
    std::string engine;
    std::string scheme;   ///< the engine's own name of the way of typing
    std::string packages; ///< Debian's, with blanks between: the engine and its data
    std::string learns;   ///< "yes" where the engine learns what was typed
};

/// The input methods of a host. Engines are loaded when their first layout is used, and stay until
/// the process ends: most keep their state for the process.
class InputMethods
{
public:
    /// Reads the table. Without one there are no input methods, and a line says so.
    explicit InputMethods(Settings settings);
    ~InputMethods();

    /// The input method of a layout, kept here. Null for a layout that needs none, for a field that
    /// is not composed, and, with a line to report that comes once, where an engine is missing: the
    /// keys then type what they show.
    InputMethod* find(const std::string& layout, Field field);

    /// Whether the layout's input method offers candidates, as all that learn do.
    bool offersCandidates(const std::string& layout) const;

    const std::vector<LayoutEngine>& table() const { return m_table; }

    /// Why the layout's engine cannot be had; empty when it can. Loads it.
    std::string problem(const std::string& layout);

    /// The folder in which this engine learns; empty where it does not.
    std::string learningFolder(const LayoutEngine& entry) const;

private:
    struct Opened {
        std::unique_ptr<InputMethod> method; // null with a problem
        std::string problem;
    };
    const Opened& open(const LayoutEngine& entry);
    const LayoutEngine* entryOf(const std::string& layout) const;
    void report(const std::string& line) const;
    std::string makeLearningFolder(const LayoutEngine& entry) const;

    Settings m_settings;
    std::vector<LayoutEngine> m_table;
    std::map<std::string, Opened> m_opened;
};

} // namespace input_methods

#endif
