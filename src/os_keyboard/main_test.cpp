// The test driver's entry: arguments, usage texts, and which commands run.
// Texts, function names, line numbers and the order of calls are an interface, misspellings
// included.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "kb_test.h"
#include "kb_ui_test.h"
#include "keyboard_types.h"
#include "log.h"

using namespace velmora::browser::vkb;

namespace
{

const Rect_t kTestWindow = {100, 100, 800, 600};

// Lines of the "mod:" message for two, three and four arguments.
const int kModeLines[] = {61, 73, 79};

} // namespace

void printusage()
{
    VKB_LOG_TEXT(LogTrace, 17, __func__,
                 "\n\t Usage: bin  [kbui,kb] | cmd |  xxx \n\t\tex.test-bin kbui show A\n\n");
}

void printusage_kb()
{
    VKB_LOG_WHOLE(LogTrace, 34, __func__, KB_USAGE_FORMAT);
}

void printusage_ui()
{
    VKB_LOG_TEXT(LogTrace, 42, __func__,
                 "\n\t bin kbui cmd cmd-params\n"
                 "\t =>cmd:[show|hide|draw | loop-showhide |loop-draw | loop-focus | more ] \n"
                 "\t\tex. test-bin kbui loop-showhide 10\n"
                 "\t IF cmd = more,enter loop input mode\n");
}

int main(int argc, char** argv)
{
    VKB_LOG_FORMAT(LogTrace, 56, __func__, VKB_LOG_HEADER "argc:%d\n", argc);
    if (argc < 2 || argc > 4) {
        printusage();
        std::exit(-1);
    }

    const std::string mode = argv[1];
    const std::string command = argc > 2 ? argv[2] : "";
    const std::string parameter = argc > 3 ? argv[3] : "";
    VKB_LOG_FORMAT(LogTrace, kModeLines[argc - 2], __func__, VKB_LOG_HEADER "mod:%s\n",
                   mode.c_str());
    if (argc == 2 && mode == "kbui") {
        printusage_ui();
        std::exit(-1);
    }
    if (argc == 2 && mode == "kb") {
        printusage_kb();
        std::exit(-1);
    }

    // An unknown mode opens and closes the display and runs nothing: kept.
    initDFB(argc, argv, kTestWindow);
    if (mode == "kbui")
        kb_ui_test(command, parameter);
    else if (mode == "kb")
        kb_test(command, parameter, dfb, surface);

    // The picture stays on the screen until a character comes.
    std::getc(stdin);
    layer->Release(layer);
    dfb->Release(dfb);
    return 0;
}
