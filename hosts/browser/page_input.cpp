// From key results to what the engine takes: key events, composed text, editing commands.
#include "page_input.h"

#include <algorithm>
#include <utility>

#include <unictype.h>
#include <unistr.h>
#include <wpe/wpe.h>

#include "keyboard_constants.h"
#include "text_line.h"

#include "page_script.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

const int kAnswersForKey = 3; // down, up, and what came before them

struct KeyOfKeyboard {
    int keyCode;           // the browser's key event code
    uint32_t symbol;       // X11's, for keys that are no characters; else 0
    uint32_t hardwareCode; // evdev's code + 8: becomes the event's `code`
};

const KeyOfKeyboard kKeys[] = {
    {KeyCodeBack, WPE_KEY_BackSpace, 22},
    {KeyCodeTab, WPE_KEY_Tab, 23},
    {KeyCodeEnter, WPE_KEY_Return, 36},
    {27, WPE_KEY_Escape, 9},
    {' ', ' ', 65},
    {KeyCodeCaretLeft, WPE_KEY_Left, 113},
    {RemoteUp, WPE_KEY_Up, 111},
    {KeyCodeCaretRight, WPE_KEY_Right, 114},
    {RemoteDown, WPE_KEY_Down, 116},
    {KeyCodeDelete, WPE_KEY_Delete, 119},
    {'0', '0', 19},
    {'1', '1', 10},
    {'2', '2', 11},
    {'3', '3', 12},
    {'4', '4', 13},
    {'5', '5', 14},
    {'6', '6', 15},
    {'7', '7', 16},
    {'8', '8', 17},
    {'9', '9', 18},
    {'A', 0, 38},
    {'B', 0, 56},
    {'C', 0, 54},
    {'D', 0, 40},
    {'E', 0, 26},
    {'F', 0, 41},
    {'G', 0, 42},
    {'H', 0, 43},
    {'I', 0, 31},
    {'J', 0, 44},
    {'K', 0, 45},
    {'L', 0, 46},
    {'M', 0, 58},
    {'N', 0, 57},
    {'O', 0, 32},
    {'P', 0, 33},
    {'Q', 0, 24},
    {'R', 0, 27},
    {'S', 0, 39},
    {'T', 0, 28},
    {'U', 0, 30},
    {'V', 0, 55},
    {'W', 0, 25},
    {'X', 0, 53},
    {'Y', 0, 29},
    {'Z', 0, 52},
    {186, 0, 47},
    {187, 0, 21},
    {188, 0, 59},
    {189, 0, 20},
    {190, 0, 60},
    {191, 0, 61},
    {192, 0, 49},
    {219, 0, 34},
    {220, 0, 51},
    {221, 0, 35},
    {222, 0, 48},
    {226, 0, 94},
};

const KeyOfKeyboard* keyOf(int keyCode)
{
    for (const KeyOfKeyboard& key : kKeys)
        if (key.keyCode == keyCode)
            return &key;
    return nullptr;
}

uint32_t now()
{
    return static_cast<uint32_t>(g_get_monotonic_time() / 1000);
}

// Its code point when the text is exactly one, else 0.
uint32_t onlyCharacter(const std::string& text)
{
    ucs4_t character = 0;
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(text.data());
    const int length = u8_mbtouc(&character, bytes, text.size());
    return length > 0 && static_cast<size_t>(length) == text.size() ? character : 0;
}

// Not a mark, which Backspace would take away together with the letter that carries it.
bool isLetter(const std::string& text)
{
    const uint32_t character = onlyCharacter(text);
    return character != 0 && !uc_is_general_category(character, UC_MARK);
}

// What the engine has no key for; a script's event is not trusted, but it has the key code.
std::string scriptedKey(int keyCode)
{
    return "(() => { let d = document; while (d.activeElement && d.activeElement.contentDocument) "
           "d = d.activeElement.contentDocument; const to = d.activeElement || d.body || d; "
           "for (const type of ['keydown', 'keyup']) to.dispatchEvent(new KeyboardEvent(type, "
           "{keyCode: " +
           std::to_string(keyCode) + ", which: " + std::to_string(keyCode) +
           ", bubbles: true, cancelable: true, composed: true})); })()";
}

} // namespace

PageInput::PageInput(const Engine& engine, InputMethod& method)
    : m_engine(engine), m_method(method), m_valid(std::make_shared<bool>(true))
{
}

void PageInput::edit(const Edit& edit)
{
    const std::string last = std::exchange(m_last, "");
    switch (edit.action) {
    case KeyAction::Insert: {
        const std::string together = composed(last + edit.text);
        const bool isAccent = onlyCharacter(together) != 0 && isLetter(last);
        if (isAccent)
            key(KeyCodeBack);
        insert(isAccent ? together : edit.text, edit);
        m_last = isAccent ? together : edit.text;
        break;
    }
    case KeyAction::Clear:
        clear();
        break;
    default:
        key(edit.keyCode, edit.shift);
    }
}

void PageInput::insert(const std::string& text, const Edit& edit)
{
    const uint32_t character = onlyCharacter(text);
    if (character == 0) {
        commit(text);
        return;
    }
    const KeyOfKeyboard* key = keyOf(edit.keyCode);
    const uint32_t hardwareCode = key == nullptr ? 0 : key->hardwareCode;
    add(kAnswersForKey, [this, character, hardwareCode, shift = edit.shift] {
        send(wpe_unicode_to_key_code(character), hardwareCode, shift);
    });
}

void PageInput::send(uint32_t symbol, uint32_t hardwareCode, bool shift)
{
    wpe_input_keyboard_event event = {};
    event.time = now();
    event.key_code = symbol;
    event.hardware_key_code = hardwareCode;
    event.modifiers = shift ? static_cast<uint32_t>(wpe_input_keyboard_modifier_shift) : 0;
    for (const bool pressed : {true, false}) {
        event.pressed = pressed;
        wpe_view_backend_dispatch_keyboard_event(m_engine.input(), &event);
    }
}

void PageInput::key(int keyCode, bool shift)
{
    m_last.clear();
    const KeyOfKeyboard* key = keyOf(keyCode);
    if (key == nullptr || key->symbol == 0) {
        const std::string script = scriptedKey(keyCode);
        add(1, [this, script] { tellPage(script); });
        return;
    }
    add(kAnswersForKey, [this, key, shift] { send(key->symbol, key->hardwareCode, shift); });
}

void PageInput::commit(const std::string& text)
{
    add(kAnswersForKey, [this, text] { m_method.commit(text); });
}

void PageInput::compose(const std::string& text)
{
    add(kAnswersForKey, [this, text] { m_method.compose(text); });
}

void PageInput::settleWord(const std::string& text, Word word)
{
    add(1, [this, text] { askForWord(text); });
    add(kAnswersForKey, [this, text, word] {
        const bool isLeft = m_word == "left";
        if (!isLeft && (m_word != "there" || word != Word::Ends))
            return;
        if (isLeft)
            tellPage("keyboardWord.hold()");
        m_method.commit(text);
        if (isLeft)
            tellPage("keyboardWord.release()");
    });
}

void PageInput::askForWord(const std::string& text)
{
    m_word.clear();
    GVariantDict arguments;
    g_variant_dict_init(&arguments, nullptr);
    g_variant_dict_insert(&arguments, "text", "s", text.c_str());
    runFunction(m_engine.view(), "return keyboardWord.state(text)", g_variant_dict_end(&arguments),
                [this](JSCValue* state) {
                    if (state != nullptr)
                        m_word = asText(state);
                });
}

void PageInput::tellPage(const std::string& script)
{
    runScript(m_engine.view(), script, [](JSCValue*) {});
}

void PageInput::click(int x, int y)
{
    add(kAnswersForKey, [this, x, y] {
        wpe_input_pointer_event event = {};
        event.type = wpe_input_pointer_event_type_motion;
        event.time = now();
        event.x = x;
        event.y = y;
        wpe_view_backend_dispatch_pointer_event(m_engine.input(), &event);
        event.type = wpe_input_pointer_event_type_button;
        event.button = 1;
        for (const unsigned pressed : {1U, 0U}) {
            event.state = pressed;
            wpe_view_backend_dispatch_pointer_event(m_engine.input(), &event);
        }
    });
}

void PageInput::deleteBefore(int characters)
{
    for (int i = 0; i < characters; ++i)
        key(KeyCodeBack);
}

void PageInput::clear()
{
    add(1, [this] {
        webkit_web_view_execute_editing_command(m_engine.view(), "SelectAll");
        webkit_web_view_execute_editing_command(m_engine.view(), "Delete");
    });
}

void PageInput::whenHandled(std::function<void()> done)
{
    add(0, std::move(done));
}

void PageInput::add(int answers, std::function<void()> run)
{
    m_jobs.push_back({std::move(run), answers});
    if (m_open == 0)
        next();
}

void PageInput::next()
{
    while (m_open == 0 && !m_jobs.empty()) {
        const Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_open = job.answers;
        job.run();
        if (job.answers > 0)
            ask();
    }
}

// The answer comes when the page has handled the key event that the engine gave it before; only
// then the engine gives it the next one.
void PageInput::ask()
{
    const std::shared_ptr<bool> valid = m_valid;
    runScript(m_engine.view(), "0", [this, valid](JSCValue*) {
        if (*valid)
            handled();
    });
}

void PageInput::handled()
{
    if (--m_open > 0)
        ask();
    else
        next();
}

void PageInput::forget()
{
    *m_valid = false;
    m_valid = std::make_shared<bool>(true);
    m_open = 0;
    m_last.clear();
    m_method.forget();
    std::deque<Job> jobs;
    jobs.swap(m_jobs);
    for (const Job& job : jobs)
        if (job.answers == 0)
            job.run();
}

} // namespace host
