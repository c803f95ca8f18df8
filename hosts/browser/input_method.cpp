// A GObject class that hands the engine's calls on to InputMethod.
#include "input_method.h"

#include <utility>

#include <glib-object.h>

namespace host
{

struct Hooks {
    static void focus(InputMethod& method, bool focused) { method.m_listener.onFocus(focused); }

    static void caret(InputMethod& method, const CaretArea& area)
    {
        method.m_listener.onCaret(area);
    }

    static void reset(InputMethod& method) { method.m_listener.onReset(); }

    static const std::string& composing(const InputMethod& method) { return method.m_composing; }
};

} // namespace host

namespace
{

struct KeyboardContext {
    WebKitInputMethodContext parent;
    host::InputMethod* owner;
};

struct KeyboardContextClass {
    WebKitInputMethodContextClass parent;
};

G_DEFINE_TYPE(KeyboardContext, keyboard_context, WEBKIT_TYPE_INPUT_METHOD_CONTEXT)

host::InputMethod& ownerOf(WebKitInputMethodContext* context)
{
    return *reinterpret_cast<KeyboardContext*>(context)->owner;
}

void getPreedit(WebKitInputMethodContext* context, char** text, GList** underlines, unsigned* caret)
{
    const std::string& composing = host::Hooks::composing(ownerOf(context));
    const unsigned length = static_cast<unsigned>(g_utf8_strlen(composing.c_str(), -1));
    if (text != nullptr)
        *text = g_strdup(composing.c_str());
    if (underlines != nullptr)
        *underlines = composing.empty()
                          ? nullptr
                          : g_list_prepend(nullptr, webkit_input_method_underline_new(0, length));
    if (caret != nullptr)
        *caret = length;
}

void keyboard_context_class_init(KeyboardContextClass* type)
{
    WebKitInputMethodContextClass& hooks = type->parent;
    hooks.get_preedit = getPreedit;
    hooks.notify_focus_in = [](WebKitInputMethodContext* context) {
        host::Hooks::focus(ownerOf(context), true);
    };
    hooks.notify_focus_out = [](WebKitInputMethodContext* context) {
        host::Hooks::focus(ownerOf(context), false);
    };
    hooks.reset = [](WebKitInputMethodContext* context) { host::Hooks::reset(ownerOf(context)); };
    hooks.notify_cursor_area = [](WebKitInputMethodContext* context, int x, int y, int width,
                                  int height) {
        host::Hooks::caret(ownerOf(context), {x, y, width, height});
    };
}

void keyboard_context_init(KeyboardContext*) {}

} // namespace

namespace host
{

InputMethod::InputMethod(WebKitWebView* view, Listener listener)
    : m_context(static_cast<WebKitInputMethodContext*>(
          g_object_new(keyboard_context_get_type(), nullptr))),
      m_listener(std::move(listener))
{
    reinterpret_cast<KeyboardContext*>(m_context)->owner = this;
    webkit_web_view_set_input_method_context(view, m_context);
}

void InputMethod::commit(const std::string& text)
{
    m_composing.clear();
    g_signal_emit_by_name(m_context, "committed", text.c_str());
}

void InputMethod::compose(const std::string& text)
{
    const bool wasComposing = !m_composing.empty();
    m_composing = text;
    if (!wasComposing && !text.empty())
        g_signal_emit_by_name(m_context, "preedit-started");
    if (wasComposing || !text.empty())
        g_signal_emit_by_name(m_context, "preedit-changed");
    if (wasComposing && text.empty())
        g_signal_emit_by_name(m_context, "preedit-finished");
}

WebKitInputPurpose InputMethod::purpose() const
{
    return webkit_input_method_context_get_input_purpose(m_context);
}

} // namespace host
