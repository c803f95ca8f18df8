// The sub-commands of `layouts`.
#ifndef TOOLS_LAYOUTS_COMMANDS_COMMANDS_H
#define TOOLS_LAYOUTS_COMMANDS_COMMANDS_H

namespace CLI
{
class App;
}

namespace layouts
{

struct Resources;

// Each adds its sub-command. When the command line names it, parsing runs it and sets the exit
// status: 0, or 1 when something was found. What goes wrong is thrown as std::exception. Resources
// and status are referred to until then.
void addGenerate(CLI::App& app, const Resources& resources, int& status);
void addCheck(CLI::App& app, const Resources& resources, int& status);
void addCoverage(CLI::App& app, const Resources& resources, int& status);
void addList(CLI::App& app, const Resources& resources, int& status);
void addPreview(CLI::App& app, const Resources& resources, int& status);
void addInstall(CLI::App& app, const Resources& resources, int& status);

} // namespace layouts

#endif
