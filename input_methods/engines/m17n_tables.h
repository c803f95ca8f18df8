#ifndef INPUT_METHODS_ENGINES_M17N_SPELLING_H
#define INPUT_METHODS_ENGINES_M17N_SPELLING_H

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <m17n.h>

namespace input_methods
{

std::string fromMText(MText* text); // UTF-8

// Which letters compose a character by one of m17n's tables.
class M17nSpelling
{
public:
    M17nSpelling(MSymbol language, MSymbol table) : m_language(language), m_table(table) {}

    // As the table says, the shortest first; or, where it says how letters are changed and not
    // which come of it, the letter with at most two more: gives says whether letters compose the
    // character.
    std::vector<std::string> of(const std::string& character,
                                const std::function<bool(const std::string&)>& gives);

private:
    MSymbol m_language;
    MSymbol m_table;
    std::map<std::string, std::vector<std::string>> m_known; // by character, once one was asked for
};

} // namespace input_methods

#endif
