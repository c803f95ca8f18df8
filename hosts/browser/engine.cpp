// The web engine: its context, its settings and the way of its pictures to us.
#include "engine.h"

#include <stdexcept>
#include <utility>

#include <wayland-server-core.h>

namespace host
{

namespace
{

const char kBackend[] = "libWPEBackend-fdo-1.0.so.1";
const unsigned kFrameMilliseconds = 16; // at most 60 pictures a second

WebKitSettings* settings()
{
    WebKitSettings* settings = webkit_settings_new();
    webkit_settings_set_enable_spatial_navigation(settings, TRUE);
    webkit_settings_set_enable_tabs_to_links(settings, TRUE);
    webkit_settings_set_enable_write_console_messages_to_stdout(settings, TRUE);
    return settings;
}

gboolean nextFrame(gpointer pictures)
{
    wpe_view_backend_exportable_fdo_dispatch_frame_complete(
        static_cast<wpe_view_backend_exportable_fdo*>(pictures));
    return G_SOURCE_REMOVE;
}

} // namespace

constexpr char Engine::kWorld[];

Engine::Engine(int width, int height, const std::string& script, bool sandbox, Show show)
    : m_width(width), m_height(height), m_show(std::move(show))
{
    if (!wpe_loader_init(kBackend) || !wpe_fdo_initialize_shm())
        throw std::runtime_error(std::string(kBackend) + ": cannot be loaded; "
                                                         "scripts/install-packages browser");
    static const wpe_view_backend_exportable_fdo_client kClient = {
        nullptr, nullptr,
        [](void* engine, wpe_fdo_shm_exported_buffer* buffer) {
            static_cast<Engine*>(engine)->take(buffer);
        },
        nullptr, nullptr};
    m_pictures = wpe_view_backend_exportable_fdo_create(
        &kClient, this, static_cast<uint32_t>(width), static_cast<uint32_t>(height));
    wpe_view_backend_add_activity_state(input(), wpe_view_activity_state_visible |
                                                     wpe_view_activity_state_focused |
                                                     wpe_view_activity_state_in_window);

    WebKitWebContext* context = webkit_web_context_new_ephemeral();
    webkit_web_context_set_sandbox_enabled(context, sandbox);
    m_content = webkit_user_content_manager_new();
    webkit_user_content_manager_register_script_message_handler_in_world(m_content, "focus",
                                                                         kWorld);
    WebKitUserScript* userScript = webkit_user_script_new_for_world(
        script.c_str(), WEBKIT_USER_CONTENT_INJECT_ALL_FRAMES,
        WEBKIT_USER_SCRIPT_INJECT_AT_DOCUMENT_START, kWorld, nullptr, nullptr);
    webkit_user_content_manager_add_script(m_content, userScript);
    webkit_user_script_unref(userScript);

    m_view = WEBKIT_WEB_VIEW(g_object_new(WEBKIT_TYPE_WEB_VIEW, "backend",
                                          webkit_web_view_backend_new(input(), nullptr, nullptr),
                                          "web-context", context, "user-content-manager", m_content,
                                          "settings", settings(), nullptr));
}

wpe_view_backend* Engine::input() const
{
    return wpe_view_backend_exportable_fdo_get_view_backend(m_pictures);
}

void Engine::take(wpe_fdo_shm_exported_buffer* buffer)
{
    wl_shm_buffer* memory = wpe_fdo_shm_exported_buffer_get_shm_buffer(buffer);
    if (wl_shm_buffer_get_width(memory) == m_width &&
        wl_shm_buffer_get_height(memory) == m_height) {
        wl_shm_buffer_begin_access(memory);
        m_show(static_cast<const uint8_t*>(wl_shm_buffer_get_data(memory)),
               wl_shm_buffer_get_stride(memory));
        wl_shm_buffer_end_access(memory);
    }
    wpe_view_backend_exportable_fdo_dispatch_release_shm_exported_buffer(m_pictures, buffer);
    g_timeout_add(kFrameMilliseconds, nextFrame, m_pictures);
}

bool canSandbox()
{
    const char* command[] = {"bwrap", "--unshare-user", "--unshare-pid", "--ro-bind", "/",
                             "/",     "true",           nullptr};
    int status = 0;
    return g_spawn_sync(nullptr, const_cast<char**>(command), nullptr,
                        static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                 G_SPAWN_STDERR_TO_DEV_NULL),
                        nullptr, nullptr, nullptr, nullptr, &status, nullptr) != FALSE &&
           g_spawn_check_wait_status(status, nullptr) != FALSE;
}

} // namespace host
