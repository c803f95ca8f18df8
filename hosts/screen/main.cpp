#include <cstdio>
#include <exception>

#include <CLI/CLI.hpp>

#include "host_log.h"
#include "keyboard_constants.h"
#include "keyboard_host.h"
#include "screen.h"
#include "text_line.h"

#include "page.h"
#include "remote_keys.h"

using namespace host;

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
    Form(const Screen& screen, const std::string& font) : m_page(screen, font), m_keyboard(screen)
    {
        m_page.draw(m_line, false);
    }

    Progress handle(const RemoteKey& key)
    {
        const bool wasShown = m_keyboard.isShown();
        Progress progress = Progress::Goes;
        m_line_changed = false;
        if (wasShown)
            progress = whileTyping(key);
        else if (key.meaning == RemoteKey::Back)
            progress = Progress::Left;
        else if (key.keyCode == velmora::browser::vkb::RemoteOk)
            m_keyboard.show();
        if (m_line_changed || m_keyboard.isShown() != wasShown)
            m_page.draw(m_line, m_keyboard.isShown());
        return progress;
    }

    const std::string& text() const { return m_line.text(); }
    KeyboardHost& keyboard() { return m_keyboard; }

private:
    Progress whileTyping(const RemoteKey& key)
    {
        if (key.meaning == RemoteKey::Back)
            m_keyboard.hide();
        if (key.meaning != RemoteKey::ForKeyboard)
            return Progress::Goes;
        const KeyboardHost::Answer answer = m_keyboard.press(key.keyCode);
        if (!answer.hasEdit)
            return Progress::Goes;
        m_line_changed = true;
        applyEdit(answer.edit, m_line);
        return answer.edit.action == KeyAction::Submit ? Progress::Submitted : Progress::Goes;
    }

    Page m_page;
    KeyboardHost m_keyboard;
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
    if (!form.keyboard().show())
        return fail(noLayoutsMessage());
    form.keyboard().hide();
    std::fputs("screen_host: ready; OK or Enter enters the field, Back or Escape leaves\n", stderr);

    const Progress progress = serve(events, form);
    form.keyboard().end();
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
