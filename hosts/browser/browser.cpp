// Where the remote control, the keyboard and the page meet.
#include "browser.h"

#include <algorithm>
#include <utility>

#include "host_log.h"
#include "keyboard_constants.h"

#include "field_watch.h"
#include "notices.h"
#include "page_questions.h"
#include "page_script.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

const int kRoomBelowField = 24; // pixels

} // namespace

bool isSame(const PageFocus& a, const PageFocus& b)
{
    return a.frame == b.frame && a.serial == b.serial;
}

Browser::Browser(const Screen& screen, const KeyboardModel& model, Setup setup)
    : m_setup(std::move(setup)), m_has_keyboard(!m_setup.font.empty() && !model.layouts().empty()),
      m_window(screen),
      m_composer(m_has_keyboard ? std::make_unique<Composer>(screen, m_setup.font,
                                                             inputSettings("browser_host"))
                                : nullptr),
      m_keyboard(screen, &model, m_composer.get()),
      m_engine(m_window.width(), m_window.height(), kFieldWatch, m_setup.sandbox,
               [this](const uint8_t* pixels, int bytesPerRow) {
                   if (m_window.show(pixels, bytesPerRow) && m_setup.shown)
                       m_setup.shown();
               }),
      m_method(m_engine.view(), {[this](bool focused) {
                                     m_engine_focused = focused;
                                     follow();
                                 },
                                 [this](const CaretArea& caret) {
                                     m_caret = caret;
                                     makeRoom(Caret::Moved, true);
                                 },
                                 [this] { dropWord(); }}),
      m_input(m_engine, m_method)
{
    if (!m_setup.font.empty())
        m_panel = std::make_unique<Panel>(screen, m_setup.font);
    connect();
}

void Browser::connect()
{
    WebKitWebView* view = m_engine.view();
    g_signal_connect(m_engine.content(), "script-message-received::focus",
                     G_CALLBACK(+[](WebKitUserContentManager*, WebKitJavascriptResult* message,
                                    Browser* browser) {
                         browser->takeMessage(webkit_javascript_result_get_js_value(message));
                     }),
                     this);
    g_signal_connect(view, "load-changed",
                     G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent event, Browser* browser) {
                         browser->takeLoad(event);
                     }),
                     this);
    g_signal_connect(
        view, "load-failed",
        G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent, const char* url, GError* error,
                       Browser* browser) -> gboolean { return browser->takeFailure(url, *error); }),
        this);
    g_signal_connect(view, "web-process-terminated",
                     G_CALLBACK(+[](WebKitWebView*, WebKitWebProcessTerminationReason,
                                    Browser* browser) { browser->takeTermination(); }),
                     this);
    g_signal_connect(
        view, "script-dialog",
        G_CALLBACK(+[](WebKitWebView*, WebKitScriptDialog* dialog, Browser* browser) -> gboolean {
            return browser->takeDialog(dialog);
        }),
        this);
    g_signal_connect(
        view, "show-option-menu",
        G_CALLBACK(+[](WebKitWebView*, WebKitOptionMenu* menu, WebKitRectangle*,
                       Browser* browser) -> gboolean { return browser->takeMenu(menu); }),
        this);
    // One screen, one page: what wants a window of its own gets this one.
    g_signal_connect(view, "decide-policy",
                     G_CALLBACK(+[](WebKitWebView* page, WebKitPolicyDecision* decision,
                                    WebKitPolicyDecisionType type, Browser*) -> gboolean {
                         if (type != WEBKIT_POLICY_DECISION_TYPE_NEW_WINDOW_ACTION)
                             return FALSE;
                         WebKitNavigationAction* action =
                             webkit_navigation_policy_decision_get_navigation_action(
                                 WEBKIT_NAVIGATION_POLICY_DECISION(decision));
                         webkit_web_view_load_request(page,
                                                      webkit_navigation_action_get_request(action));
                         webkit_policy_decision_ignore(decision);
                         return TRUE;
                     }),
                     this);
}

void Browser::hideCaret()
{
    WebKitUserStyleSheet* style = webkit_user_style_sheet_new(
        "* { caret-color: transparent !important }", WEBKIT_USER_CONTENT_INJECT_ALL_FRAMES,
        WEBKIT_USER_STYLE_LEVEL_USER, nullptr, nullptr);
    webkit_user_content_manager_add_style_sheet(m_engine.content(), style);
    webkit_user_style_sheet_unref(style);
}

void Browser::open(const std::string& url)
{
    if (m_has_keyboard) {
        load(url);
        return;
    }
    const std::string what = m_setup.font.empty() ? noFontMessage() : noLayoutsMessage();
    m_setup.complain(what);
    tell("There is no keyboard", what, "Go on without", url);
}

void Browser::load(std::string url)
{
    m_notice_link.clear();
    webkit_web_view_load_uri(view(), url.c_str());
}

void Browser::reload()
{
    m_notice_link.clear();
    webkit_web_view_reload(view());
}

void Browser::goBack()
{
    m_notice_link.clear();
    if (webkit_web_view_can_go_back(view()))
        webkit_web_view_go_back(view());
    else
        m_setup.end();
}

void Browser::tell(const std::string& title, const std::string& text, const std::string& label,
                   const std::string& url)
{
    m_notice_link = url;
    webkit_web_view_load_alternate_html(view(), noticePage(title, text, label, url).c_str(),
                                        url.c_str(), nullptr);
}

void Browser::takeMessage(JSCValue* message)
{
    if (isTrue(message, "scrolled")) {
        makeRoom(Caret::Same, false);
        return;
    }
    PageFocus focus;
    focus.frame = textOf(message, "frame");
    focus.serial = std::stoi(textOf(message, "serial"));
    focus.kind = textOf(message, "kind");
    focus.password = isTrue(message, "password");
    focus.address = isTrue(message, "address");
    takeFocus(focus, isTrue(message, "top"), isTrue(message, "gone"));
}

// Each frame tells for itself. What one without the focus tells last must not hide what another
// one told before.
void Browser::takeFocus(const PageFocus& focus, bool isTop, bool isGone)
{
    const bool isNews = focus.kind != "none" || (isTop && !isGone) || focus.frame == m_focus.frame;
    if (focus.kind == "frame" || !isNews)
        return;
    m_focus = focus;
    if (focus.kind == "none")
        m_engine_focused = false; // the engine does not tell when a script removed the field
    follow();
}

void Browser::takeLoad(WebKitLoadEvent event)
{
    if (event == WEBKIT_LOAD_COMMITTED)
        takeCommit();
    if (event != WEBKIT_LOAD_FINISHED)
        return;
    std::vector<std::function<void()>> waits;
    waits.swap(m_load_waits);
    for (const std::function<void()>& done : waits)
        done();
}

void Browser::whenLoaded(std::function<void()> done)
{
    m_load_waits.push_back(std::move(done));
}

void Browser::takeCommit()
{
    if (m_panel)
        m_panel->withdraw();
    m_focus = PageFocus();
    m_shown_for = PageFocus();
    m_engine_focused = false;
    m_has_room = false;
    holdLog(false);
    enterField(input_methods::Field::Text);
    m_input.forget();
    hideKeyboard();
    m_waits.endAll(); // the page will not answer
}

bool Browser::takeFailure(const std::string& url, const GError& error)
{
    if (g_error_matches(&error, WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_CANCELLED))
        return false;
    m_setup.complain(url + ": cannot be shown: " + error.message);
    tell("This page cannot be shown", url + ": " + error.message, "Try again", url);
    return true;
}

void Browser::takeTermination()
{
    takeCommit();
    const char* address = webkit_web_view_get_uri(view());
    const std::string url = address == nullptr ? "about:blank" : address;
    m_setup.complain(url + ": the page's process ended");
    tell("This page ended", url + ": its process was ended.", "Load it again", url);
}

void Browser::ask(const PageQuestion& asked)
{
    const bool wasShown = m_keyboard.isShown();
    hideKeyboard();
    ++m_changes;
    const Panel::Answer answer = asked.answer;
    m_panel->ask(asked.question, [this, wasShown, answer](int choice, const std::string& line) {
        ++m_changes;
        enterField(fieldKind()); // the dialog's word goes with its line
        hideKeyboard();
        answer(choice, line);
        if (wasShown && fieldIsEntered())
            showKeyboard();
    });
    if (m_panel->isOnLine()) {
        enterField(input_methods::Field::Text);
        showKeyboard();
    }
    // Later, as the engine must not get the answer while it still asks.
    g_idle_add(
        [](gpointer browser) -> gboolean {
            static_cast<Browser*>(browser)->m_waits.endAll();
            return G_SOURCE_REMOVE;
        },
        this);
}

bool Browser::takeDialog(WebKitScriptDialog* dialog)
{
    if (m_panel)
        ask(questionOf(dialog));
    else
        m_setup.complain(std::string("a page's dialog is left unanswered: ") +
                         webkit_script_dialog_get_message(dialog));
    return true;
}

bool Browser::takeMenu(WebKitOptionMenu* menu)
{
    if (!m_panel)
        return false;
    ask(questionOf(menu, *m_panel));
    return true;
}

bool Browser::fieldIsEntered() const
{
    return m_focus.kind == "text" || (m_focus.kind == "closed" && m_engine_focused);
}

// Shows the keyboard for a field that was just entered, and hides it when there is none any more.
// A script may leave one field and enter the next; so the hiding waits for what the page tells
// after it.
void Browser::follow()
{
    if (!fieldIsEntered()) {
        m_input.whenHandled([this] {
            if (fieldIsEntered())
                return;
            holdLog(false);
            m_shown_for = PageFocus();
            enterField(input_methods::Field::Text);
            hideKeyboard();
        });
        return;
    }
    const input_methods::Field kind = fieldKind();
    holdLog(kind == input_methods::Field::Password);
    const bool isAnother = !isSame(m_focus, m_shown_for);
    if (isAnother || kind != m_field_kind)
        enterField(kind);
    if (!isAnother)
        return;
    m_shown_for = m_focus;
    m_input.startField();
    if (!m_panel || !m_panel->isOpen())
        showKeyboard();
}

input_methods::Field Browser::fieldKind() const
{
    const bool isClosed = m_focus.kind == "closed";
    const WebKitInputPurpose purpose =
        isClosed ? m_method.purpose() : WEBKIT_INPUT_PURPOSE_FREE_FORM;
    if (m_focus.password || purpose == WEBKIT_INPUT_PURPOSE_PASSWORD)
        return input_methods::Field::Password;
    if (m_focus.address || purpose == WEBKIT_INPUT_PURPOSE_URL ||
        purpose == WEBKIT_INPUT_PURPOSE_EMAIL)
        return input_methods::Field::Address;
    return input_methods::Field::Text;
}

// The word that was being composed stays in the field before.
void Browser::enterField(input_methods::Field kind)
{
    m_field_kind = kind;
    if (!m_preedit.empty())
        m_input.endWord(m_preedit);
    m_preedit.clear();
    if (m_composer)
        m_composer->enterField(kind);
}

// The engine ended the composing by itself.
void Browser::dropWord()
{
    if (m_preedit.empty())
        return;
    m_preedit.clear();
    m_method.forget();
    enterField(m_field_kind);
}

input_methods::Answer Browser::candidates() const
{
    return m_composer && m_composer->offers() ? m_composer->shown() : input_methods::Answer();
}

void Browser::showKeyboard()
{
    if (!m_has_keyboard)
        return;
    if (!m_keyboard.isShown())
        ++m_changes;
    m_keyboard.show();
    makeRoom(Caret::Same, true);
}

void Browser::hideKeyboard()
{
    if (m_keyboard.isShown())
        ++m_changes;
    const KeyboardHost::Answer answer = m_keyboard.hide();
    if (fieldIsEntered() || (m_panel && m_panel->isOnLine()))
        give(answer);
    giveRoomBack();
}

// Keeps what is typed in sight above the keyboard: the page scrolls as far as it can, and the rest
// of the way its picture moves up.
void Browser::makeRoom(Caret news, bool mayScroll)
{
    if (!m_keyboard.isShown() || !fieldIsEntered()) {
        giveRoomBack();
        return;
    }
    m_has_room = true;
    const std::string bottom =
        news == Caret::Moved ? std::to_string(m_caret.y + m_caret.height) : "null";
    m_bar_room = m_keyboard.candidatesRoomNow();
    const int limit = kWindowY - m_bar_room - kRoomBelowField;
    const std::string script = "keyboardRoom.make(" + std::to_string(limit) + "," + bottom + "," +
                               (mayScroll ? "true" : "false") + ")";
    runScript(view(), script, [this](JSCValue* rows) {
        if (m_has_room && rows != nullptr)
            m_window.moveUp(jsc_value_to_int32(rows));
    });
}

void Browser::giveRoomBack()
{
    m_window.moveUp(0);
    if (!m_has_room)
        return;
    m_has_room = false;
    runScript(view(), "keyboardRoom.back()", [](JSCValue*) {});
}

void Browser::press(const RemoteKey& key, bool isHeld)
{
    if (!isHeld)
        m_changes_before = m_changes;
    // Held down from the page into the keyboard, OK would press a key that nobody has chosen.
    if (key.meaning == RemoteKey::Other || m_changes_before != m_changes)
        return;
    if (m_panel && m_panel->isOpen()) {
        pressOnPanel(key);
        return;
    }
    if (m_keyboard.isShown() && pressOnKeyboard(key))
        return;
    if (key.meaning == RemoteKey::Back)
        goBack();
    else if (fieldIsEntered())
        pressInField(key.keyCode);
    else
        pressOnPage(key.keyCode);
}

bool Browser::pressOnKeyboard(const RemoteKey& key)
{
    if (key.meaning == RemoteKey::Back) {
        if (!m_keyboard.leaveCandidates())
            hideKeyboard();
        return true;
    }
    const bool mayChoose = key.meaning == RemoteKey::ForPage && m_keyboard.candidatesHeight() > 0;
    if (key.meaning != RemoteKey::ForKeyboard && !mayChoose)
        return false;
    const KeyboardHost::Answer answer = m_keyboard.press(key.keyCode);
    if (!m_keyboard.isShown()) { // by its own key
        ++m_changes;
        giveRoomBack();
    }
    give(answer);
    if (m_keyboard.isShown() && m_bar_room != m_keyboard.candidatesRoomNow())
        makeRoom(Caret::Same, true); // in another language
    return answer.taken;
}

// A choice is one piece of text for the page; what is composed is underlined there.
void Browser::give(const KeyboardHost::Answer& answer)
{
    if (m_panel && m_panel->isOnLine()) {
        giveToLine(answer);
        return;
    }
    const bool changes = answer.changesField() || m_preedit != m_keyboard.preedit();
    if (changes && !m_preedit.empty())
        m_input.leaveWord(m_preedit);
    if (answer.takeBack > 0)
        m_input.deleteBefore(answer.takeBack);
    if (!answer.text.empty()) {
        m_input.commit(answer.text);
        m_preedit.clear();
    }
    if (m_preedit != m_keyboard.preedit()) {
        m_preedit = m_keyboard.preedit();
        m_input.compose(m_preedit);
    }
    if (answer.hasEdit)
        m_input.edit(answer.edit);
}

void Browser::giveToLine(const KeyboardHost::Answer& answer)
{
    for (int i = 0; i < answer.takeBack; ++i)
        m_panel->edit({KeyAction::EraseBefore, "", KeyCodeBack, false});
    if (!answer.text.empty())
        m_panel->edit({KeyAction::Insert, answer.text, 0, false});
    if (answer.submits()) {
        m_panel->choose();
        return;
    }
    if (answer.hasEdit)
        m_panel->edit(answer.edit);
    m_panel->compose(m_keyboard.preedit());
}

void Browser::pressOnPanel(const RemoteKey& key)
{
    if (m_keyboard.isShown() && pressOnKeyboard(key))
        return;
    if (key.meaning == RemoteKey::Back)
        m_panel->goBack();
    else if (key.keyCode == RemoteUp || key.keyCode == RemoteLeft)
        m_panel->move(-1);
    else if (key.keyCode == RemoteDown || key.keyCode == RemoteRight)
        m_panel->move(1);
    else if (key.keyCode == RemoteOk && m_panel->isOnLine())
        showKeyboard();
    else if (key.keyCode == RemoteOk)
        m_panel->choose();
}

void Browser::pressOnPage(int keyCode)
{
    if (keyCode == RemoteOk && !m_notice_link.empty())
        load(m_notice_link);
    else if (keyCode == RemoteOk && m_focus.kind == "select")
        openMenu();
    else if (keyCode == RemoteOk && m_focus.kind == "toggle")
        m_input.key(' '); // Enter would send the form
    else
        m_input.key(keyCode);
}

// No key opens the engine's menu, but a click does.
void Browser::openMenu()
{
    m_input.whenHandled([this] {
        runScript(view(), "keyboardPoint()", [this](JSCValue* point) {
            const int place = point == nullptr ? -1 : jsc_value_to_int32(point);
            if (place >= 0)
                m_input.click(place % 65536, place / 65536);
        });
    });
}

void Browser::pressInField(int keyCode)
{
    if (keyCode == RemoteOk)
        showKeyboard();
    else if (keyCode == RemoteUp || keyCode == RemoteDown)
        m_input.key(KeyCodeTab, keyCode == RemoteUp);
    else
        m_input.key(keyCode);
}

// A page that waits for its dialog to be answered handles and shows nothing before.
void Browser::whenHandled(std::function<void()> done)
{
    if (m_panel && m_panel->isOpen()) {
        done();
        return;
    }
    const unsigned number = m_waits.add(std::move(done));
    m_input.whenHandled([this, number] { m_waits.end(number); });
}

void Browser::whenShown(std::function<void()> done)
{
    whenHandled([this, done] {
        if (m_panel && m_panel->isOpen()) {
            done();
            return;
        }
        const unsigned number = m_waits.add(done);
        runFunction(
            view(),
            "return new Promise(shown => requestAnimationFrame(() => requestAnimationFrame(shown)))",
            nullptr, [this, number](JSCValue*) { m_waits.end(number); });
    });
}

void Browser::pageText(std::function<void(const std::string&)> done)
{
    if (m_panel && m_panel->isOpen()) {
        done(m_panel->text());
        return;
    }
    runScript(view(), "document.body ? document.body.innerText : ''",
              [done](JSCValue* value) { done(value == nullptr ? "" : asText(value)); });
}

} // namespace host
