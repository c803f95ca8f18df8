// Runs scripts in the page and reads what they give.
#include "page_script.h"

#include <memory>
#include <utility>

#include "engine.h"

namespace host
{

namespace
{

void answerScript(GObject* view, GAsyncResult* task, gpointer data)
{
    const std::unique_ptr<ScriptAnswer> answer(static_cast<ScriptAnswer*>(data));
    WebKitJavascriptResult* result =
        webkit_web_view_run_javascript_in_world_finish(WEBKIT_WEB_VIEW(view), task, nullptr);
    (*answer)(result == nullptr ? nullptr : webkit_javascript_result_get_js_value(result));
    if (result != nullptr)
        webkit_javascript_result_unref(result);
}

} // namespace

void runScript(WebKitWebView* view, const std::string& script, ScriptAnswer answer)
{
    webkit_web_view_run_javascript_in_world(view, script.c_str(), Engine::kWorld, nullptr,
                                            answerScript, new ScriptAnswer(std::move(answer)));
}

void runFunction(WebKitWebView* view, const std::string& body, GVariant* arguments,
                 ScriptAnswer answer)
{
    webkit_web_view_run_async_javascript_function_in_world(view, body.c_str(), arguments,
                                                           Engine::kWorld, nullptr, answerScript,
                                                           new ScriptAnswer(std::move(answer)));
}

std::string asText(JSCValue* value)
{
    const std::unique_ptr<char, decltype(&g_free)> text(jsc_value_to_string(value), &g_free);
    return text.get();
}

std::string textOf(JSCValue* object, const char* name)
{
    JSCValue* value = jsc_value_object_get_property(object, name);
    std::string text = asText(value);
    g_object_unref(value);
    return text;
}

bool isTrue(JSCValue* object, const char* name)
{
    return textOf(object, name) == "true";
}

} // namespace host
