// chewing alone, by the characters of its default keyboard.
#include <map>

#include <chewing.h>

#include "typing.h"

namespace bench
{

namespace
{

ChewingContext* context = nullptr;
std::vector<int> keys;
const std::map<std::string, int> kKeys = {{"ㄋ", 's'}, {"ㄧ", 'u'}, {"ˇ", '3'},  {"ㄏ", 'c'},
                                          {"ㄠ", 'l'}, {"ㄇ", 'a'}, {"ㄚ", '8'}, {"˙", '7'}};

void ignoreLog(void*, int, const char*, ...) {}

} // namespace

bool start(const std::string&, const std::vector<std::string>& characters)
{
    for (const std::string& character : characters)
        keys.push_back(kKeys.at(character));
    context = chewing_new2("/usr/share/libchewing", ":memory:", ignoreLog, nullptr);
    if (context == nullptr)
        return false;
    chewing_set_maxChiSymbolLen(context, 39);
    return true;
}

size_t press(size_t character)
{
    Shown shown;
    chewing_handle_Default(context, keys[character]);
    shown.preedit = chewing_buffer_String_static(context);
    const std::string sound = chewing_bopomofo_String_static(context);
    if (sound.empty() && !shown.preedit.empty()) {
        chewing_handle_Home(context);
        chewing_cand_open(context);
        chewing_cand_list_first(context);
        shown.candidates.push_back(shown.preedit);
        while (chewing_cand_TotalChoice(context) > 0) {
            for (int i = 0;
                 i < chewing_cand_TotalChoice(context) && shown.candidates.size() < kCandidates;
                 ++i)
                shown.candidates.push_back(chewing_cand_string_by_index_static(context, i));
            if (shown.candidates.size() == kCandidates || !chewing_cand_list_has_next(context))
                break;
            chewing_cand_list_next(context);
        }
        chewing_cand_close(context);
        chewing_handle_End(context);
    }
    shown.preedit += sound;
    return shown.bytes();
}

void clear()
{
    chewing_cand_close(context);
    chewing_clean_preedit_buf(context);
    chewing_clean_bopomofo_buf(context);
}

} // namespace bench
