// What a page asks its viewer, in the panel's form: dialogs of scripts, choices of select fields.
#ifndef HOSTS_BROWSER_PAGE_QUESTIONS_H
#define HOSTS_BROWSER_PAGE_QUESTIONS_H

#include <wpe/webkit.h>

#include "panel.h"

namespace host
{

// A question, and how the page gets its answer, which must be given once.
struct PageQuestion {
    Question question;
    Panel::Answer answer;
};

PageQuestion questionOf(WebKitScriptDialog* dialog);

// panel: lent until the answer; it is closed when the page closes its menu.
PageQuestion questionOf(WebKitOptionMenu* menu, Panel& panel);

} // namespace host

#endif
