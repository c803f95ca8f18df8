// Scripts that are spelled with Latin letters, by m17n and its tables. The scheme is language and
// name of a table: "vi telex" is vi-telex.mim.
#include <cctype>
#include <cstdlib>
#include <map>
#include <memory>

#include <m17n-misc.h>
#include <m17n.h>
#include <uninorm.h>

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

using Spellings = std::map<std::string, std::vector<std::string>>; // by character

// A rule of a map: the keys as a text, and what comes of them.
void readRule(MPlist* rule, Spellings& spellings)
{
    if (mplist_key(rule) != Mtext || mplist_next(rule) == nullptr)
        return;
    const std::string keys = fromMText(static_cast<MText*>(mplist_value(rule)));
    MPlist* result = mplist_next(rule);
    std::string text;
    if (mplist_key(result) == Mtext)
        text = fromMText(static_cast<MText*>(mplist_value(result)));
    if (mplist_key(result) == Minteger)
        text = utf8(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(mplist_value(result))));
    std::vector<std::string>& known = spellings[text];
    const bool isShorter = !known.empty() && keys.size() < known.front().size();
    known.insert(isShorter ? known.begin() : known.end(), keys);
}

bool isSymbol(MPlist* list, const char* name)
{
    return mplist_key(list) == Msymbol && mplist_value(list) == msymbol(name);
}

// Calls back for each list that stands in this list, behind its first element or not.
template <typename Take> void forEachList(MPlist* list, const Take& take)
{
    for (; list != nullptr && mplist_key(list) != Mnil; list = mplist_next(list))
        if (mplist_key(list) == Mplist)
            take(static_cast<MPlist*>(mplist_value(list)));
}

// All rules of a table, and of those that it includes.
void readTable(MSymbol language, MSymbol name, Spellings& spellings)
{
    MDatabase* database = mdatabase_find(msymbol("input-method"), language, name, Mnil);
    MPlist* table = database == nullptr ? nullptr : static_cast<MPlist*>(mdatabase_load(database));
    if (table == nullptr)
        return;
    forEachList(table, [&](MPlist* part) {
        if (isSymbol(part, "map"))
            forEachList(part, [&](MPlist* map) {
                forEachList(map, [&](MPlist* rule) { readRule(rule, spellings); });
            });
        if (!isSymbol(part, "include"))
            return;
        MPlist* other = mplist_next(part);
        if (other == nullptr || mplist_key(other) != Mplist)
            return;
        MPlist* names = static_cast<MPlist*>(mplist_value(other));
        MSymbol tags[2] = {Mnil, Mnil};
        for (MSymbol& tag : tags)
            if (names != nullptr && mplist_key(names) == Msymbol) {
                tag = static_cast<MSymbol>(mplist_value(names));
                names = mplist_next(names);
            }
        readTable(tags[0], tags[1], spellings);
    });
    m17n_object_unref(table);
}

// The character without its marks; empty for one that is no Latin letter.
std::string plainLetter(const std::string& character)
{
    size_t length = 0;
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(character.data());
    const std::unique_ptr<uint8_t, decltype(&std::free)> apart(
        u8_normalize(UNINORM_NFD, bytes, character.size(), nullptr, &length), &std::free);
    const bool isLatin = apart && length > 0 && std::isalpha(apart.get()[0]) != 0;
    return isLatin ? std::string(1, static_cast<char>(apart.get()[0])) : "";
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

    bool type(uint32_t character, Answer& answer) override
    {
        return press(utf8(character), answer);
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
                press(key, answer);
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

    // As the table says; or, where it says how letters are changed and not which come of it, the
    // letter with at most two more.
    std::vector<std::string> spellings(uint32_t character) override
    {
        if (m_spellings.empty())
            readTable(m_method->language, m_method->name, m_spellings);
        std::vector<std::string>& known = m_spellings[utf8(character)];
        if (known.empty())
            known = changedLetter(utf8(character));
        return known;
    }

    void addPreedit(std::string& text) const override { text += fromMText(m_context->preedit); }

private:
    // minput_reset_ic writes to freed memory once a table has handed a key on to another.
    void startContext()
    {
        minput_destroy_ic(m_context);
        m_context = minput_create_ic(m_method, nullptr);
    }

    bool press(const std::string& key, Answer& answer)
    {
        const bool used = feed(key, answer);
        m_keys.push_back(key);
        if (mtext_len(m_context->preedit) == 0)
            m_keys.clear();
        return used;
    }

    // Returns whether the key was used.
    bool feed(const std::string& name, Answer& answer)
    {
        MSymbol key = msymbol(name.c_str());
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
        startContext();
        Answer answer;
        for (const std::string& key : keys)
            feed(key, answer);
        return answer.commit.empty() && preedit() == composed;
    }

    std::vector<std::string> changedLetter(const std::string& character)
    {
        const std::string letter = plainLetter(character);
        if (letter.empty())
            return {};
        std::vector<std::string> more = {"", letter};
        for (char change = 'a'; change <= 'z'; ++change)
            more.push_back(std::string(1, change));
        for (const std::string& first : more)
            for (const std::string& second : more) {
                std::vector<std::string> keys = {letter};
                std::string spelling = letter;
                for (const std::string& key : {first, second}) {
                    if (!key.empty())
                        keys.push_back(key);
                    spelling += key;
                }
                if (gives(keys, character)) {
                    reset();
                    return {spelling};
                }
            }
        reset();
        return {};
    }

    MInputMethod* m_method;
    MInputContext* m_context;
    Spellings m_spellings;           // once it was asked for; with what was found besides
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
