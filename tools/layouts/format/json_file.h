#ifndef TOOLS_LAYOUTS_FORMAT_JSON_FILE_H
#define TOOLS_LAYOUTS_FORMAT_JSON_FILE_H

#include <string>

#include <json/value.h>

namespace layouts
{

// Whole file, bytes as they are. Throws std::runtime_error naming the file when it cannot be
// read.
std::string readFile(const std::string& file);

// Throws std::runtime_error with file, line and column for what is not JSON.
Json::Value readJson(const std::string& file);

// The value on one line, texts in UTF-8; a text stands in quotation marks.
std::string quoted(const Json::Value& value);

// Writing in two steps: the text goes into a file beside the real one, which then takes its place.
// Readers see the old text or the new one, never a part. Both throw std::runtime_error.
std::string writeBeside(const std::string& file, const std::string& text);
void putInPlace(const std::string& temporary, const std::string& file);

// Both steps at once.
void writeFile(const std::string& file, const std::string& text);

} // namespace layouts

#endif
