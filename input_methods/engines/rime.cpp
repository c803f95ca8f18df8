// Chinese and Cantonese in Latin letters, by rime. The scheme is the name of a rime schema.
#include <algorithm>

#include <rime_api.h>

#include "engine.h"
#include "whole_data.h"

using namespace input_methods;

namespace
{

// rime opens its user dictionaries below this folder; none is opened where nothing is learned.
const char kNoFolder[] = "/nonexistent";
const int kFatalOnly = 3; // it calls missing key bindings, which no host needs, an error

// The process's own: rime keeps one set of folders for all its sessions. They are never taken
// down: rime does so by itself when the process ends.
RimeApi* library(const EngineSettings& settings)
{
    static RimeApi* api = nullptr;
    if (api != nullptr)
        return api;
    static const std::string shared = settings.engineData + "/rime-data";
    static const std::string user =
        settings.learningFolder.empty() ? kNoFolder : settings.learningFolder;
    RIME_STRUCT(RimeTraits, traits);
    traits.shared_data_dir = shared.c_str();
    traits.user_data_dir = user.c_str();
    traits.distribution_name = traits.distribution_code_name = "keyboard";
    traits.distribution_version = "1";
    traits.app_name = "rime.keyboard";
    traits.min_log_level = kFatalOnly;
    traits.log_dir = ""; // standard error
    api = rime_get_api();
    api->setup(&traits);
    api->initialize(&traits);
    return api;
}

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

// Only the spelling itself is wanted: dictionaries of strokes and others that a schema also reads
// cost memory. The schema stays open, as rime shares it with the session only as long.
void simplify(RimeApi* api, RimeConfig& schema, bool learns)
{
    api->config_clear(&schema, "engine/translators");
    api->config_create_list(&schema, "engine/translators");
    api->config_set_string(&schema, "engine/translators/@next", "script_translator");
    if (!learns)
        api->config_set_bool(&schema, "translator/enable_user_dict", False);
}

// A schema that names no file of its own has that of its dictionary.
std::string fileOf(RimeApi* api, RimeConfig& schema, const char* key)
{
    const char* name = api->config_get_cstring(&schema, key);
    if (name == nullptr)
        name = api->config_get_cstring(&schema, "translator/dictionary");
    return name == nullptr ? "" : name;
}

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    RimeApi* api = library(settings);
    const char* name = settings.scheme.c_str();
    RimeConfig schema = {};
    if (!api->schema_open(name, &schema) ||
        api->config_get_cstring(&schema, "schema/schema_id") == nullptr) {
        problem = "rime has no schema '" + settings.scheme + "' in " + api->get_shared_data_dir();
        return nullptr;
    }
    const std::string data = std::string(api->get_shared_data_dir()) + "/build/";
    if (!isWholeRimeTable(data + fileOf(api, schema, "translator/dictionary") + ".table.bin") ||
        !isWholeRimePrism(data + fileOf(api, schema, "translator/prism") + ".prism.bin")) {
        api->config_close(&schema);
        problem = std::string("rime cannot read the dictionary of '") + name + "'; expected its " +
                  "whole .table.bin and .prism.bin in " + data;
        return nullptr;
    }
    simplify(api, schema, !settings.learningFolder.empty());
    const RimeSessionId session = api->create_session();
    api->select_schema(session, name);
    return new Rime(api, schema, session);
}
