#ifndef TOOLS_LAYOUTS_CHECK_SCHEMA_CHECK_H
#define TOOLS_LAYOUTS_CHECK_SCHEMA_CHECK_H

#include <memory>
#include <string>

#include <json/forwards.h>

#include "finding.h"

namespace layouts
{

// A JSON Schema, read once and used for many files.
class Schema
{
public:
    // Throws std::runtime_error for a missing file.
    explicit Schema(const std::string& file);
    ~Schema();
    Schema(Schema&&) noexcept;

    // Adds what the schema does not allow; returns whether it allows everything.
    bool check(const std::string& fileName, const Json::Value& value, Findings& findings) const;

private:
    struct Compiled;
    std::unique_ptr<Compiled> m_compiled;
};

// Parses a file more strictly than the keyboard does: nothing after the value, no member twice,
// nothing that another reader might refuse. Adds a finding and returns false if it cannot.
bool parseStrictly(const std::string& fileName, const std::string& text, Json::Value& value,
                   Findings& findings);

} // namespace layouts

#endif
