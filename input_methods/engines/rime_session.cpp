// rime's calls, for what is being composed.
#include "rime_session.h"

namespace input_methods
{

RimeSession::RimeSession(RimeApi* api, RimeConfig schema, const std::string& name)
    : m_api(api), m_schema(schema), m_session(api->create_session())
{
    m_api->select_schema(m_session, name.c_str());
}

RimeSession::~RimeSession()
{
    m_api->destroy_session(m_session);
    m_api->config_close(&m_schema);
}

bool RimeSession::press(int key, std::string& commit)
{
    const bool used = m_api->process_key(m_session, key, 0) != False;
    addCommit(commit);
    return used;
}

void RimeSession::choose(size_t index, std::string& commit)
{
    m_api->select_candidate(m_session, index);
    addCommit(commit);
}

size_t RimeSession::addPreedit(std::string& text) const
{
    RIME_STRUCT(RimeContext, context);
    m_api->get_context(m_session, &context);
    const char* preedit = context.composition.preedit;
    text += preedit == nullptr ? "" : preedit;
    const int chosen = preedit == nullptr ? 0 : context.composition.sel_start;
    m_api->free_context(&context);
    return static_cast<size_t>(chosen);
}

void RimeSession::addCandidates(size_t from, size_t count, std::vector<std::string>& found) const
{
    RimeCandidateListIterator iterator = {};
    if (!m_api->candidate_list_from_index(m_session, &iterator, static_cast<int>(from)))
        return;
    for (; count > 0 && m_api->candidate_list_next(&iterator); --count)
        found.push_back(iterator.candidate.text);
    m_api->candidate_list_end(&iterator);
}

void RimeSession::clear()
{
    m_api->clear_composition(m_session);
}

void RimeSession::addCommit(std::string& commit)
{
    RIME_STRUCT(RimeCommit, finished);
    if (!m_api->get_commit(m_session, &finished))
        return;
    commit += finished.text;
    m_api->free_commit(&finished);
}

} // namespace input_methods
