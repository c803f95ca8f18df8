// The language of played sessions.
#include "steps.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "remote_keys.h"

namespace host
{

namespace
{

struct Form {
    const char* words;
    bool hasText;
    StepKind kind;
};

const Form kForms[] = {
    {"press", true, StepKind::Press},
    {"type", true, StepKind::Type},
    {"key", true, StepKind::Key},
    {"choose", true, StepKind::Choose},
    {"wait keyboard", true, StepKind::WaitKeyboard},
    {"wait title", true, StepKind::WaitTitle},
    {"wait page", true, StepKind::WaitPage},
    {"picture", true, StepKind::Picture},
    {"reload", false, StepKind::Reload},
    {"back", false, StepKind::Back},
};

[[noreturn]] void fail(const Step& step, const std::string& expected)
{
    throw std::runtime_error(step.where + ": found '" + step.words + "', expected " + expected);
}

// "left 3": the key, and how often.
void readPress(Step& step)
{
    const size_t blank = step.text.find(' ');
    if (blank != std::string::npos) {
        const std::string count = step.text.substr(blank + 1);
        if (count.empty() || count.size() > 4 ||
            count.find_first_not_of("0123456789") != std::string::npos)
            fail(step, "a number of presses behind the key");
        step.count = std::stoi(count);
        step.text.resize(blank);
    }
    if (remoteKey(step.text).meaning == RemoteKey::Other)
        fail(step, "press and left, right, up, down, ok, back, red, green, yellow, blue or 0 to 9");
}

Step readStep(const std::string& line, const std::string& where)
{
    Step step = {StepKind::Back, "", 1, where, line};
    for (const Form& form : kForms) {
        const std::string words = form.words;
        const std::string start = form.hasText ? words + " " : words;
        if (line.compare(0, start.size(), start) != 0 || (!form.hasText && line != words))
            continue;
        step.kind = form.kind;
        step.text = line.substr(start.size());
        if (form.hasText && step.text.empty())
            break;
        if (step.kind == StepKind::Press)
            readPress(step);
        if (step.kind == StepKind::WaitKeyboard && step.text != "shown" && step.text != "hidden")
            fail(step, "wait keyboard shown or wait keyboard hidden");
        return step;
    }
    fail(
        step,
        "press KEY [N], type TEXT, key NAME, choose TEXT, wait keyboard shown or hidden, wait title TEXT, "
        "wait page TEXT, picture FILE.png, reload or back");
}

} // namespace

std::vector<Step> readSteps(const std::string& file)
{
    std::ifstream input(file);
    std::vector<Step> steps;
    int number = 0;
    for (std::string line; std::getline(input, line);) {
        ++number;
        if (!line.empty() && line[0] != '#')
            steps.push_back(readStep(line, file + ":" + std::to_string(number)));
    }
    if (!input.eof())
        throw std::runtime_error(file + ": cannot be read: " + std::strerror(errno));
    return steps;
}

} // namespace host
