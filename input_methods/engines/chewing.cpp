// Chinese in Zhuyin, by chewing. The scheme is chewing's name of a keyboard.
#include <algorithm>
#include <map>

#include <chewing.h>

#include "engine.h"
#include "text.h"
#include "whole_data.h"

using namespace input_methods;

namespace
{

// Marks of tones, which no syllable begins with; the first tone is the space key.
const std::map<uint32_t, int> kTones = {
    {U' ', ' '}, {U'ˊ', '6'}, {U'ˇ', '3'}, {U'ˋ', '4'}, {U'˙', '7'}};

const int kLongest = 39; // syllables that chewing holds before it commits by itself

void ignoreLog(void*, int, const char*, ...) {}

class Chewing : public Engine
{
public:
    Chewing(ChewingContext* context, bool learns) : m_context(context), m_learns(learns)
    {
        chewing_set_maxChiSymbolLen(context, kLongest);
        readKeys();
    }

    ~Chewing() override { chewing_delete(m_context); }

    bool type(uint32_t character, Answer&) override
    {
        const bool isTone = kTones.count(character) != 0;
        const auto key = m_keys.find(character);
        if (key == m_keys.end() || (isTone && m_sound.empty()))
            return false;
        const size_t before = letters(m_converted);
        m_typed.push_back(key->second);
        press(key->second);
        // A syllable that does not exist, which chewing would drop or wait on.
        if (isTone && letters(m_converted) != before + 1) {
            m_typed.pop_back();
            build();
        }
        return true;
    }

    bool erase(Answer&) override
    {
        if (m_typed.empty())
            return false;
        m_typed.pop_back();
        build();
        return true;
    }

    // The first candidate is the whole conversion, the others are words at its beginning.
    void take(size_t index, Answer& answer) override
    {
        const std::vector<std::string> all = allCandidates();
        if (index >= all.size())
            return;
        const size_t taken = letters(all[index]);
        if (index > 0)
            chooseWord(all[index]);
        if (m_learns)
            chewing_commit_preedit_buf(m_context);
        answer.commit += all[index];
        dropSyllables(taken);
        build();
    }

    void finish(Answer& answer) override
    {
        answer.commit += preedit();
        if (m_learns && !m_converted.empty())
            chewing_commit_preedit_buf(m_context);
        reset();
    }

    void reset() override
    {
        m_typed.clear();
        build();
    }

    void addPreedit(std::string& text) const override { text += m_converted + m_sound; }

    void addCandidates(size_t from, size_t count, std::vector<std::string>& found) override
    {
        const std::vector<std::string>& all = allCandidates();
        for (size_t i = from; i < all.size() && i < from + count; ++i)
            found.push_back(all[i]);
    }

private:
    // The layout's keys carry Zhuyin signs, chewing wants the characters of its own keyboard.
    void readKeys()
    {
        m_keys = kTones;
        for (int key = '!'; key <= '~'; ++key) {
            chewing_handle_Default(m_context, key);
            const std::string sign = chewing_bopomofo_String_static(m_context);
            if (!sign.empty())
                m_keys[firstLetter(sign)] = key;
            clear();
        }
    }

    void clear()
    {
        chewing_cand_close(m_context);
        chewing_clean_preedit_buf(m_context);
        chewing_clean_bopomofo_buf(m_context);
    }

    void press(int key)
    {
        if (key == ' ')
            chewing_handle_Space(m_context);
        else
            chewing_handle_Default(m_context, key);
        m_converted = chewing_buffer_String_static(m_context);
        m_sound = chewing_bopomofo_String_static(m_context);
        m_candidates.clear();
    }

    void build()
    {
        clear();
        m_converted.clear();
        m_sound.clear();
        m_candidates.clear();
        for (const int key : m_typed)
            press(key);
    }

    // Each syllable ends with the key of its tone.
    void dropSyllables(size_t count)
    {
        auto key = m_typed.begin();
        for (; key != m_typed.end() && count > 0; ++key)
            for (const auto& tone : kTones)
                count -= tone.second == *key ? 1 : 0;
        m_typed.erase(m_typed.begin(), key);
    }

    const std::vector<std::string>& allCandidates()
    {
        if (!m_candidates.empty() || m_converted.empty() || !m_sound.empty())
            return m_candidates;
        m_candidates.push_back(m_converted);
        for (openWords(); chewing_cand_TotalChoice(m_context) > 0;) {
            for (int i = 0; i < chewing_cand_TotalChoice(m_context); ++i) {
                const std::string word = chewing_cand_string_by_index_static(m_context, i);
                if (word != m_converted)
                    m_candidates.push_back(word);
            }
            if (!chewing_cand_list_has_next(m_context))
                break;
            chewing_cand_list_next(m_context);
        }
        closeWords();
        return m_candidates;
    }

    // Lists of words at the beginning, longest words first.
    void openWords()
    {
        chewing_handle_Home(m_context);
        chewing_cand_open(m_context);
        chewing_cand_list_first(m_context);
    }

    void closeWords()
    {
        chewing_cand_close(m_context);
        chewing_handle_End(m_context);
    }

    void chooseWord(const std::string& word)
    {
        for (openWords(); chewing_cand_TotalChoice(m_context) > 0;) {
            for (int i = 0; i < chewing_cand_TotalChoice(m_context); ++i)
                if (word == chewing_cand_string_by_index_static(m_context, i)) {
                    chewing_cand_choose_by_index(m_context, i);
                    return closeWords();
                }
            if (!chewing_cand_list_has_next(m_context))
                break;
            chewing_cand_list_next(m_context);
        }
        closeWords();
    }

    ChewingContext* m_context;
    bool m_learns;
    std::map<uint32_t, int> m_keys; // of each sign
    std::vector<int> m_typed;       // chewing's keys
    std::string m_converted;
    std::string m_sound; // of the syllable that has no tone yet
    std::vector<std::string> m_candidates;
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    const std::string data = settings.engineData + "/libchewing";
    const bool learns = !settings.learningFolder.empty();
    const std::string user = learns ? settings.learningFolder + "/words.sqlite3" : ":memory:";
    const bool isWhole = isWholeChewing(data + "/index_tree.dat", data + "/dictionary.dat");
    ChewingContext* context =
        isWhole ? chewing_new2(data.c_str(), user.c_str(), ignoreLog, nullptr) : nullptr;
    if (context == nullptr) {
        problem = "chewing does not start; expected its whole dictionary in " + data +
                  (learns ? ", and to write " + user : std::string());
        return nullptr;
    }
    chewing_set_KBType(context, chewing_KBStr2Num(settings.scheme.c_str()));
    return new Chewing(context, learns);
}
