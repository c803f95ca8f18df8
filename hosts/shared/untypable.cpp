// Looks for a character in layout files that are not chosen. The files' text is enough to tell.
#include "untypable.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

#include <unistr.h>

#include "input_methods.h"
#include "keyboard_constants.h"
#include "text_line.h"

namespace host
{

namespace fs = std::filesystem;
using namespace velmora::browser::vkb;

namespace
{

constexpr std::string_view kPrefix = "Language_";
constexpr std::string_view kSuffix = ".json";

// All layouts that came with this program, and what is typed before and behind their names to
// choose some.
struct Source {
    fs::path folder;
    std::string before;
    std::string behind;
};

Source source()
{
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path installed = (program.parent_path() / VKB_INSTALLED_LAYOUTS).lexically_normal();
    if (!error && fs::is_directory(installed, error))
        return {installed, "\n    layouts install ", ""};
    return {
        VKB_LAYOUTS,
        "\n    make layouts\n    build/default/tools/layouts/layouts install --to build/layouts ",
        "\n    export LAYOUTS=build/layouts"};
}

std::string joined(const std::vector<std::string>& words, const char* between)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

std::string describe(const std::string& character)
{
    return character == "\n" ? "a line end" : "'" + character + "'";
}

// What to do about a character that no chosen layout has.
std::string whereToFind(const std::string& character, const std::vector<std::string>& chosen)
{
    const size_t kShown = 3;
    std::vector<std::string> others = layoutsWith(character, chosen);
    if (others.empty())
        return "no layout types it without choosing from a dictionary";
    const Source from = source();
    const std::string names = joined(chosen, " ") + " " + others[0];
    const size_t count = others.size();
    others.resize(std::min(count, kShown));
    const std::string more =
        count > kShown ? " and " + std::to_string(count - kShown) + " more" : "";
    return "these have it: " + joined(others, ", ") + more + "; to add one:" + from.before + names +
           from.behind;
}

std::vector<std::string> codePoints(const std::string& utf8)
{
    std::vector<std::string> result;
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(utf8.data());
    for (size_t at = 0; at < utf8.size();) {
        const size_t length =
            static_cast<size_t>(std::max(1, u8_mblen(bytes + at, utf8.size() - at)));
        result.push_back(utf8.substr(at, length));
        at += length;
    }
    return result;
}

// A mark's label has a dotted circle under it.
bool hasKey(const std::string& file, const std::string& label)
{
    return file.find("\"" + label + "\"") != std::string::npos ||
           file.find("\"\u25CC" + label + "\"") != std::string::npos;
}

// Whether the parts of a character, from this one on, can be typed: each alone, or some as one key.
bool types(const std::string& file, const std::vector<std::string>& parts, size_t from)
{
    if (from == parts.size())
        return true;
    std::string together;
    for (size_t to = from; to < parts.size(); ++to) {
        together += parts[to];
        if (hasKey(file, composed(together)) && types(file, parts, to + 1))
            return true;
    }
    return false;
}

// Several keys of the layout compose it. Those that convert are left out, as nobody knows before
// which word they offer first.
bool composes(input_methods::InputMethods& methods, const std::string& layout,
              const std::string& character)
{
    input_methods::InputMethod* method = methods.offersCandidates(layout)
                                             ? nullptr
                                             : methods.find(layout, input_methods::Field::Text);
    return method != nullptr && !method->spell(character).empty();
}

} // namespace

std::vector<std::string> layoutsWith(const std::string& character,
                                     const std::vector<std::string>& leftOut)
{
    const std::vector<std::string> parts = codePoints(decomposed(character));
    input_methods::InputMethods methods{input_methods::Settings()};
    std::vector<std::string> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(source().folder, error)) {
        const std::string file = entry.path().filename().string();
        if (file.size() <= kPrefix.size() + kSuffix.size() || file.rfind(kPrefix, 0) != 0)
            continue;
        const std::string name =
            file.substr(kPrefix.size(), file.size() - kPrefix.size() - kSuffix.size());
        if (std::find(leftOut.begin(), leftOut.end(), name) != leftOut.end())
            continue;
        std::ostringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        if (types(text.str(), parts, 0) || composes(methods, name, character))
            found.push_back(name);
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::string whyNotTyped(const Plan& plan, const KeyboardModel& model)
{
    std::vector<std::string> chosen;
    for (const Layout& layout : model.layouts())
        chosen.push_back(layout.name);
    const std::string expected =
        ", expected characters of the installed layouts (" + joined(chosen, ", ") + ")";
    if (plan.obstacle.empty())
        return "no way to an Enter key" + expected;
    return "no way to type " + describe(plan.obstacle) + expected + "; " +
           whereToFind(plan.obstacle, chosen);
}

} // namespace host
