#include <cstdio>
#include <cstdlib>
#include <keyboard_core.h>
int main(int argc, char** argv)
{
    IDirectFB* dfb = nullptr;
    if (DirectFBInit(&argc, &argv) != DFB_OK || DirectFBCreate(&dfb) != DFB_OK)
        return 1;
    velmora::browser::vkb::KeyBoardCore keyboard;
    keyboard.OnIMEStart(dfb, nullptr);
    for (int key : {39, 39, 39, 39, 13})
        keyboard.onKeyEvent(key);
    velmora::browser::vkb::OsButton_t result;
    keyboard.getKeyBoardButton(result);
    std::printf("%s\n", result.text.c_str());
    std::fflush(stdout);
    std::_Exit(0);
}
