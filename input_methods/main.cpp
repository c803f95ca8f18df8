// input_method: tries what a layout's input method makes of typed letters, without a keyboard.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <optional>

#include "input_methods.h"
#include "program.h"
#include "text.h"

using namespace input_methods;
using velmora::browser::vkb::OsButton_t;

namespace
{

const char kName[] = "input_method";

struct Options {
    std::string layout;
    bool list = false;
    Settings settings;
};

void reportLine(const std::string& line)
{
    program::fail(kName, line);
}

OsButton_t keyOf(const std::string& character)
{
    OsButton_t key = {};
    key.text = character;
    return key;
}

OsButton_t keyWithCode(int32_t code)
{
    OsButton_t key = {};
    key.keyCode = code;
    return key;
}

struct Command {
    const char* token;
    Answer (*run)(InputMethod& method);
};

constexpr Command kCommands[] = {
    {"<back>", [](InputMethod& method) { return method.feed(keyWithCode(8)); }},
    {"<next>", [](InputMethod& method) { return method.page(1); }},
    {"<previous>", [](InputMethod& method) { return method.page(-1); }},
    {"<finish>", [](InputMethod& method) { return method.finish(); }},
    {"<reset>", [](InputMethod& method) { return method.reset(); }},
};

bool isChoice(const std::string& token)
{
    return token.size() == 3 && token[0] == '<' && token[1] >= '1' && token[1] <= '9';
}

const Command* commandOf(const std::string& token)
{
    const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [&](const Command& known) { return token == known.token; });
    return found == std::end(kCommands) ? nullptr : found;
}

// A key that carries no character.
bool isKey(const std::string& token)
{
    return commandOf(token) != nullptr || isChoice(token);
}

// One thing that is typed: such a key, or a character.
std::string nextToken(const std::string& line, size_t& position)
{
    const size_t end = line[position] == '<' ? line.find('>', position) : std::string::npos;
    std::string token = end == std::string::npos ? "" : line.substr(position, end + 1 - position);
    if (!isKey(token)) {
        const size_t longest = 4;
        const std::string next = line.substr(position, longest);
        token = next.substr(0, firstLetterBytes(next));
    }
    position += token.size();
    return token;
}

Answer answerTo(const std::string& token, InputMethod& method)
{
    if (const Command* command = commandOf(token))
        return command->run(method);
    return isChoice(token) ? method.choose(token[1] - '0') : method.feed(keyOf(token));
}

void print(const std::string& token, const Answer& answer)
{
    std::printf("%s\t%s", token.c_str(), answer.used ? "used" : "not used");
    if (answer.takeBack > 0)
        std::printf("\ttake back %d", answer.takeBack);
    std::printf("\tcommit '%s'\tpreedit '%s'", answer.commit.c_str(), answer.preedit.c_str());
    for (size_t i = 0; i < answer.candidates.size(); ++i)
        std::printf("%s%zu %s", i == 0 ? "\t" : " ", i + 1, answer.candidates[i].c_str());
    std::printf("%s%s\n", answer.hasPrevious ? " <" : "", answer.hasNext ? " >" : "");
}

// The text that a page would hold after the line.
void apply(const Answer& answer, const std::string& token, std::string& text)
{
    for (int i = 0; i < answer.takeBack; ++i)
        text.resize(text.size() - lastLetterBytes(text));
    text += answer.commit;
    if (answer.used)
        return;
    if (token == "<back>")
        text.resize(text.size() - lastLetterBytes(text));
    else if (!isKey(token))
        text += token;
}

int tryOut(InputMethod& method)
{
    std::string line;
    while (std::getline(std::cin, line)) {
        std::string text;
        for (size_t position = 0; position < line.size();) {
            const std::string token = nextToken(line, position);
            const Answer answer = answerTo(token, method);
            print(token, answer);
            apply(answer, token, text);
        }
        text += method.finish().commit;
        std::printf("text\t'%s'\n", text.c_str());
        if (std::fflush(stdout) != 0)
            break;
    }
    return 0;
}

int list(InputMethods& methods)
{
    for (const LayoutEngine& entry : methods.table()) {
        const std::string problem = methods.problem(entry.layout);
        const std::string learns = methods.learningFolder(entry);
        std::printf("%s\t%s %s\t%s\t%s\t%s\n", entry.layout.c_str(), entry.engine.c_str(),
                    entry.scheme.c_str(), entry.packages.c_str(),
                    learns.empty() ? "learns nothing" : ("learns in " + learns).c_str(),
                    problem.empty() ? "here" : problem.c_str());
    }
    return 0;
}

int run(const Options& options)
{
    InputMethods methods(options.settings);
    if (options.list)
        return methods.table().empty() ? program::kCannotRun : list(methods);
    InputMethod* method = methods.find(options.layout, Field::Text);
    if (method != nullptr)
        return tryOut(*method);
    const std::string problem = methods.problem(options.layout);
    if (problem.find("names no engine") != std::string::npos)
        reportLine(problem + "; --list names those that have one");
    return program::kCannotRun;
}

std::optional<Options> readOptions(int argc, char** argv, int& status)
{
    Options options;
    options.settings.report = reportLine;
    CLI::App app("Reads lines of what is typed and prints for each key what the layout's input\n"
                 "method answers. <1> to <9> choose, <back>, <next>, <previous>, <finish> and\n"
                 "<reset> are keys; everything else is a letter.");
    app.name(kName);
    CLI::Option* layout = app.add_option("LAYOUT", options.layout, "A layout, such as Korean");
    app.add_flag("--list", options.list, "Which layouts have an engine, and whether it is here")
        ->excludes(layout);
    app.add_option("--data", options.settings.dataFolder, "Folder of layouts.tsv")
        ->type_name("DIR");
    app.add_option("--engine-data", options.settings.engineData, "Folder of the engines' packages")
        ->type_name("DIR")
        ->capture_default_str();
    app.add_option("--learn", options.settings.learningFolder,
                   "Folder to learn in; without it nothing is learned")
        ->type_name("DIR");
    app.callback([&options] {
        if (!options.list && options.layout.empty())
            throw CLI::RequiredError("LAYOUT or --list");
    });
    if (const std::optional<int> end = program::readOptions(app, argc, argv)) {
        status = *end;
        return std::nullopt;
    }
    return options;
}

} // namespace

int main(int argc, char** argv)
{
    int status = 0;
    const std::optional<Options> options = readOptions(argc, argv, status);
    return program::flushOutput(kName, options ? run(*options) : status);
}
