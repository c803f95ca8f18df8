// layouts install: puts chosen layouts into a folder.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include <CLI/CLI.hpp>

#include "checker.h"
#include "commands.h"
#include "install.h"
#include "resources.h"

namespace layouts
{
namespace
{

// Where the keyboard looks for its files.
const char kInstalledFolder[] = "/usr/local/opt/nerovista/resources/oskeyboard_config";

struct Arguments {
    std::vector<std::string> names;
    std::string to = kInstalledFolder;
};

int run(const Resources& resources, const Arguments& arguments)
{
    if (std::filesystem::exists(arguments.to) &&
        std::filesystem::equivalent(arguments.to, resources.folder()))
        throw std::runtime_error(arguments.to +
                                 ": is where the layouts come from, and all others would be lost; "
                                 "give another folder with --to");
    const LayoutSet set = selectLayouts(readLayoutSet(resources.folder()), arguments.names);
    const Findings findings = Checker(resources.schemas()).check(set, CheckOptions());
    if (!findings.empty()) {
        std::fprintf(stderr, "nothing installed, as the set has faults:\n");
        return report(findings);
    }
    installSet(set, arguments.to);
    return 0;
}

} // namespace

void addInstall(CLI::App& app, const Resources& resources, int& status)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        app.add_subcommand("install", "Install just these layouts, the first one first");
    command->add_option("NAME", arguments->names, "Names of layouts")->required();
    command->add_option("--to", arguments->to, "Folder to install to")->capture_default_str();
    command->callback([&resources, &status, arguments] { status = run(resources, *arguments); });
}

} // namespace layouts
