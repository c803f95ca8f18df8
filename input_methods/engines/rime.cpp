// Chinese and Cantonese in Latin letters, by rime. The scheme is the name of a rime schema.
#include <algorithm>

#include "engine.h"
#include "rime_schema.h"
#include "rime_session.h"

using namespace input_methods;

namespace
{

const int kBackspace = 0xFF08; // X's

class Rime : public Engine
{
public:
    Rime(RimeApi* api, RimeConfig schema, const std::string& name) : m_session(api, schema, name) {}

    bool type(uint32_t character, Answer& answer) override
    {
        const bool separates = character == '\'' && !preedit().empty();
        const bool isLetter = character >= 'a' && character <= 'z';
        return (separates || isLetter) &&
               m_session.press(static_cast<int>(character), answer.commit);
    }

    bool erase(Answer& answer) override
    {
        return !preedit().empty() && m_session.press(kBackspace, answer.commit);
    }

    void take(size_t index, Answer& answer) override { m_session.choose(index, answer.commit); }

    // What was chosen stays, the rest is committed as it was spelled.
    void finish(Answer& answer) override
    {
        std::string text;
        const size_t chosen = m_session.addPreedit(text);
        const auto spelled = text.begin() + static_cast<std::ptrdiff_t>(chosen);
        text.erase(std::remove(spelled, text.end(), ' '), text.end());
        answer.commit += text;
        reset();
    }

    void reset() override { m_session.clear(); }
    void addPreedit(std::string& text) const override { m_session.addPreedit(text); }

    bool converts() const override { return true; }
    void addCandidates(size_t from, size_t count, std::vector<std::string>& found) override
    {
        m_session.addCandidates(from, count, found);
    }

private:
    RimeSession m_session;
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    RimeApi* api = startRime(settings);
    RimeConfig schema = {};
    if (!openSchema(api, settings, schema, problem))
        return nullptr;
    return new Rime(api, schema, settings.scheme);
}
