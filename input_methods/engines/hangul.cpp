// Korean by libhangul: jamo become syllables. The scheme is libhangul's name of a keyboard.
#include <map>

#include <hangul.h>

#include "engine.h"
#include "text.h"

using namespace input_methods;

namespace
{

std::string fromUcs4(const ucschar* text)
{
    std::string utf8Text;
    for (; text != nullptr && *text != 0; ++text)
        utf8Text += utf8(*text);
    return utf8Text;
}

class Hangul : public Engine
{
public:
    explicit Hangul(HangulInputContext* context) : m_context(context) { learnKeys(); }
    ~Hangul() override { hangul_ic_delete(m_context); }

    bool type(const std::string& character, Answer& answer) override
    {
        const auto key = m_keys.find(character);
        if (key == m_keys.end())
            return false;
        hangul_ic_process(m_context, key->second);
        answer.commit += fromUcs4(hangul_ic_get_commit_string(m_context));
        return true;
    }

    bool erase(Answer&) override { return hangul_ic_backspace(m_context); }
    void take(size_t, Answer&) override {}
    void finish(Answer& answer) override { answer.commit += fromUcs4(hangul_ic_flush(m_context)); }
    void reset() override { hangul_ic_reset(m_context); }

    std::string preedit() const override
    {
        return fromUcs4(hangul_ic_get_preedit_string(m_context));
    }

    std::vector<std::string> candidates(size_t, size_t) override { return {}; }

private:
    // The layout's keys carry jamo, libhangul wants the Latin letters of its own keyboard. Each
    // letter alone tells which jamo it stands for; of two with the same jamo, as with Shift, the
    // small one does.
    void learnKeys()
    {
        for (int key = '~'; key >= '!'; --key) {
            if (hangul_ic_process(m_context, key))
                m_keys[fromUcs4(hangul_ic_get_preedit_string(m_context))] = key;
            hangul_ic_reset(m_context);
        }
        m_keys.erase("");
    }

    HangulInputContext* m_context;
    std::map<std::string, int> m_keys; // of each jamo
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    // hangul_ic_new takes any name, and another keyboard for an unknown one.
    if (hangul_keyboard_list_get_keyboard(settings.scheme.c_str()) == nullptr) {
        problem = "libhangul has no keyboard '" + settings.scheme + "'";
        return nullptr;
    }
    return new Hangul(hangul_ic_new(settings.scheme.c_str()));
}
