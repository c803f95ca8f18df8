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
std::vector<int> keys;
const std::map<std::string, int> kKeys = {
    {"ㄱ", 'r'}, {"ㄴ", 's'}, {"ㄷ", 'e'}, {"ㄸ", 'E'}, {"ㄹ", 'f'}, {"ㅁ", 'a'},
    {"ㅂ", 'q'}, {"ㅆ", 'T'}, {"ㅇ", 'd'}, {"ㅈ", 'w'}, {"ㅌ", 'x'}, {"ㅎ", 'g'},
    {"ㅏ", 'k'}, {"ㅐ", 'o'}, {"ㅓ", 'j'}, {"ㅔ", 'p'}, {"ㅕ", 'u'}, {"ㅗ", 'h'},
    {"ㅜ", 'n'}, {"ㅠ", 'b'}, {"ㅡ", 'm'}, {"ㅣ", 'l'}};

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

bool start(const std::string&, const std::vector<std::string>& characters)
{
    for (const std::string& character : characters)
        keys.push_back(kKeys.at(character));
    context = hangul_ic_new("2");
    return context != nullptr;
}

size_t press(size_t character)
{
    hangul_ic_process(context, keys[character]);
    const Shown shown = {fromUcs4(hangul_ic_get_commit_string(context)),
                         fromUcs4(hangul_ic_get_preedit_string(context)),
                         {}};
    return shown.bytes();
}

void clear()
{
    hangul_ic_reset(context);
}

} // namespace bench
