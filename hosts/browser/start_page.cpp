// Where the demonstration pages lie.
#include "start_page.h"

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <system_error>

#include <glib.h>

namespace host
{

namespace
{

namespace files = std::filesystem;

std::string fileUrl(const files::path& file)
{
    const std::unique_ptr<char, decltype(&g_free)> url(
        g_filename_to_uri(files::absolute(file).c_str(), nullptr, nullptr), &g_free);
    return url ? url.get() : "";
}

} // namespace

std::string startPage()
{
    const files::path program = files::read_symlink("/proc/self/exe").parent_path();
    const files::path places[] = {program / "pages", program / "../share/velmora_vkb/pages"};
    for (const files::path& place : places)
        if (files::exists(place / "start.html"))
            return fileUrl((place / "start.html").lexically_normal());
    throw std::runtime_error((places[0] / "start.html").string() +
                             ": found no start page; give a URL, or run `make install`");
}

std::string urlOf(const std::string& words)
{
    if (words.find("://") != std::string::npos || words.compare(0, 6, "about:") == 0 ||
        words.compare(0, 5, "data:") == 0)
        return words;
    std::error_code error;
    if (files::exists(words, error))
        return fileUrl(words);
    return "http://" + words;
}

} // namespace host
