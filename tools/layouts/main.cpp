// The command `layouts`: its sub-commands are in commands/.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "commands.h"
#include "program.h"
#include "resources.h"

namespace
{

const char kName[] = "layouts";

int run(int argc, char** argv)
{
    layouts::Resources resources;
    CLI::App app("Makes, checks and shows keyboard layouts; docs/layouts.md is the manual", kName);
    app.require_subcommand(1);
    app.add_option("--resources", resources.path,
                   "Folder with languages.tsv, oskeyboard_config/ and schema/")
        ->check(CLI::ExistingDirectory);
    int status = 0;
    layouts::addGenerate(app, resources, status);
    layouts::addCheck(app, resources, status);
    layouts::addCoverage(app, resources, status);
    layouts::addList(app, resources, status);
    layouts::addPreview(app, resources, status);
    layouts::addInstall(app, resources, status);

    try {
        return program::readOptions(app, argc, argv).value_or(status);
    } catch (const std::exception& error) {
        program::fail(kName, error.what());
        return 1;
    }
}

} // namespace

// Drawing leaves DirectFB's threads running. exit() would take its libraries apart under them,
// which crashes now and then; so this ends at once.
int main(int argc, char** argv)
{
    const int status = program::flushOutput(kName, run(argc, argv));
    std::_Exit(status);
}
