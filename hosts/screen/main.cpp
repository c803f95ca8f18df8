#include <cstdio>
#include <exception>

#include <CLI/CLI.hpp>

#include "host_log.h"
#include "key_result.h"
#include "keyboard_constants.h"
#include "keyboard_core.h"
#include "screen.h"
#include "text_line.h"

#include "page.h"
#include "remote_keys.h"

using namespace host;
using velmora::browser::vkb::KeyBoardCore;
using velmora::browser::vkb::OsButton_t;

namespace
{

const int kGivenUp = 1;
const int kCannotRun = 2;

const Screen::Option kScreenOptions[] = {{"no-deinit-check", nullptr}, {nullptr, nullptr}};

int fail(const std::string& message)
{
    std::fprintf(stderr, "screen_host: %s\n", message.c_str());
    return kCannotRun;
}

enum class Progress { Goes, Submitted, Left };

// The page's one field with its keyboard.
class Form
{
public:
    Form(const Screen& screen, const std::string& font) : m_screen(screen), m_page(screen, font)
    {
        m_page.draw(m_line, false);
    }

    Progress handle(const RemoteKey& key)
    {
        const bool wasShown = m_core.isShow();
        Progress progress = Progress::Goes;
        m_line_changed = false;
        if (wasShown)
            progress = whileTyping(key);
        else if (key.meaning == RemoteKey::Back)
            progress = Progress::Left;
        else if (key.keyCode == velmora::browser::vkb::RemoteOk)
            enterField();
        if (m_line_changed || m_core.isShow() != wasShown)
            m_page.draw(m_line, m_core.isShow());
        return progress;
    }

    bool hasKeyboard() { return m_core.isKeyBoardEnable(); }
    const std::string& text() const { return m_line.text(); }
    void enterField() { m_core.OnIMEStart(m_screen.directFB(), m_page.surface()); }
    void leaveField() { m_core.Hide(); }
    void end() { m_core.OnIMECancelled(); }

private:
    Progress whileTyping(const RemoteKey& key)
    {
        if (key.meaning == RemoteKey::Back)
            leaveField();
        if (key.meaning != RemoteKey::ForKeyboard ||
            m_core.onKeyEvent(key.keyCode) != velmora::browser::vkb::AnswerKeyResult)
            return Progress::Goes;
        OsButton_t result = {};
        m_core.getKeyBoardButton(result);
        m_line_changed = true;
        const KeyAction action =
            applyKeyResult(result.keyCode, result.character, result.text, m_line);
        return action == KeyAction::Submit ? Progress::Submitted : Progress::Goes;
    }

    const Screen& m_screen;
    Page m_page;
    KeyBoardCore m_core;
    TextLine m_line;
    bool m_line_changed = false;
};

Progress serve(IDirectFBEventBuffer* events, Form& form)
{
    while (events->WaitForEvent(events) == DFB_OK) {
        DFBInputEvent event = {};
        while (events->GetEvent(events, DFB_EVENT(&event)) == DFB_OK) {
            if (event.type != DIET_KEYPRESS)
                continue;
            const Progress progress = form.handle(remoteKey(event.key_symbol));
            if (progress != Progress::Goes)
                return progress;
        }
    }
    return Progress::Left;
}

int run(const std::string& log)
{
    if (!log.empty() && !openLog(log))
        return fail(log + ": cannot be opened for the log");
    const std::string font = chooseFont();
    if (font.empty())
        return fail(noFontMessage());

    const Screen screen(kScreenOptions);
    IDirectFBEventBuffer* events = nullptr;
    require(screen.directFB()->CreateInputEventBuffer(screen.directFB(), DICAPS_KEYS, DFB_TRUE,
                                                      &events),
            "CreateInputEventBuffer");
    Form form(screen, font);
    form.enterField();
    if (!form.hasKeyboard())
        return fail(noLayoutsMessage());
    form.leaveField();
    std::fputs("screen_host: ready; OK or Enter enters the field, Back or Escape leaves\n", stderr);

    const Progress progress = serve(events, form);
    form.end();
    if (progress == Progress::Left)
        return kGivenUp;
    std::puts(form.text().c_str());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("A page with a text field and the on-screen keyboard, on a DirectFB screen.\n"
                 "DFBARGS chooses the screen, such as system=x11,mode=1920x1080,quiet,no-cursor.\n"
                 "The submitted text goes to standard output.");
    app.name("screen_host");
    std::string log;
    app.add_option("--log", log, "Append the keyboard's log lines to FILE")->type_name("FILE");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kCannotRun;
    }
    int status = 0;
    try {
        status = run(log);
    } catch (const std::exception& error) {
        status = fail(error.what());
    }
    endProcess(status);
}
