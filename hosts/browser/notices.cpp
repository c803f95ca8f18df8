// The page for what went wrong.
#include "notices.h"

#include <glib.h>

namespace host
{

namespace
{

std::string escaped(const std::string& text)
{
    char* markup = g_markup_escape_text(text.c_str(), -1);
    std::string copy = markup;
    g_free(markup);
    return copy;
}

} // namespace

std::string noticePage(const std::string& title, const std::string& text, const std::string& label,
                       const std::string& url)
{
    return "<!doctype html><meta charset=utf-8><title>" + escaped(title) +
           "</title><style>body { margin: 0; padding: 160px 200px; background: #141c2e; "
           "color: #f4f6fb; font: 36px/1.5 'DejaVu Sans', sans-serif } h1 { font-size: 64px } "
           "p { max-width: 1400px; color: #c4ccdc; overflow-wrap: anywhere } "
           "a { display: inline-block; margin-top: 40px; padding: 16px 40px; border-radius: 12px; "
           "background: #f4f6fb; color: #141c2e; text-decoration: none } "
           "a:focus { outline: 6px solid #5b8def; outline-offset: 6px }</style><h1>" +
           escaped(title) + "</h1><p>" + escaped(text) + "</p><a autofocus href=\"" + escaped(url) +
           "\">" + escaped(label) + "</a>";
}

} // namespace host
