// anthy's calls, for a row of hiragana.
#include "anthy_words.h"

#include "whole_data.h"

namespace input_methods
{

bool startAnthy(const std::string& data, const std::string& userFolder)
{
    static bool isStarted = false;
    if (isStarted)
        return true;
    anthy_conf_override("HOME", userFolder.c_str());
    anthy_conf_override("ANTHYDIR", (data + "/").c_str());
    anthy_conf_override("DIC_FILE", (data + "/anthy.dic").c_str());
    isStarted = isWholeAnthy(data + "/anthy.dic") && anthy_init() == 0;
    return isStarted;
}

void AnthyWords::convert(const std::string& reading)
{
    anthy_conv_stat conversion = {};
    if (!reading.empty() && anthy_set_string(m_context, reading.c_str()) == 0)
        anthy_get_stat(m_context, &conversion);
    m_segments = conversion.nr_segment;
    m_first = {};
    if (m_segments > 0)
        anthy_get_segment_stat(m_context, 0, &m_first);
}

std::string AnthyWords::best() const
{
    std::string text;
    for (int segment = 0; segment < m_segments; ++segment)
        text += word(segment, 0);
    return text;
}

// anthy learns when all segments are committed.
void AnthyWords::learn(int number)
{
    for (int segment = 0; segment < m_segments; ++segment)
        anthy_commit_segment(m_context, segment, segment == 0 ? number : 0);
}

std::string AnthyWords::word(int segment, int number) const
{
    const int length = anthy_get_segment(m_context, segment, number, nullptr, 0);
    if (length <= 0)
        return "";
    std::string text(static_cast<size_t>(length) + 1, '\0');
    anthy_get_segment(m_context, segment, number, &text[0], length + 1);
    text.resize(static_cast<size_t>(length));
    return text;
}

} // namespace input_methods
