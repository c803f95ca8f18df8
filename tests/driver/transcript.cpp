#include "transcript.h"

#include <algorithm>
#include <regex>
#include <sstream>

namespace transcript
{
namespace
{

// Each rule rewrites the lines that it matches; a line that no rule matches is left out.
struct Rule {
    std::regex pattern;
    std::string replacement;
};

const std::string kCore = R"(\[B-LOG\] keyboard_core\.cpp:\d+:)";

const std::vector<Rule> kRules = {
    {std::regex(R"(usage \d+|clock|u?sleep \d+)"), "$&"},
    // A key's character may be a carriage return.
    {std::regex(R"(\[B-LOG\] (main|kb)_test\.cpp:[\s\S]*)"), "$&"},
    {std::regex(R"((\[B-LOG\] kb_ui_test\.cpp:)\d+(:.*))"), "$010$2"},
    {std::regex(kCore + R"(onKeyEvent\(\): Received Keycode: (-?\d+))"), "key $1"},
    {std::regex(kCore + R"(getKeyBoardButton\(\): button\.text = (.*),button\.keyCode = (-?\d+))"),
     "result $1 $2"},
    {std::regex(kCore + R"((\w+)\(\): ShiftMode:(\d)!)"), "mode $1 $2"},
    {std::regex(kCore + R"(Show\(\): Show the VKB!)"), "show"},
    {std::regex(kCore + R"(Hide\(\): Hide the VKB!)"), "hide"},
    {std::regex(kCore + R"(onLayoutChanged\(\): language name :(.*) )"), "layout $1"},
};
const Rule kRendererRule = {std::regex(R"(\[B-LOG\] keyboard_ui\.cpp:\d+:(~?\w+)\(\): (.*))"),
                            "ui $1 $2"};

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

std::string logLine(const std::string& file, int line, const std::string& function,
                    const std::string& message)
{
    return "[B-LOG] " + file + ":" + std::to_string(line) + ":" + function + "(): " + message;
}

std::string mainLine(int line, const std::string& message)
{
    return logLine("main_test.cpp", line, "main", message);
}

std::string kbLine(int line, const std::string& function, const std::string& message)
{
    return logLine("kb_test.cpp", line, function, message);
}

std::string kbUiLine(const std::string& function, const std::string& message)
{
    return logLine("kb_ui_test.cpp", 0, function, message);
}

std::string kbUsage(const std::string& file, int line, const std::string& function)
{
    return logLine(file, line, function,
                   "\n\t Usage: bin  [kb] | cmd |  xxx \n"
                   "\t cmd:[left x]--(Move x buttons to the left)\n"
                   "\t cmd:[right x]--(Move x buttons to the right)\n"
                   "\t cmd:[up x]--(Move x buttons to the up)\n"
                   "\t cmd:[down x]--(Move x buttons to the down)\n"
                   "\t cmd:[shift]--(Enter shift mode)\n"
                   "\t cmd:[shift-right x]--(Enter shift mode and move x buttons to the right)\n"
                   "\t cmd:[alt]--(Enter Alt mode)\n"
                   "\t cmd:[alt-right x]--(Enter Alt mode and move x buttons to the right)\n"
                   "\t cmd:[language x]--(Number of times the language button is pressed)\n"
                   "\t =>cmd:[show|hide|clear|clear-all|submit|space | loop-left |loop-right | "
                   "loop-up | loop-down | more ] \n"
                   "\t IF cmd = more,enter loop input mode\n");
}

Lines reduce(const std::string& output)
{
    std::string text = output;
    for (const int line : {329, 351})
        replaceAll(text, kbUsage("kb_test.cpp", line, "kb_test"),
                   "usage " + std::to_string(line) + "\n");

    std::vector<Rule> rules = kRules;
    if (text.find("mod:kbui") != std::string::npos)
        rules.push_back(kRendererRule);
    Lines reduced;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        std::smatch match;
        const auto rule = std::find_if(rules.begin(), rules.end(), [&](const Rule& each) {
            return std::regex_match(line, match, each.pattern);
        });
        if (rule != rules.end())
            reduced.push_back(match.format(rule->replacement));
    }
    return reduced;
}

Lines operator+(Lines left, const Lines& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Lines operator*(int times, const Lines& lines)
{
    Lines all;
    for (int i = 0; i < times; ++i)
        all = all + lines;
    return all;
}

} // namespace transcript
