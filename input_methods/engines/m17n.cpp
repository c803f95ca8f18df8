// Scripts that are spelled with Latin letters, by m17n and its tables. The scheme is language and
// name of a table: "vi telex" is vi-telex.mim.
#include <m17n-misc.h>
#include <m17n.h>

#include "engine.h"
#include "m17n_tables.h"
#include "text.h"

using namespace input_methods;

namespace
{

// The library's own, kept for the process; our tables are found beside the packaged ones.
bool startLibrary(const std::string& dataFolder)
{
    static std::string folder; // m17n keeps the pointer
    static bool isStarted = false;
    if (isStarted)
        return true;
    folder = dataFolder;
    mdatabase_dir = &folder[0];
    M17N_INIT();
    isStarted = merror_code == MERROR_NONE;
    return isStarted;
}

class M17n : public Engine
{
public:
    M17n(MInputMethod* method, const TableName& table)
        : m_method(method), m_context(minput_create_ic(method, nullptr)), m_spelling(table)
    {
    }

    ~M17n() override
    {
        minput_destroy_ic(m_context);
        minput_close_im(m_method);
    }

    bool type(uint32_t character, Answer& answer) override
    {
        const bool used = press(character, answer);
        m_keys.push_back(character);
        if (mtext_len(m_context->preedit) == 0)
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
            if (!gives(keys, before))
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
        startContext();
        m_keys.clear();
    }

    std::vector<std::string> spellings(uint32_t character) override
    {
        const std::string composed = utf8(character);
        std::vector<std::string> found = m_spelling.of(
            composed, [&](const std::string& keys) { return gives(characters(keys), composed); });
        reset();
        return found;
    }

    void addPreedit(std::string& text) const override { text += fromMText(m_context->preedit); }

private:
    // minput_reset_ic writes to freed memory once a table has handed a key on to another. The
    // price: a context that ends within a word loses the few bytes that it has saved of it.
    void startContext()
    {
        minput_destroy_ic(m_context);
        m_context = minput_create_ic(m_method, nullptr);
    }

    // Returns whether the key was used.
    bool press(uint32_t character, Answer& answer)
    {
        MSymbol key = msymbol(utf8(character).c_str());
        if (minput_filter(m_context, key, nullptr) != 0)
            return true;
        MText* produced = mtext();
        const bool used = minput_lookup(m_context, key, nullptr, produced) == 0;
        answer.commit += fromMText(produced);
        m17n_object_unref(produced);
        return used;
    }

    bool gives(const std::u32string& keys, const std::string& composed)
    {
        startContext();
        Answer answer;
        for (const char32_t key : keys)
            press(key, answer);
        return answer.commit.empty() && preedit() == composed;
    }

    MInputMethod* m_method;
    MInputContext* m_context;
    M17nSpelling m_spelling;
    std::u32string m_keys; // since the last moment when nothing was composed
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    if (!startLibrary(settings.dataFolder)) {
        problem = "m17n does not start, its database in /usr/share/m17n is missing or broken";
        return nullptr;
    }
    const size_t blank = settings.scheme.find(' ');
    const std::string language = settings.scheme.substr(0, blank);
    const std::string name = blank == std::string::npos ? "" : settings.scheme.substr(blank + 1);
    const TableName table = {msymbol(language.c_str()), msymbol(name.c_str()), Mnil};
    std::string missing = missingTable({Mt, Mnil, msymbol("global")}); // that all methods need
    if (missing.empty())
        missing = missingTable(table);
    MInputMethod* method = missing.empty() ? minput_open_im(table[0], table[1], nullptr) : nullptr;
    if (method != nullptr)
        return new M17n(method, table);
    problem = "m17n has no table " + (missing.empty() ? language + "-" + name : missing) +
              ".mim, neither in /usr/share/m17n nor in " + settings.dataFolder;
    return nullptr;
}
