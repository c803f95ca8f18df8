// anthy alone: the reading's best words together, and words for its beginning.
#include <anthy/anthy.h>

#include "typing.h"

namespace bench
{

namespace
{

anthy_context_t context = nullptr;
std::vector<std::string> keys;
std::string reading;

std::string word(int segment, int number)
{
    char text[256];
    return anthy_get_segment(context, segment, number, text, sizeof text) > 0 ? text : "";
}

} // namespace

bool start(const std::string&, const std::vector<std::string>& characters)
{
    keys = characters;
    anthy_conf_override("HOME", "/nonexistent");
    if (anthy_init() != 0)
        return false;
    context = anthy_create_context();
    anthy_context_set_encoding(context, ANTHY_UTF8_ENCODING);
    anthy_set_reconversion_mode(context, ANTHY_RECONVERT_DISABLE);
    return true;
}

size_t press(size_t character)
{
    reading += keys[character];
    Shown shown = {"", reading, {}};
    anthy_conv_stat conversion = {};
    anthy_set_string(context, reading.c_str());
    anthy_get_stat(context, &conversion);
    std::string best;
    for (int segment = 0; segment < conversion.nr_segment; ++segment)
        best += word(segment, 0);
    shown.candidates.push_back(best);
    anthy_segment_stat first = {};
    anthy_get_segment_stat(context, 0, &first);
    for (int number = 0; number < first.nr_candidate && shown.candidates.size() < kCandidates;
         ++number)
        shown.candidates.push_back(word(0, number));
    return shown.bytes();
}

void clear()
{
    reading.clear();
}

} // namespace bench
