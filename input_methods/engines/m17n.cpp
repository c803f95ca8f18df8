// Scripts that are spelled with Latin letters, by m17n and its tables. The scheme is language and
// name of a table: "vi telex" is vi-telex.mim.
#include <cstdlib>
#include <memory>

#include <m17n-misc.h>
#include <m17n.h>

#include "engine.h"
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

std::string fromMText(MText* text)
{
    std::string bytes(static_cast<size_t>(mtext_len(text)) * 6 + 1, '\0');
    const int length =
        mconv_encode_buffer(Mcoding_utf_8, text, reinterpret_cast<unsigned char*>(&bytes[0]),
                            static_cast<int>(bytes.size()));
    bytes.resize(length < 0 ? 0 : static_cast<size_t>(length));
    return bytes;
}

class M17n : public Engine
{
public:
    explicit M17n(MInputMethod* method)
        : m_method(method), m_context(minput_create_ic(method, nullptr))
    {
    }

    ~M17n() override
    {
        minput_destroy_ic(m_context);
        minput_close_im(m_method);
    }

    bool type(const std::string& character, Answer& answer) override
    {
        const bool used = feed(character, answer);
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
        for (auto first = m_keys.end(); first != m_keys.begin();) {
            --first;
            if (!gives(std::vector<std::string>(first, m_keys.end()), before))
                continue;
            const std::vector<std::string> keys(first, m_keys.end() - 1);
            reset();
            for (const std::string& key : keys)
                type(key, answer);
            return true;
        }
        reset();
        answer.commit += before.substr(0, before.size() - lastLetterBytes(before));
        return true;
    }

    void take(size_t, Answer&) override {}

    void finish(Answer& answer) override
    {
        answer.commit += preedit();
        reset();
    }

    void reset() override
    {
        minput_reset_ic(m_context);
        m_keys.clear();
    }

    std::string preedit() const override { return fromMText(m_context->preedit); }
    std::vector<std::string> candidates(size_t, size_t) override { return {}; }

private:
    // Returns whether the key was used.
    bool feed(const std::string& name, Answer& answer)
    {
        const MSymbol key = msymbol(name.c_str());
        if (minput_filter(m_context, key, nullptr) != 0)
            return true;
        MText* produced = mtext();
        const bool used = minput_lookup(m_context, key, nullptr, produced) == 0;
        answer.commit += fromMText(produced);
        m17n_object_unref(produced);
        return used;
    }

    bool gives(const std::vector<std::string>& keys, const std::string& composed)
    {
        minput_reset_ic(m_context);
        Answer answer;
        for (const std::string& key : keys)
            feed(key, answer);
        return answer.commit.empty() && preedit() == composed;
    }

    MInputMethod* m_method;
    MInputContext* m_context;
    std::vector<std::string> m_keys; // since the last moment when nothing was composed
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
    MInputMethod* method =
        minput_open_im(msymbol(language.c_str()), msymbol(name.c_str()), nullptr);
    if (method != nullptr)
        return new M17n(method);
    problem = "m17n has no table " + language + "-" + name +
              ".mim, neither in /usr/share/m17n nor in " + settings.dataFolder;
    return nullptr;
}
