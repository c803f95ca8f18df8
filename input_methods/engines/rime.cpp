// Chinese and Cantonese in Latin letters, by rime. The scheme is the name of a rime schema.
#include <algorithm>

#include <rime_api.h>

#include "engine.h"
#include "rime_schema.h"

using namespace input_methods;

namespace
{

class Rime : public Engine
{
public:
    Rime(RimeApi* api, RimeConfig schema, RimeSessionId session)
        : m_api(api), m_schema(schema), m_session(session)
    {
    }

    ~Rime() override
    {
        m_api->destroy_session(m_session);
        m_api->config_close(&m_schema);
    }

    bool type(uint32_t character, Answer& answer) override
    {
        const bool separates = character == '\'' && !preedit().empty();
        const bool isLetter = character >= 'a' && character <= 'z';
        return (separates || isLetter) && press(static_cast<int>(character), answer);
    }

    bool erase(Answer& answer) override
    {
        const int backspace = 0xFF08; // X's
        return !preedit().empty() && press(backspace, answer);
    }

    void take(size_t index, Answer& answer) override
    {
        m_api->select_candidate(m_session, index);
        collect(answer);
    }

    // What was chosen stays, the rest is committed as it was spelled.
    void finish(Answer& answer) override
    {
        std::string text = preedit();
        const auto spelled = text.begin() + static_cast<std::ptrdiff_t>(m_chosen_bytes);
        text.erase(std::remove(spelled, text.end(), ' '), text.end());
        answer.commit += text;
        reset();
    }

    void reset() override { m_api->clear_composition(m_session); }

    void addPreedit(std::string& text) const override
    {
        RIME_STRUCT(RimeContext, context);
        m_api->get_context(m_session, &context);
        const char* preedit = context.composition.preedit;
        text += preedit == nullptr ? "" : preedit;
        m_chosen_bytes =
            preedit == nullptr ? 0 : static_cast<size_t>(context.composition.sel_start);
        m_api->free_context(&context);
    }

    bool converts() const override { return true; }
    void addCandidates(size_t from, size_t count, std::vector<std::string>& found) override
    {
        RimeCandidateListIterator iterator = {};
        if (!m_api->candidate_list_from_index(m_session, &iterator, static_cast<int>(from)))
            return;
        for (; count > 0 && m_api->candidate_list_next(&iterator); --count)
            found.push_back(iterator.candidate.text);
        m_api->candidate_list_end(&iterator);
    }

private:
    bool press(int key, Answer& answer)
    {
        const bool used = m_api->process_key(m_session, key, 0) != False;
        collect(answer);
        return used;
    }

    void collect(Answer& answer)
    {
        RIME_STRUCT(RimeCommit, commit);
        if (!m_api->get_commit(m_session, &commit))
            return;
        answer.commit += commit.text;
        m_api->free_commit(&commit);
    }

    RimeApi* m_api;
    RimeConfig m_schema;
    RimeSessionId m_session;
    mutable size_t m_chosen_bytes = 0; // of the preedit, at its beginning
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    RimeApi* api = startRime(settings);
    RimeConfig schema = {};
    if (!openSchema(api, settings, schema, problem))
        return nullptr;
    const RimeSessionId session = api->create_session();
    api->select_schema(session, settings.scheme.c_str());
    return new Rime(api, schema, session);
}
