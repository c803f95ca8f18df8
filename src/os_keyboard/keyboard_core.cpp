#include "keyboard_core.h"

#include <cstdlib>

#include "Language_Parser.h"
#include "directfb_check.h"
#include "keyboard_ui.h"
#include "log.h"
#include "window_description.h"

namespace velmora {
namespace browser {
namespace vkb {

namespace {

// Shared by all cores: a television shows one keyboard, and its window stands
// however many hosts start one. Layer and surface are never released, since
// another core may still draw on them.
IDirectFBDisplayLayer *os_layer = nullptr;
IDirectFBWindow *os_window = nullptr;
IDirectFBSurface *os_surface = nullptr;

// Pixels of the screen.
const int kWindowX = 600;
const int kWindowY = 600;
const int kUsualWidth = 805;
const int kUsualHeight = 255;

const int kFontSize = 30; // pixels
const char *const kFontVariable = "VIRTUAL_KEYBOARD_FONT_PATH";
const char *const kUsualFont = "/usr/local/opt/font/TarvoL2700.ttf";

const char *const kFallbackLayout = "English";

} // namespace

KeyBoardCore::KeyBoardCore()
    : m_parser(nullptr), m_ui(nullptr), m_focus_button(), m_button(),
      m_shift_mode(false), m_shift_lock(false), m_alt_mode(false),
      m_keyboard_status(false), m_is_show(false), m_layout_index(0) {
  VKB_LOG(LOG_TRACE, "called\n");
  const char *font = std::getenv(kFontVariable);
  if (font == nullptr) {
    VKB_LOG(LOG_ERROR, "VIRTUAL_KEYBOARD_FONT_PATH undefine!\n");
    font = kUsualFont;
  }
  m_font_path = font;
}

KeyBoardCore::~KeyBoardCore() {
  VKB_LOG(LOG_TRACE, "called\n");
  releaseKeyboard();
}

void KeyBoardCore::OnIMEStart(IDirectFB *dfb, IDirectFBSurface *surface) {
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

void KeyBoardCore::OnIMECancelled() {
  VKB_LOG(LOG_TRACE, "IME Cancel:-- \n");
  releaseKeyboard();
}

// Modes, focus and locks keep their values until the next start sets them.
void KeyBoardCore::releaseKeyboard() {
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

void KeyBoardCore::CreateDFBWindow(IDirectFB *dfb, IDirectFBSurface *) {
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

void KeyBoardCore::HideDFBWindow() {
  os_window->SetOpacity(os_window, 0);
  os_window->LowerToBottom(os_window);
}

void KeyBoardCore::enter() {
  VKB_LOG(LOG_TRACE, "enter the VKB!\n\n");
  m_layout_names = m_parser->getLayoutsName();
  VKB_LOGF(LOG_TRACE, "language num :%d \n",
           static_cast<int>(m_layout_names.size()));
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
void KeyBoardCore::leave() { VKB_LOG(LOG_TRACE, "called\n"); }

void KeyBoardCore::Show() {
  VKB_LOG(LOG_TRACE, "Show the VKB!\n\n");
  if (m_ui == nullptr) {
    VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n\n");
    return;
  }
  m_ui->show();
  FocusButtonChangedTo(m_focus_button.id);
  m_is_show = true;
}

void KeyBoardCore::Hide() {
  VKB_LOG(LOG_TRACE, "Hide the VKB!\n\n");
  if (m_ui == nullptr) {
    VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n\n");
    return;
  }
  m_ui->hide();
  m_is_show = false;
}

bool KeyBoardCore::isShow() { return m_is_show; }

bool KeyBoardCore::isKeyBoardEnable() { return m_keyboard_status; }

int KeyBoardCore::getWidth() {
  if (m_parser == nullptr) {
    VKB_LOG(LOG_ERROR, "Can not find Keboard parser!\n\n");
    return kUsualWidth;
  }
  return m_parser->keyboardWidth();
}

int KeyBoardCore::getHeight() {
  if (m_parser == nullptr) {
    VKB_LOG(LOG_ERROR, "Can not find Keboard parser!\n\n");
    return kUsualHeight;
  }
  return m_parser->keyboardHeight();
}

// A hook for hosts that tell the system's language: viewers choose the layout
// themselves.
void KeyBoardCore::notifySysLanguage(std::string) {}

void KeyBoardCore::onLayoutChanged() {
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

void KeyBoardCore::updateKeyMap() {
  const char *font_path = m_font_path.c_str();
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

int KeyBoardCore::updateKeyBoardUI() {
  updateKeyMap();
  m_ui->draw(true);
  return FocusButtonChangedTo(m_focus_button.id);
}

Button_t KeyBoardCore::getTargetButtonByButtonId(int id) {
  VKB_LOGF(LOG_TRACE, "Target button num is %d\n", id);
  // Unsigned, so that a negative id is out of range too.
  if (static_cast<unsigned int>(id) < m_key_map.size())
    m_focus_button = m_key_map[static_cast<unsigned int>(id)];
  else
    VKB_LOG(LOG_ERROR, "Target keybutton is error,no need to change focus!\n");
  return m_focus_button;
}

int KeyBoardCore::FocusButtonChangedTo(int id) {
  VKB_LOG(LOG_TRACE, "called\n");
  m_focus_button = getTargetButtonByButtonId(id);
  VKB_LOGF(LOG_TRACE, "focus button:%s\n", m_focus_button.text.c_str());
  // Locks first: painting them takes the frame away.
  sendLockButtonToUI();
  return sendFocusButtonToUI();
}

int KeyBoardCore::sendFocusButtonToUI() {
  if (m_ui == nullptr) {
    VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n");
    return 0;
  }
  m_ui->setfocus(m_focus_button);
  return 1;
}

int KeyBoardCore::sendLockButtonToUI() {
  if (m_ui == nullptr) {
    VKB_LOG(LOG_ERROR, "Can not find Keboard UI!\n");
    return 0;
  }
  m_ui->setLocked(m_lock_buttons);
  return 1;
}

// A move towards no neighbour is handled all the same: while the keyboard is
// shown, the page must not scroll under it.
int KeyBoardCore::moveFocus(const char *procedure, int32_t neighbour) {
  VKB_LOG_TEXT(LOG_TRACE, __LINE__, procedure, "called\n");
  if (FocusButtonChangedTo(neighbour) != 0)
    return 0;

  VKB_LOG_TEXT(LOG_ERROR, __LINE__, procedure, "Failed to handle the key!\n");
  return 2;
}

int KeyBoardCore::LeftMoveProc() {
  return moveFocus(__func__, m_focus_button.left_button);
}

int KeyBoardCore::RightMoveProc() {
  return moveFocus(__func__, m_focus_button.right_button);
}

int KeyBoardCore::UpMoveProc() {
  return moveFocus(__func__, m_focus_button.up_button);
}

int KeyBoardCore::DownMoveProc() {
  return moveFocus(__func__, m_focus_button.down_button);
}

} // namespace vkb
} // namespace browser
} // namespace velmora
