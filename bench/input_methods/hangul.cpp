// libhangul alone, by the Latin letters of its two-set keyboard.
#include <map>

#include <hangul.h>
#include <unistr.h>

#include "typing.h"

namespace bench
{

namespace
{

HangulInputContext* context = nullptr;
const std::map<std::string, int> kKeys = {{"ㅇ", 'd'}, {"ㅏ", 'k'}, {"ㄴ", 's'}, {"ㅕ", 'u'},
                                          {"ㅎ", 'g'}, {"ㅅ", 't'}, {"ㅔ", 'p'}, {"ㅛ", 'y'}};

std::string fromUcs4(const ucschar* text)
{
    std::string utf8;
    for (; text != nullptr && *text != 0; ++text) {
        uint8_t bytes[6];
        utf8.append(reinterpret_cast<char*>(bytes),
                    static_cast<size_t>(u8_uctomb(bytes, *text, sizeof bytes)));
    }
    return utf8;
}

} // namespace

bool start(const std::string&)
{
    context = hangul_ic_new("2");
    return context != nullptr;
}

Shown press(const std::string& key)
{
    hangul_ic_process(context, kKeys.at(key));
    return {fromUcs4(hangul_ic_get_commit_string(context)),
            fromUcs4(hangul_ic_get_preedit_string(context)),
            {}};
}

void clear()
{
    hangul_ic_reset(context);
}

} // namespace bench
