// Scripts of the browser's own in the page, apart from the page's.
#ifndef HOSTS_BROWSER_PAGE_SCRIPT_H
#define HOSTS_BROWSER_PAGE_SCRIPT_H

#include <functional>
#include <string>

#include <wpe/webkit.h>

namespace host
{

// value: lent for the call; null when the script failed, or the page is gone.
using ScriptAnswer = std::function<void(JSCValue* value)>;

// Runs a script in the top frame, in the world of field_watch.js.
void runScript(WebKitWebView* view, const std::string& script, ScriptAnswer answer);

// The same with the body of a function, which may return a promise.
// arguments: their names and values, taken over; or null.
void runFunction(WebKitWebView* view, const std::string& body, GVariant* arguments,
                 ScriptAnswer answer);

std::string asText(JSCValue* value);

// A member of a message from field_watch.js.
std::string textOf(JSCValue* object, const char* name);
bool isTrue(JSCValue* object, const char* name);

} // namespace host

#endif
