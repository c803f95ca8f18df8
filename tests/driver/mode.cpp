#include "mode.h"

#include <csignal>

using namespace transcript;

Run Mode::run(const Script& script) const
{
    const bool isGiven = script.parameter != "null";
    const std::string parameter = isGiven ? script.parameter : "";
    const Lines begun = {
        mainLine(56, isGiven ? "argc:4" : "argc:3"), mainLine(isGiven ? 79 : 73, "mod:" + name),
        line(commandLine, source, "cmd:" + script.command + ",param:" + parameter)};
    return {script.name, Lines{name, script.command} + (isGiven ? Lines{parameter} : Lines()), "",
            begun + started + done(script.command, parameter, script.steps, script.milliseconds),
            script.error};
}

Run Mode::run(const Session& session) const
{
    Script more = {session.name, "more", session.parameter, {firstUsage}, 0, session.error};
    std::string input;
    for (const Pass& pass : session.passes) {
        const std::string echo = "=>cmd:[" + pass.command + "] [" + pass.parameter + "] ";
        const std::string parameter = pass.parameter == "null" ? "" : pass.parameter;
        input += pass.typed + "\n";
        more.steps = more.steps + Lines{prompt, line(echoLine, source, echo)} +
                     done(pass.command, parameter, pass.steps, pass.milliseconds) + Lines{usage};
    }
    more.steps.pop_back(); // the last line ends the loop
    Run whole = run(more);
    whole.input = input + "quit \n"; // where the last line fails to end it
    return whole;
}

void Mode::expectEndlessLoop(const Pass& typed) const
{
    const TestPlace place;
    test_process::Process driver(driverCommand(place, {name, "more"}));
    ASSERT_TRUE(driver.write(typed.typed));
    driver.closeInput();
    ASSERT_TRUE(driver.waitForOutput("=>pls input cmd  [parames]\n", 50));
    driver.kill(SIGKILL);
    EXPECT_EQ(driver.result().signal, SIGKILL) << "it had ended by itself";

    Session session = {"", std::vector<Pass>(49, {"", "", "null"})};
    session.passes[0] = typed;
    const Lines expected = run(session).expected;
    Lines lines = reduce(driver.result().out);
    ASSERT_GE(lines.size(), expected.size());
    lines.resize(expected.size());
    EXPECT_EQ(text(lines), text(expected));
}

std::string Mode::line(int number, const std::string& function, const std::string& message) const
{
    return logLine(source + ".cpp", number, function, message);
}

// "more", "quit" and what is unknown are in no table.
Lines Mode::done(const std::string& its_name, const std::string& parameter, const Lines& steps,
                 int milliseconds) const
{
    const auto found = commands.find(its_name);
    if (found == commands.end())
        return steps;
    const DriverCommand& command = found->second;
    const std::string label = std::string("=======>") + command.label + " ";

    Lines lines;
    if (command.isAnnounced)
        lines.push_back(line(command.timeLine, handler, label));
    lines.push_back("clock");
    if (*command.function != '\0')
        lines.push_back(
            line(command.line, command.function, command.counts ? "param:" + parameter : "called"));
    lines = lines + steps;
    if (milliseconds == 0)
        return lines;
    const std::string figure = "using:" + std::to_string(milliseconds) + " ms";
    return lines + Lines{"clock", line(command.timeLine, handler, label + figure)};
}
