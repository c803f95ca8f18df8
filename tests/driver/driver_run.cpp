#include "driver_run.h"

#include <cstdlib>

#include "grid_layout.h"

using test_process::Command;

namespace
{

// DirectFB's own handling of signals stays out of it: under an emulator it can hang in an abort.
const char* const kDisplay = "system=dummy,mode=1920x1080,quiet,no-cursor,no-sighandler";

// Another build of the driver can be put in its place: the fault tests do.
std::string driverProgram()
{
    const char* other = std::getenv("VKB_TEST_OTHER_DRIVER");
    return other != nullptr && *other != '\0' ? other : VKB_TEST_DRIVER;
}

} // namespace

void TestPlace::putGridLayouts(const std::vector<std::string>& names)
{
    m_folder.writeCatalogue(grid_layout::catalogue(names));
    for (const std::string& name : names)
        m_folder.writeKeyMap(name, grid_layout::keyMap(name));
}

void TestPlace::putFonts()
{
    for (const char* folder : {"/usr/local/opt/font", "/opt/font"})
        m_folder.linkFile(std::string(folder) + "/TarvoL2700.ttf", testFont());
}

std::string testFont()
{
    return VKB_TEST_FONT;
}

Command driverCommandInRealTime(const TestPlace& place, const std::vector<std::string>& arguments)
{
    Command command;
    command.words = {driverProgram()};
    command.words.insert(command.words.end(), arguments.begin(), arguments.end());
    command.environment = {{"DFBARGS", kDisplay}, {"VKB_TEST_ROOT", place.root()}};
    command.preload = {VKB_TEST_SEAMS, VKB_TEST_DIRECTFB_SEAMS};
    return command;
}

Command driverCommand(const TestPlace& place, const std::vector<std::string>& arguments)
{
    Command command = driverCommandInRealTime(place, arguments);
    command.environment["VKB_TEST_SLEEPS"] = "/dev/stdout";
    command.environment["VKB_TEST_CLOCK"] = "1";
    return command;
}

Command driverCommandTraced(const TestPlace& place, const std::vector<std::string>& arguments,
                            const std::string& failing_call, int number)
{
    Command command = driverCommand(place, arguments);
    command.environment["VKB_TEST_TRACE"] = "1";
    if (!failing_call.empty())
        command.environment["VKB_TEST_FAIL"] = failing_call + " " + std::to_string(number);
    return command;
}
