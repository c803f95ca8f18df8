// The smallest host of the on-screen keyboard; docs/embedding.md explains it piece by piece.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <keyboard_constants.h>
#include <keyboard_core.h>

using namespace velmora::browser::vkb;

// Stands for the page's text field.
struct TextField {
    std::string text; // UTF-8
    bool submitted = false;
};

std::string utf8(uint32_t character)
{
    const auto tail = [character](unsigned shift) {
        return static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80)
        return {static_cast<char>(character)};
    if (character < 0x800)
        return {static_cast<char>(0xC0 | character >> 6), tail(0)};
    if (character < 0x10000)
        return {static_cast<char>(0xE0 | character >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | character >> 18), tail(12), tail(6), tail(0)};
}

void deliver(const OsButton_t& key, TextField& field)
{
    switch (key.keyCode) {
    case KeyCodeBack:
        while (!field.text.empty() && (field.text.back() & 0xC0) == 0x80)
            field.text.pop_back(); // what follows a character's first byte
        if (!field.text.empty())
            field.text.pop_back();
        break;
    case KeyCodeClearAll: // the host does the clearing
        field.text.clear();
        break;
    case KeyCodeEnter:
        field.submitted = true;
        break;
    case KeyCodeTab: // the other fields and the caret are left out here
    case KeyCodeCaretLeft:
    case KeyCodeCaretRight:
    case KeyCodeDelete:
        break;
    default:
        field.text += key.character != 0 ? utf8(static_cast<uint32_t>(key.character)) : key.text;
    }
}

// Returns whether the keyboard took the key.
bool onRemoteKey(KeyBoardCore& keyboard, int keyCode, TextField& field)
{
    switch (keyboard.onKeyEvent(keyCode)) {
    case AnswerConsumed: // the focus moved, Shift, Alt, the language or hide
        return true;
    case AnswerKeyResult: {
        OsButton_t key;
        keyboard.getKeyBoardButton(key);
        deliver(key, field);
        return true;
    }
    default: // AnswerNotHandled: not started, hidden, or no key of the keyboard's
        return false;
    }
}

// DirectFB's threads run on; see "The end".
[[noreturn]] void end(int status)
{
    std::fflush(nullptr);
    std::_Exit(status);
}

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "minimal_host: %s\n", what);
    end(1);
}

int main(int argc, char** argv)
{
    // Unless the environment chooses a screen: one that nobody sees, which every machine has.
    setenv("DFBARGS", "system=dummy,mode=1920x1080,quiet,no-cursor", 0);
    IDirectFB* dfb = nullptr;
    if (DirectFBInit(&argc, &argv) != DFB_OK || DirectFBCreate(&dfb) != DFB_OK)
        fail("DirectFB does not start; DFBARGS chooses its screen");

    KeyBoardCore keyboard;
    TextField field;

    // A text field is entered. The second argument is the page's surface; the keyboard draws on a
    // window of its own.
    keyboard.OnIMEStart(dfb, nullptr);
    if (!keyboard.isKeyBoardEnable())
        fail("found no layouts; make install puts them there");

    // Four to the right and OK, as the viewer would.
    for (const int key : {RemoteRight, RemoteRight, RemoteRight, RemoteRight, RemoteOk})
        onRemoteKey(keyboard, key, field);

    // The field is left for a while: the keyboard hides, and keys are the page's.
    keyboard.Hide();
    const bool taken = onRemoteKey(keyboard, RemoteOk, field);

    // Entered again: shown as it was, the focus on the same key.
    keyboard.OnIMEStart(dfb, nullptr);
    onRemoteKey(keyboard, RemoteOk, field);

    // Text input is over: window, renderer and layouts go.
    keyboard.OnIMECancelled();
    std::printf("%s %s\n", field.text.c_str(), taken ? "taken" : "left to the page");
    end(0);
}
