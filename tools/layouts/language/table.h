#ifndef TOOLS_LAYOUTS_LANGUAGE_TABLE_H
#define TOOLS_LAYOUTS_LANGUAGE_TABLE_H

#include <cstddef>
#include <string>
#include <vector>

namespace layouts
{

// A line of a table: fields with a tab between them. Empty lines and those that begin with # are
// not rows.
struct TableRow {
    std::string place; // file and line, for messages
    std::vector<std::string> fields;

    // Throws std::runtime_error, one line that begins with the place.
    [[noreturn]] void refuse(const std::string& found, const std::string& expected) const;
};

// Throws std::runtime_error for a file that cannot be read, and for the first row that has fewer or
// more fields.
std::vector<TableRow> readTable(const std::string& file, size_t fewest, size_t most);

} // namespace layouts

#endif
