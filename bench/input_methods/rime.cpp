// rime alone, with its packaged schemas.
#include <rime_api.h>

#include "typing.h"

namespace bench
{

namespace
{

RimeApi* api = nullptr;
RimeSessionId session = 0;
std::string keys;

} // namespace

bool start(const std::string& layout, const std::vector<std::string>& characters)
{
    for (const std::string& character : characters)
        keys += character;
    RIME_STRUCT(RimeTraits, traits);
    traits.shared_data_dir = "/usr/share/rime-data";
    traits.user_data_dir = "/nonexistent";
    traits.distribution_name = traits.distribution_code_name = "keyboard";
    traits.distribution_version = "1";
    traits.app_name = "rime.keyboard";
    traits.min_log_level = 3;
    traits.log_dir = "";
    api = rime_get_api();
    api->setup(&traits);
    api->initialize(&traits);
    session = api->create_session();
    const char* schema = layout == "Cantonese" ? "jyut6ping3" : "luna_pinyin_simp";
    return api->select_schema(session, schema) != False;
}

size_t press(size_t character)
{
    Shown shown;
    api->process_key(session, keys[character], 0);
    RIME_STRUCT(RimeCommit, commit);
    if (api->get_commit(session, &commit)) {
        shown.committed = commit.text;
        api->free_commit(&commit);
    }
    RIME_STRUCT(RimeContext, context);
    api->get_context(session, &context);
    if (context.composition.preedit != nullptr)
        shown.preedit = context.composition.preedit;
    api->free_context(&context);
    RimeCandidateListIterator iterator = {};
    if (api->candidate_list_begin(session, &iterator)) {
        while (shown.candidates.size() < kCandidates && api->candidate_list_next(&iterator))
            shown.candidates.push_back(iterator.candidate.text);
        api->candidate_list_end(&iterator);
    }
    return shown.bytes();
}

void clear()
{
    api->clear_composition(session);
}

} // namespace bench
