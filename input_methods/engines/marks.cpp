// Letters and the marks that follow them, as on a plain Vietnamese keyboard: together they become
// one character. The scheme is not used.
#include "engine.h"
#include "text.h"

#include <unictype.h>

using namespace input_methods;

namespace
{

class Marks : public Engine
{
public:
    bool type(uint32_t character, Answer& answer) override
    {
        const bool joins = uc_is_general_category(character, UC_MARK) && !m_last.empty();
        const std::string joined = joins ? composed(m_last + utf8(character)) : "";
        if (joined.empty() || letters(joined) != 1) {
            m_last = utf8(character);
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

    void reset() override { m_last.clear(); }
    void addPreedit(std::string&) const override {}

private:
    std::string m_last; // the character before the caret, as far as it is known
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings&, std::string&)
{
    return new Marks();
}
