// The keyboard's state and logic: window, layouts, focus, modes, key results.
// Texts, function names, line numbers and the order of calls are an interface, misspellings
// included.

#include "keyboard_core.h"

#include <cstdlib>

#include "Language_Parser.h"
#include "directfb_check.h"
#include "keyboard_ui.h"
#include "log.h"
#include "window_description.h"

namespace velmora
{
namespace browser
{
namespace vkb
{

namespace
{

// Shared by all cores of the process. Layer and surface are never released; the window is destroyed
// with the keyboard. Both are kept so.
IDirectFBDisplayLayer* os_layer = nullptr;
IDirectFBWindow* os_window = nullptr;
IDirectFBSurface* os_surface = nullptr;

// Pixels, while there is no catalogue to ask.
const int kDefaultWidth = 805;
const int kDefaultHeight = 255;

const int kFontSize = 30; // pixels

const char* const kFallbackLayout = "English";

const char* const kShift = "Shift";
const char* const kAlt = "Alt";

struct RemoteKey {
    RemoteKeyCode code;
    int (KeyBoardCore::*procedure)();
};

const RemoteKey kRemoteKeys[] = {
    {RemoteOk, &KeyBoardCore::EnterPressProc}, {RemoteLeft, &KeyBoardCore::LeftMoveProc},
    {RemoteUp, &KeyBoardCore::UpMoveProc},     {RemoteRight, &KeyBoardCore::RightMoveProc},
    {RemoteDown, &KeyBoardCore::DownMoveProc},
};

// A special key is told by its text, in one of two spellings.
struct SpecialKey {
    const char* text;
    int (KeyBoardCore::*handler)();
};

const SpecialKey kSpecialKeys[] = {
    {"shift", &KeyBoardCore::shiftButtonHandle},    {kShift, &KeyBoardCore::shiftButtonHandle},
    {"hide", &KeyBoardCore::hideButtonHandle},      {"Hide", &KeyBoardCore::hideButtonHandle},
    {"alt", &KeyBoardCore::altButtonHandle},        {kAlt, &KeyBoardCore::altButtonHandle},
    {"clearall", &KeyBoardCore::clearButtonHandle}, {"ClearAll", &KeyBoardCore::clearButtonHandle},
};

} // namespace

KeyBoardCore::KeyBoardCore()
    : m_parser(nullptr), m_ui(nullptr), m_focus_button(), m_button(), m_shift_mode(false),
      m_shift_lock(false), m_alt_mode(false), m_keyboard_status(false), m_is_show(false),
      m_layout_index(0)
{
    VKB_LOG(LogTrace, "called\n");
    const char* font = std::getenv(kFontVariable);
    if (font == nullptr) {
        VKB_LOG(LogError, "VIRTUAL_KEYBOARD_FONT_PATH undefine!\n");
        font = kDefaultFont;
    }
    m_font_path = font;
}

KeyBoardCore::~KeyBoardCore()
{
    VKB_LOG(LogTrace, "called\n");
    releaseKeyboard();
}

void KeyBoardCore::OnIMEStart(IDirectFB* dfb, IDirectFBSurface* surface)
{
    VKB_LOGF(LogTrace, "KeyboardStatus:%d\n", m_keyboard_status);
    if (m_keyboard_status) {
        Show();
        return;
    }

    // A start that found no layout leaves parser and renderer behind, and the next one builds new
    // ones: kept.
    m_parser = new LanguageParser();
    CreateDFBWindow(dfb, surface);
    // Without a readable catalogue the keyboard has no size, and DirectFB makes no window of it: it
    // then stays without a renderer and is not started.
    if (os_window != nullptr)
        m_ui = new KeyBoardUI(dfb, os_surface);
    enter();
}

void KeyBoardCore::OnIMECancelled()
{
    VKB_LOG(LogTrace, "IME Cancel:-- \n");
    releaseKeyboard();
}

// Modes, focus and locks keep their values until the next start sets them.
void KeyBoardCore::releaseKeyboard()
{
    delete m_ui;
    m_ui = nullptr;
    if (os_window != nullptr) {
        os_window->Destroy(os_window);
        os_window = nullptr;
    }
    delete m_parser;
    m_parser = nullptr;
    m_keyboard_status = false;
    m_layout_index = 0;
}

void KeyBoardCore::CreateDFBWindow(IDirectFB* dfb, IDirectFBSurface*)
{
    if (os_layer == nullptr)
        checkDirectFB(dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &os_layer),
                      "dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &os_layer)");
    if (os_window == nullptr) {
        VKB_LOG(LogDetail, "CreateDFBWindow!\n\n");
        // One after the other: each may log, the width first.
        const int width = getWidth();
        const int height = getHeight();
        const DFBWindowDescription desc = windowDescription(kWindowX, kWindowY, width, height);
        os_layer->CreateWindow(os_layer, &desc, &os_window);
        // After the window: kept.
        os_layer->SetCooperativeLevel(os_layer, DLSCL_ADMINISTRATIVE);
        if (os_window == nullptr)
            return;
        os_window->GetSurface(os_window, &os_surface);
    }
    os_window->SetOpacity(os_window, 0xFF);
    os_window->RaiseToTop(os_window);
}

void KeyBoardCore::HideDFBWindow()
{
    os_window->SetOpacity(os_window, 0);
    os_window->LowerToBottom(os_window);
}

void KeyBoardCore::enter()
{
    VKB_LOG(LogTrace, "enter the VKB!\n\n");
    m_layout_names = m_parser->getLayoutsName();
    VKB_LOGF(LogTrace, "language num :%d \n", static_cast<int>(m_layout_names.size()));
    if (m_layout_names.empty()) {
        // A trace line, no error line: kept.
        VKB_LOG(LogTrace, "Read language name error! \n");
        return;
    }

    onLayoutChanged();
    updateKeyMap();
    if (m_ui == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard UI!\n\n");
        return;
    }
    m_ui->show();
    FocusButtonChangedTo(0);
    m_is_show = true;
    m_keyboard_status = true;
}

// A hook that only logs: kept.
void KeyBoardCore::leave()
{
    VKB_LOG(LogTrace, "called\n");
}

void KeyBoardCore::Show()
{
    VKB_LOG(LogTrace, "Show the VKB!\n\n");
    if (m_ui == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard UI!\n\n");
        return;
    }
    m_ui->show();
    FocusButtonChangedTo(m_focus_button.id);
    m_is_show = true;
}

void KeyBoardCore::Hide()
{
    VKB_LOG(LogTrace, "Hide the VKB!\n\n");
    if (m_ui == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard UI!\n\n");
        return;
    }
    m_ui->hide();
    m_is_show = false;
}

bool KeyBoardCore::isShow()
{
    return m_is_show;
}

bool KeyBoardCore::isKeyBoardEnable()
{
    return m_keyboard_status;
}

int KeyBoardCore::getWidth()
{
    if (m_parser == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard parser!\n\n");
        return kDefaultWidth;
    }
    return m_parser->keyboardWidth();
}

int KeyBoardCore::getHeight()
{
    if (m_parser == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard parser!\n\n");
        return kDefaultHeight;
    }
    return m_parser->keyboardHeight();
}

// An empty hook: kept.
void KeyBoardCore::notifySysLanguage(std::string) {}

void KeyBoardCore::onLayoutChanged()
{
    if (m_layout_index >= m_layout_names.size())
        m_layout_index = 0;
    m_layout_name = m_layout_names[m_layout_index];
    ++m_layout_index;
    VKB_LOGF(LogTrace, "language name :%s \n", m_layout_name.c_str());
    if (m_parser == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard parser!\n\n");
        return;
    }
    m_shift_mode = false;
    m_shift_lock = false;
    m_alt_mode = false;
    m_lock_buttons.clear();
    m_parser->onLayoutchanged(m_layout_name);
}

void KeyBoardCore::updateKeyMap()
{
    const char* font_path = m_font_path.c_str();
    if (m_layout_name.empty())
        m_layout_name = kFallbackLayout;
    if (m_parser == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard parser!\n\n");
        return;
    }
    if (m_ui == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard UI!\n\n");
        return;
    }
    m_key_map = m_parser->getKeyMap(m_layout_name, m_shift_mode, m_alt_mode);
    m_ui->setLayoutData(&m_key_map, kFontSize, font_path);
}

int KeyBoardCore::updateKeyBoardUI()
{
    updateKeyMap();
    m_ui->draw(true);
    return FocusButtonChangedTo(m_focus_button.id);
}

Button_t KeyBoardCore::getTargetButtonByButtonId(int id)
{
    VKB_LOGF(LogTrace, "Target button num is %d\n", id);
    // Unsigned, so that a negative id is out of range too.
    if (static_cast<unsigned int>(id) < m_key_map.size())
        m_focus_button = m_key_map[static_cast<unsigned int>(id)];
    else
        VKB_LOG(LogError, "Target keybutton is error,no need to change focus!\n");
    return m_focus_button;
}

int KeyBoardCore::FocusButtonChangedTo(int id)
{
    VKB_LOG(LogTrace, "called\n");
    m_focus_button = getTargetButtonByButtonId(id);
    VKB_LOGF(LogTrace, "focus button:%s\n", m_focus_button.text.c_str());
    // Locks first: painting them takes the frame away.
    sendLockButtonToUI();
    return sendFocusButtonToUI();
}

int KeyBoardCore::sendFocusButtonToUI()
{
    if (m_ui == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard UI!\n");
        return 0;
    }
    m_ui->setfocus(m_focus_button);
    return 1;
}

int KeyBoardCore::sendLockButtonToUI()
{
    if (m_ui == nullptr) {
        VKB_LOG(LogError, "Can not find Keboard UI!\n");
        return 0;
    }
    m_ui->setLocked(m_lock_buttons);
    return 1;
}

// A move towards no neighbour is handled too: the host sees every arrow key as consumed.
int KeyBoardCore::moveFocus(const char* procedure, int32_t neighbour)
{
    VKB_LOG_TEXT(LogTrace, __LINE__, procedure, "called\n");
    if (FocusButtonChangedTo(neighbour) != 0)
        return AnswerConsumed;

    VKB_LOG_TEXT(LogError, __LINE__, procedure, "Failed to handle the key!\n");
    return AnswerNotHandled;
}

int KeyBoardCore::LeftMoveProc()
{
    return moveFocus(__func__, m_focus_button.left_button);
}

int KeyBoardCore::RightMoveProc()
{
    return moveFocus(__func__, m_focus_button.right_button);
}

int KeyBoardCore::UpMoveProc()
{
    return moveFocus(__func__, m_focus_button.up_button);
}

int KeyBoardCore::DownMoveProc()
{
    return moveFocus(__func__, m_focus_button.down_button);
}

int KeyBoardCore::onKeyEvent(int keyCode)
{
    VKB_LOGF(LogTrace, "Received Keycode: %d\n", keyCode);
    if (!m_keyboard_status)
        return AnswerNotHandled;
    if (!m_is_show)
        return AnswerNotHandled;

    for (const RemoteKey& key : kRemoteKeys) {
        if (key.code == keyCode)
            return (this->*key.procedure)();
    }
    return AnswerNotHandled;
}

int KeyBoardCore::EnterPressProc()
{
    VKB_LOG(LogTrace, "called\n");
    if (m_focus_button.isSpecial)
        return specialButtonHandle();
    if (m_focus_button.keyCode < 0)
        return AnswerConsumed;

    // The result is made first: it still carries the Shift that is released here.
    setKeyBoardButton();
    if (m_shift_mode && !m_shift_lock) {
        m_shift_mode = false;
        removeLockButton(kShift);
        updateKeyBoardUI();
    }
    return AnswerKeyResult;
}

bool KeyBoardCore::setKeyBoardButton()
{
    VKB_LOG(LogTrace, "called\n");
    m_button = OsButton_t();
    m_button.keyCode = m_focus_button.keyCode;
    m_button.text = m_focus_button.text;
    m_button.character = m_focus_button.character;
    VKB_LOGF(LogResult, "keycode:0x%x\n", static_cast<unsigned int>(m_button.keyCode));
    // Alt has no modifier: the symbol set's keys carry codes of their own.
    if (m_shift_mode)
        m_button.modifier = kShiftModifier;
    return true;
}

int KeyBoardCore::specialButtonHandle()
{
    for (const SpecialKey& key : kSpecialKeys) {
        if (m_focus_button.text == key.text)
            return (this->*key.handler)();
    }
    if (m_focus_button.isLanguage)
        return languageButtonHandle();

    VKB_LOG(LogError, "Maybe not special key!\n");
    return AnswerNotHandled;
}

int KeyBoardCore::shiftButtonHandle()
{
    VKB_LOGF(LogTrace, "ShiftMode:%d!\n", m_shift_mode);
    if (!m_shift_mode) {
        m_shift_mode = true;
        m_lock_buttons.push_back(m_focus_button);
        updateKeyBoardUI();
    } else if (!m_shift_lock) {
        m_shift_lock = true;
        updateKeyBoardUI();
    } else {
        m_shift_lock = false;
        m_shift_mode = false;
        removeLockButton(kShift);
        refreshAfterUnlock(__func__);
    }
    return AnswerConsumed;
}

int KeyBoardCore::altButtonHandle()
{
    // Shift's message for Alt too: kept.
    VKB_LOGF(LogTrace, "ShiftMode:%d!\n", m_alt_mode);
    if (!m_alt_mode) {
        m_alt_mode = true;
        m_lock_buttons.push_back(m_focus_button);
        updateKeyBoardUI();
    } else {
        m_alt_mode = false;
        removeLockButton(kAlt);
        refreshAfterUnlock(__func__);
    }
    return AnswerConsumed;
}

// What updateKeyBoardUI does, but with the focus line under the handler's name and without a line
// from FocusButtonChangedTo: kept.
void KeyBoardCore::refreshAfterUnlock(const char* handler)
{
    updateKeyMap();
    m_ui->draw(true);
    m_focus_button = getTargetButtonByButtonId(m_focus_button.id);
    VKB_LOG_FORMAT(LogTrace, __LINE__, handler, VKB_LOG_HEADER "focus button:%s\n",
                   m_focus_button.text.c_str());
    sendLockButtonToUI();
    sendFocusButtonToUI();
}

int KeyBoardCore::hideButtonHandle()
{
    Hide();
    return AnswerConsumed;
}

int KeyBoardCore::languageButtonHandle()
{
    VKB_LOG(LogTrace, "called\n");
    onLayoutChanged();
    updateKeyBoardUI();
    return AnswerConsumed;
}

// The host does the clearing. Shift for one key stays, unlike with an ordinary key: kept.
int KeyBoardCore::clearButtonHandle()
{
    VKB_LOG(LogTrace, "called\n");
    return setKeyBoardButton() ? AnswerKeyResult : AnswerNotHandled;
}

// The comparison is exact: a key labelled "shift" or "alt" stays drawn as locked until the next
// layout change, although the mode goes off. Kept.
void KeyBoardCore::removeLockButton(std::string text)
{
    std::vector<Button_t>::iterator lock = m_lock_buttons.begin();
    while (lock != m_lock_buttons.end()) {
        if (lock->text != text) {
            ++lock;
            continue;
        }
        lock = m_lock_buttons.erase(lock);
        VKB_LOGF(LogTrace, "Cancel button(%s)focus!\n", text.c_str());
    }
}

// Offered to the host; the keyboard does not use it.
void KeyBoardCore::updateLockButton()
{
    if (!m_lock_buttons.empty())
        m_lock_buttons.pop_back();
    m_lock_buttons.push_back(m_focus_button);
}

void KeyBoardCore::getKeyBoardButton(OsButton_t& out)
{
    VKB_LOGF(LogTrace, "button.text = %s,button.keyCode = %d,button.modifier = %d\n",
             m_button.text.c_str(), m_button.keyCode, m_button.modifier);
    out = m_button;
}

int KeyBoardCore::getKeyBoardButton()
{
    VKB_LOGF(LogTrace, "button.text = %s,button.keyCode = %d\n", m_button.text.c_str(),
             m_button.keyCode);
    return m_button.keyCode;
}

} // namespace vkb
} // namespace browser
} // namespace velmora
