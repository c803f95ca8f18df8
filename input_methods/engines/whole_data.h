#ifndef INPUT_METHODS_ENGINES_WHOLE_DATA_H
#define INPUT_METHODS_ENGINES_WHOLE_DATA_H

#include <string>

namespace input_methods
{

// Whether a dictionary is as long as it says of itself. The engines map their files into memory
// and end the process where one is cut off. A file of another form is not whole either.
bool isWholeAnthy(const std::string& file);
bool isWholeChewing(const std::string& tree, const std::string& words);
bool isWholeRimePrism(const std::string& file);
bool isWholeRimeTable(const std::string& file);

// Whether every list of the table ends, and there is one.
bool isWholeM17nTable(const std::string& file);

} // namespace input_methods

#endif
