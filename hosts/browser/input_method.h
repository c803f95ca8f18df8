// The engine's own way for composed text and for the caret's place.
#ifndef HOSTS_BROWSER_INPUT_METHOD_H
#define HOSTS_BROWSER_INPUT_METHOD_H

#include <functional>
#include <string>

#include <wpe/webkit.h>

namespace host
{

// Pixels of the page as the engine draws it.
struct CaretArea {
    int x, y, width, height;
};

// What the engine offers to input methods: it tells where the caret is, and takes composed text.
class InputMethod
{
public:
    struct Listener {
        std::function<void(bool focused)> onFocus; // an editable element, readonly ones too
        std::function<void(const CaretArea&)> onCaret;
        std::function<void()> onReset; // the engine ended the composing by itself
    };

    InputMethod(WebKitWebView* view, Listener listener);
    InputMethod(const InputMethod&) = delete;
    InputMethod& operator=(const InputMethod&) = delete;

    // Puts the text in at the caret, in the place of what is being composed.
    void commit(const std::string& text);

    // Shows text as being composed; empty ends that without putting anything in.
    void compose(const std::string& text);

    // Nothing is composed any more; the engine knows.
    void forget() { m_composing.clear(); }

    WebKitInputPurpose purpose() const;

private:
    friend struct Hooks;

    WebKitInputMethodContext* m_context;
    Listener m_listener;
    std::string m_composing;
};

} // namespace host

#endif
