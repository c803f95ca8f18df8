// The web engine, WPE WebKit.
#ifndef HOSTS_BROWSER_ENGINE_H
#define HOSTS_BROWSER_ENGINE_H

#include <cstdint>
#include <functional>
#include <string>

#include <wpe/fdo.h>
#include <wpe/unstable/fdo-shm.h>
#include <wpe/webkit.h>

namespace host
{

// The web engine with one view, which draws into shared memory. Everything is called on the
// thread of GLib's main loop. One for each process; it is never taken apart.
class Engine
{
public:
    // Gets each new picture of the page: 32 bits for each pixel, lent for the call.
    using Show = std::function<void(const uint8_t* pixels, int bytesPerRow)>;

    // script: runs in every frame, in a world of its own (kWorld); its messages come with
    // "script-message-received::focus" on content(). Throws std::runtime_error when the engine is
    // not installed.
    Engine(int width, int height, const std::string& script, bool sandbox, Show show);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    static constexpr char kWorld[] = "keyboard";

    WebKitWebView* view() const { return m_view; }
    WebKitUserContentManager* content() const { return m_content; }
    wpe_view_backend* input() const;

private:
    void take(wpe_fdo_shm_exported_buffer* buffer);

    int m_width;
    int m_height;
    Show m_show;
    wpe_view_backend_exportable_fdo* m_pictures = nullptr;
    WebKitUserContentManager* m_content = nullptr;
    WebKitWebView* m_view = nullptr;
};

// Whether this system lets a process make the name spaces that the engine's sandbox consists of.
bool canSandbox();

} // namespace host

#endif
