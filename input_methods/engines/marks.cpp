// Letters and the marks that follow them, as on a plain Vietnamese keyboard: together they become
// one character. The scheme is not used.
#include "engine.h"
#include "text.h"

#include <unictype.h>
#include <unistr.h>

using namespace input_methods;

namespace
{

bool isMark(const std::string& character)
{
    ucs4_t code = 0;
    u8_mbtouc(&code, reinterpret_cast<const uint8_t*>(character.data()), character.size());
    return uc_is_general_category(code, UC_MARK);
}

class Marks : public Engine
{
public:
    bool type(const std::string& character, Answer& answer) override
    {
        const bool joins = isMark(character) && !m_last.empty();
        const std::string joined = joins ? composed(m_last + character) : "";
        if (joined.empty() || letters(joined) != 1) {
            m_last = character;
            return false;
        }
        answer.takeBack = 1;
        answer.commit += joined;
        m_last = joined;
        return true;
    }

    bool erase(Answer&) override
    {
        m_last.clear();
        return false;
    }

    void take(size_t, Answer&) override {}
    void finish(Answer&) override { m_last.clear(); }
    void reset() override { m_last.clear(); }
    std::string preedit() const override { return ""; }
    std::vector<std::string> candidates(size_t, size_t) override { return {}; }

private:
    std::string m_last; // the character before the caret, as far as it is known
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings&, std::string&)
{
    return new Marks();
}
