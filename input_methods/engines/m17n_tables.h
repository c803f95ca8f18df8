#ifndef INPUT_METHODS_ENGINES_M17N_TABLES_H
#define INPUT_METHODS_ENGINES_M17N_TABLES_H

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <m17n.h>

namespace input_methods
{

std::string fromMText(MText* text); // UTF-8

// A table by m17n's own names: language, name, and one more where these are not enough, or Mnil.
using TableName = std::array<MSymbol, 3>;

// The first table that this one needs, itself too, and that m17n has not, or that is cut off in one
// of the folders, such as "am-sera"; empty when all are there. m17n would compose in part, or
// crash.
std::string missingTable(const TableName& table, const std::vector<std::string>& folders);

// Which letters compose a character by one of m17n's tables.
class M17nSpelling
{
public:
    explicit M17nSpelling(const TableName& table) : m_table(table) {}

    // As the table says, the shortest first; or, where it says how letters are changed and not
    // which come of it, the letter with at most two more: gives says whether letters compose the
    // character.
    std::vector<std::string> of(const std::string& character,
                                const std::function<bool(const std::string&)>& gives);

private:
    TableName m_table;
    std::map<std::string, std::vector<std::string>> m_known; // by character, once one was asked for
};

} // namespace input_methods

#endif
