#include "keyboard_core.h"

#include <cstdlib>

#include "Language_Parser.h"
#include "directfb_check.h"
#include "keyboard_constants.h"
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

// Shared by all cores: a television shows one keyboard, and its window stands
// however many hosts start one. Layer and surface are never released, since
// another core may still draw on them.
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

// A special key is told by its text; a layout may write it in either case.
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
    VKB_LOG(LOG_TRACE, "called\n");
    const char* font = std::getenv(kFontVariable);
    if (font == nullptr) {
        VKB_LOG(LOG_ERROR, "VIRTUAL_KEYBOARD_FONT_PATH undefine!\n");
        font = kDefaultFont;
    }
    m_font_path = font;
}

KeyBoardCore::~KeyBoardCore()
{
    VKB_LOG(LOG_TRACE, "called\n");
    releaseKeyboard();
}

void KeyBoardCore::OnIMEStart(IDirectFB* dfb, IDirectFBSurface* surface)
{
    VKB_LOGF(LOG_TRACE, "KeyboardStatus:%d\n", m_keyboard_status);
    if (m_keyboard_status) {
        Show();
        return;
    }

    // A start that found no layout leaves these two behind; the next one builds
    // new ones beside them, because the host may have put the layouts in place
    // meanwhile.
    m_parser = new LanguageParser();
    CreateDFBWindow(dfb, surface);
    // Without a readable catalogue the keyboard has no size, and no window can be
    // made of it: it then stays without a renderer and is not started.
    if (os_window != nullptr)
        m_ui = new KeyBoardUI(dfb, os_surface);
    enter();
}

void KeyBoardCore::OnIMECancelled()
{
    VKB_LOG(LOG_TRACE, "IME Cancel:-- \n");
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
        VKB_LOG(LOG_DETAIL, "CreateDFBWindow!\n\n");
        const DFBWindowDescription desc =
            windowDescription(kWindowX, kWindowY, getWidth(), getHeight());
        os_layer->CreateWindow(os_layer, &desc, &os_window);
        // After the window: the browser holds the level already, and this only
        // takes it back from whoever changed it while the window was made.
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
    VKB_LOG(LOG_TRACE, "enter the VKB!\n\n");
    m_layout_names = m_parser->getLayoutsName();
    VKB_LOGF(LOG_TRACE, "language num :%d \n", static_cast<int>(m_layout_names.size()));
    if (m_layout_names.empty()) {
        // A trace, no error: a television sold without layouts is not at fault.
        VKB_LOG(LOG_TRACE, "Read language name error! \n");
        return;
    }

    onLayoutChanged();
    updateKeyMap();
    if (m_ui == nullptr) {
        VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n\n");
        return;
    }
    m_ui->show();
    FocusButtonChangedTo(0);
    m_is_show = true;
    m_keyboard_status = true;
}

// A hook for hosts that call it on leaving a text field: the keyboard stays as
// it is.
void KeyBoardCore::leave()
{
    VKB_LOG(LOG_TRACE, "called\n");
}

void KeyBoardCore::Show()
{
    VKB_LOG(LOG_TRACE, "Show the VKB!\n\n");
    if (m_ui == nullptr) {
        VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n\n");
        return;
    }
    m_ui->show();
    FocusButtonChangedTo(m_focus_button.id);
    m_is_show = true;
}

void KeyBoardCore::Hide()
{
    VKB_LOG(LOG_TRACE, "Hide the VKB!\n\n");
    if (m_ui == nullptr) {
        VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n\n");
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
        VKB_LOG(LOG_ERROR, "Can not find Keboard parser!\n\n");
        return kDefaultWidth;
    }
    return m_parser->keyboardWidth();
}

int KeyBoardCore::getHeight()
{
    if (m_parser == nullptr) {
        VKB_LOG(LOG_ERROR, "Can not find Keboard parser!\n\n");
        return kDefaultHeight;
    }
    return m_parser->keyboardHeight();
}

// A hook for hosts that tell the system's language: viewers choose the layout
// themselves.
void KeyBoardCore::notifySysLanguage(std::string) {}

void KeyBoardCore::onLayoutChanged()
{
    if (m_layout_index >= m_layout_names.size())
        m_layout_index = 0;
    m_layout_name = m_layout_names[m_layout_index];
    ++m_layout_index;
    VKB_LOGF(LOG_TRACE, "language name :%s \n", m_layout_name.c_str());
    if (m_parser == nullptr) {
        VKB_LOG(LOG_ERROR, "Can not find Keboard parser!\n\n");
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
        VKB_LOG(LOG_ERROR, "Can not find Keboard parser!\n\n");
        return;
    }
    if (m_ui == nullptr) {
        VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n\n");
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
    VKB_LOGF(LOG_TRACE, "Target button num is %d\n", id);
    // Unsigned, so that a negative id is out of range too.
    if (static_cast<unsigned int>(id) < m_key_map.size())
        m_focus_button = m_key_map[static_cast<unsigned int>(id)];
    else
        VKB_LOG(LOG_ERROR, "Target keybutton is error,no need to change focus!\n");
    return m_focus_button;
}

int KeyBoardCore::FocusButtonChangedTo(int id)
{
    VKB_LOG(LOG_TRACE, "called\n");
    m_focus_button = getTargetButtonByButtonId(id);
    VKB_LOGF(LOG_TRACE, "focus button:%s\n", m_focus_button.text.c_str());
    // Locks first: painting them takes the frame away.
    sendLockButtonToUI();
    return sendFocusButtonToUI();
}

int KeyBoardCore::sendFocusButtonToUI()
{
    if (m_ui == nullptr) {
        VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n");
        return 0;
    }
    m_ui->setfocus(m_focus_button);
    return 1;
}

int KeyBoardCore::sendLockButtonToUI()
{
    if (m_ui == nullptr) {
        VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n");
        return 0;
    }
    m_ui->setLocked(m_lock_buttons);
    return 1;
}

// A move towards no neighbour is handled all the same: while the keyboard is
// shown, the page must not scroll under it.
int KeyBoardCore::moveFocus(const char* procedure, int32_t neighbour)
{
    VKB_LOG_TEXT(LOG_TRACE, __LINE__, procedure, "called\n");
    if (FocusButtonChangedTo(neighbour) != 0)
        return AnswerConsumed;

    VKB_LOG_TEXT(LOG_ERROR, __LINE__, procedure, "Failed to handle the key!\n");
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
    VKB_LOGF(LOG_TRACE, "Received Keycode: %d\n", keyCode);
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
    VKB_LOG(LOG_TRACE, "called\n");
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
    VKB_LOG(LOG_TRACE, "called\n");
    m_button = OsButton_t();
    m_button.keyCode = m_focus_button.keyCode;
    m_button.text = m_focus_button.text;
    m_button.character = m_focus_button.character;
    VKB_LOGF(LOG_RESULT, "keycode:0x%x\n", static_cast<unsigned int>(m_button.keyCode));
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

    VKB_LOG(LOG_ERROR, "Maybe not special key!\n");
    return AnswerNotHandled;
}

int KeyBoardCore::shiftButtonHandle()
{
    VKB_LOGF(LOG_TRACE, "ShiftMode:%d!\n", m_shift_mode);
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
    // Shift's message, which the testers' tools look for after either key.
    VKB_LOGF(LOG_TRACE, "ShiftMode:%d!\n", m_alt_mode);
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

// What updateKeyBoardUI does, but with the focus line under the handler's name
// and without a line from FocusButtonChangedTo: the log tells a mode that went
// off from one that came on.
void KeyBoardCore::refreshAfterUnlock(const char* handler)
{
    updateKeyMap();
    m_ui->draw(true);
    m_focus_button = getTargetButtonByButtonId(m_focus_button.id);
    VKB_LOG_FORMAT(LOG_TRACE, __LINE__, handler, VKB_LOG_HEADER "focus button:%s\n",
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
    VKB_LOG(LOG_TRACE, "called\n");
    onLayoutChanged();
    updateKeyBoardUI();
    return AnswerConsumed;
}

// The host does the clearing. No character was typed, so Shift once stays for
// the next one.
int KeyBoardCore::clearButtonHandle()
{
    VKB_LOG(LOG_TRACE, "called\n");
    return setKeyBoardButton() ? AnswerKeyResult : AnswerNotHandled;
}

// The comparison is exact: a layout that labels its key "shift" keeps it drawn
// as locked until the next layout change, although the mode goes off.
void KeyBoardCore::removeLockButton(std::string text)
{
    std::vector<Button_t>::iterator lock = m_lock_buttons.begin();
    while (lock != m_lock_buttons.end()) {
        if (lock->text != text) {
            ++lock;
            continue;
        }
        lock = m_lock_buttons.erase(lock);
        VKB_LOGF(LOG_TRACE, "Cancel button(%s)focus!\n", text.c_str());
    }
}

// For hosts that mark keys of their own; the keyboard does not use it.
void KeyBoardCore::updateLockButton()
{
    if (!m_lock_buttons.empty())
        m_lock_buttons.pop_back();
    m_lock_buttons.push_back(m_focus_button);
}

void KeyBoardCore::getKeyBoardButton(OsButton_t& out)
{
    VKB_LOGF(LOG_TRACE, "button.text = %s,button.keyCode = %d,button.modifier = %d\n",
             m_button.text.c_str(), m_button.keyCode, m_button.modifier);
    out = m_button;
}

int KeyBoardCore::getKeyBoardButton()
{
    VKB_LOGF(LOG_TRACE, "button.text = %s,button.keyCode = %d\n", m_button.text.c_str(),
             m_button.keyCode);
    return m_button.keyCode;
}

} // namespace vkb
} // namespace browser
} // namespace velmora
