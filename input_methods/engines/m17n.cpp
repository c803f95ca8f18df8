// Scripts that are spelled with Latin letters, by m17n and its tables. The scheme is language and
// name of a table: "vi telex" is vi-telex.mim.
#include "engine.h"
#include "m17n_context.h"
#include "m17n_tables.h"
#include "text.h"

using namespace input_methods;

namespace
{

class M17n : public Engine
{
public:
    M17n(MInputMethod* method, const TableName& table) : m_context(method), m_spelling(table) {}

    bool type(uint32_t character, Answer& answer) override
    {
        const bool used = m_context.press(character, answer.commit);
        m_keys.push_back(character);
        if (m_context.isEmpty())
            m_keys.clear();
        return used;
    }

    // The tables know no Back, or delete more than a letter: what is composed is typed again
    // without its last key. Keys whose letters are committed already still stand before those.
    bool erase(Answer& answer) override
    {
        const std::string before = preedit();
        if (before.empty())
            return false;
        for (size_t first = m_keys.size(); first-- > 0;) {
            const std::u32string keys = m_keys.substr(first);
            if (!m_context.gives(keys, before))
                continue;
            reset();
            for (size_t i = 0; i + 1 < keys.size(); ++i)
                type(keys[i], answer);
            return true;
        }
        reset();
        answer.commit += before.substr(0, before.size() - lastLetterBytes(before));
        return true;
    }

    void reset() override
    {
        m_context.clear();
        m_keys.clear();
    }

    std::vector<std::string> spellings(uint32_t character) override
    {
        const std::string composed = utf8(character);
        std::vector<std::string> found = m_spelling.of(composed, [&](const std::string& keys) {
            return m_context.gives(characters(keys), composed);
        });
        reset();
        return found;
    }

    void addPreedit(std::string& text) const override { m_context.addPreedit(text); }

private:
    M17nContext m_context;
    M17nSpelling m_spelling;
    std::u32string m_keys; // since the last moment when nothing was composed
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    if (!startM17n(settings.dataFolder)) {
        problem = "m17n does not start, its database in /usr/share/m17n is missing or broken";
        return nullptr;
    }
    const size_t blank = settings.scheme.find(' ');
    const std::string language = settings.scheme.substr(0, blank);
    const std::string name = blank == std::string::npos ? "" : settings.scheme.substr(blank + 1);
    const TableName table = {msymbol(language.c_str()), msymbol(name.c_str()), Mnil};
    const std::vector<std::string> folders = {settings.dataFolder, "/usr/share/m17n"};
    std::string missing = missingTable({Mt, Mnil, msymbol("global")}, folders); // all need it
    if (missing.empty())
        missing = missingTable(table, folders);
    MInputMethod* method = missing.empty() ? minput_open_im(table[0], table[1], nullptr) : nullptr;
    if (method != nullptr)
        return new M17n(method, table);
    problem = "m17n has no whole table " + (missing.empty() ? language + "-" + name : missing) +
              ".mim, neither in " + folders[1] + " nor in " + folders[0];
    return nullptr;
}
