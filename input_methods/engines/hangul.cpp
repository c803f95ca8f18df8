// Korean by libhangul: jamo become syllables. The scheme is libhangul's name of a keyboard.
#include <hangul.h>
#include <unistr.h>

#include "engine.h"
#include "hangul_spelling.h"
#include "key_table.h"

using namespace input_methods;

namespace
{

// A call of it would be a thirtieth of the time of a key.
inline void add(const ucschar* text, std::string& utf8Text)
{
    uint8_t bytes[6];
    for (; *text != 0; ++text)
        utf8Text.append(reinterpret_cast<char*>(bytes),
                        static_cast<size_t>(u8_uctomb(bytes, *text, sizeof bytes)));
}

ucschar jamoOf(HangulInputContext* context, int key)
{
    const bool isUsed = hangul_ic_process(context, key);
    const ucschar jamo = isUsed ? *hangul_ic_get_preedit_string(context) : 0;
    hangul_ic_reset(context);
    return jamo;
}

class Hangul : public Engine
{
public:
    explicit Hangul(HangulInputContext* context)
        : m_context(context),
          m_keys(kFirstJamo, kLastJamo, [context](int key) { return jamoOf(context, key); }),
          m_spelling(context, m_keys)
    {
    }

    ~Hangul() override { hangul_ic_delete(m_context); }

    bool type(uint32_t character, Answer& answer) override
    {
        const int key = m_keys.keyOf(character);
        if (key == 0)
            return false;
        hangul_ic_process(m_context, key);
        add(hangul_ic_get_commit_string(m_context), answer.commit);
        return true;
    }

    bool erase(Answer&) override { return hangul_ic_backspace(m_context); }
    void finish(Answer& answer) override { add(hangul_ic_flush(m_context), answer.commit); }
    void reset() override { hangul_ic_reset(m_context); }

    void addPreedit(std::string& text) const override
    {
        add(hangul_ic_get_preedit_string(m_context), text);
    }

    std::vector<std::string> spellings(uint32_t character) override
    {
        return {m_spelling.of(character)};
    }

private:
    HangulInputContext* m_context;
    KeyTable m_keys; // of each jamo
    HangulSpelling m_spelling;
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
