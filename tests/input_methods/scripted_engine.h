#ifndef TESTS_INPUT_METHODS_SCRIPTED_ENGINE_H
#define TESTS_INPUT_METHODS_SCRIPTED_ENGINE_H

#include <string>
#include <vector>

#include "engine.h"

namespace input_methods_test
{

// An engine without a dictionary: each small Latin letter is one letter of the preedit, and the
// candidates are those that the test gave it, for as long as there is a preedit. Taking one
// commits it and drops so many letters as it has characters.
class ScriptedEngine : public input_methods::Engine
{
public:
    explicit ScriptedEngine(std::vector<std::string> candidates) : m_all(std::move(candidates)) {}

    bool type(uint32_t character, input_methods::Answer& answer) override;
    bool erase(input_methods::Answer& answer) override;
    void take(size_t index, input_methods::Answer& answer) override;
    void reset() override { m_preedit.clear(); }
    void addPreedit(std::string& text) const override { text += m_preedit; }
    bool converts() const override { return true; }
    void addCandidates(size_t from, size_t count, std::vector<std::string>& found) override;

private:
    std::vector<std::string> m_all;
    std::string m_preedit;
};

} // namespace input_methods_test

#endif
