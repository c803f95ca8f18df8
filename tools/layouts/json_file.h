#ifndef LAYOUTS_JSON_FILE_H
#define LAYOUTS_JSON_FILE_H

#include <string>

#include <json/json.h>

namespace layouts
{

// Whole file, bytes as they are. Throws std::runtime_error naming the file when it cannot be
// read.
std::string readFile(const std::string& file);

// Throws std::runtime_error with file, line and column for what is not JSON.
Json::Value readJson(const std::string& file);

// Replaces the file in one step: its readers see the old text or the new one, never a part.
void writeFile(const std::string& file, const std::string& text);

} // namespace layouts

#endif
