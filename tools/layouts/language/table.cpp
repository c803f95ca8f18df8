// Reads tables of fields that are separated by tabs.
#include "table.h"

#include <sstream>
#include <stdexcept>

#include "json_file.h"
#include "text.h"

namespace layouts
{
namespace
{

std::vector<std::string> split(const std::string& line)
{
    std::vector<std::string> fields;
    for (size_t from = 0; from != std::string::npos;) {
        const size_t tab = line.find('\t', from);
        fields.push_back(line.substr(from, tab - from));
        from = tab == std::string::npos ? tab : tab + 1;
    }
    return fields;
}

std::string columns(size_t fewest, size_t most)
{
    return fewest == most ? std::to_string(fewest)
                          : std::to_string(fewest) + " to " + std::to_string(most);
}

} // namespace

void TableRow::refuse(const std::string& found, const std::string& expected) const
{
    throw std::runtime_error(place + ": found " + found + ", expected " + expected);
}

std::vector<TableRow> readTable(const std::string& file, size_t fewest, size_t most)
{
    std::vector<TableRow> rows;
    std::istringstream in(readFile(file));
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.empty() || line[0] == '#')
            continue;
        const TableRow row = {file + ": line " + std::to_string(number), split(line)};
        if (!isUtf8(line))
            row.refuse("bytes that are no UTF-8", "a file that is saved as UTF-8");
        if (row.fields.size() < fewest || row.fields.size() > most)
            row.refuse(std::to_string(row.fields.size()) + " columns",
                       columns(fewest, most) +
                           " with a tab between them; see the file's first lines");
        rows.push_back(row);
    }
    return rows;
}

} // namespace layouts
