// The command `layouts`: its sub-commands are in commands/.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "resources.h"

namespace
{

int run(int argc, char** argv)
{
    layouts::Resources resources;
    CLI::App app("Makes, checks and shows keyboard layouts; docs/layouts.md is the manual",
                 "layouts");
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
        app.parse(argc, argv);
    } catch (const CLI::Error& error) {
        return app.exit(error);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "layouts: %s\n", error.what());
        return 1;
    }
    return status;
}

} // namespace

// Drawing leaves DirectFB's threads running. exit() would take its libraries apart under them,
// which crashes now and then; so this ends at once.
int main(int argc, char** argv)
{
    const int status = run(argc, argv);
    std::fflush(nullptr);
    std::_Exit(status);
}
