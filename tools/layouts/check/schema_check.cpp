// Checks a file against its JSON Schema and words what does not fit.
#include "schema_check.h"

#include <sstream>
#include <vector>

#include <valijson/adapters/jsoncpp_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

#include "json_file.h"
#include "text.h"

namespace layouts
{
namespace
{

using Path = std::vector<std::string>; // member names, and array positions as numbers

constexpr size_t kLongestValue = 60;

std::string shown(const Json::Value& value)
{
    std::string text = quoted(value);
    if (text.size() <= kLongestValue)
        return text;
    return value.isArray() ? "a list" : value.isObject() ? "an object" : "a long text";
}

bool isNumber(const std::string& step)
{
    return !step.empty() && step.find_first_not_of("0123456789") == std::string::npos;
}

// The validator writes a step as [name] or ["name"].
Path stepsOf(const std::vector<std::string>& context)
{
    Path path;
    for (const std::string& element : context) {
        const size_t from = element.find_first_not_of("[\"");
        const size_t to = element.find_last_not_of("]\"");
        if (element != "<root>" && from != std::string::npos)
            path.push_back(element.substr(from, to - from + 1));
    }
    return path;
}

std::string asText(const Path& path)
{
    std::string text;
    for (const std::string& step : path)
        text += isNumber(step) ? "[" + step + "]" : (text.empty() ? "" : ".") + step;
    return text.empty() ? "the whole file" : text;
}

const Json::Value& valueAt(const Json::Value& root, const Path& path)
{
    const Json::Value* value = &root;
    for (const std::string& step : path) {
        if (value->isArray() && isNumber(step))
            value = &(*value)[static_cast<Json::ArrayIndex>(std::stoul(step))];
        else if (value->isObject())
            value = &(*value)[step];
    }
    return *value;
}

// The part of the schema that speaks of a value.
const Json::Value& schemaAt(const Json::Value& schema, const Path& path)
{
    const auto resolved = [&](const Json::Value* part) {
        const std::string prefix = "#/definitions/";
        while (part->isObject() && part->isMember("$ref") && !part->isMember("description"))
            part = &schema["definitions"][(*part)["$ref"].asString().substr(prefix.size())];
        return part;
    };
    const Json::Value* part = resolved(&schema);
    for (const std::string& step : path)
        part = resolved(isNumber(step) ? &(*part)["items"] : &(*part)["properties"][step]);
    return *part;
}

std::string quotedName(const std::string& description)
{
    const size_t from = description.rfind('\'', description.rfind('\'') - 1) + 1;
    return description.substr(from, description.rfind('\'') - from);
}

bool beginsWith(const std::string& text, const char* start)
{
    return text.rfind(start, 0) == 0;
}

// The strictest reading that the file's readers agree on.
std::unique_ptr<Json::CharReader> strictReader()
{
    Json::CharReaderBuilder builder;
    builder["failIfExtra"] = true;
    builder["rejectDupKeys"] = true;
    builder["allowTrailingCommas"] = false;
    builder["skipBom"] = false;
    return std::unique_ptr<Json::CharReader>(builder.newCharReader());
}

// The library says "* Line 2, Column 3" and the reason on a line of its own.
Finding syntaxFinding(const std::string& fileName, const std::string& errors)
{
    std::istringstream in(errors);
    std::string place;
    std::string reason;
    std::getline(in, place);
    std::getline(in, reason);
    if (!beginsWith(place, "* Line "))
        return {fileName, "the whole file", errors, "JSON", "syntax"};
    const size_t comma = place.find(", Column ");
    const size_t text = reason.find_first_not_of(' ');
    return {fileName, "line " + place.substr(7, comma - 7) + ", column " + place.substr(comma + 9),
            "no JSON (" + (text == std::string::npos ? "" : reason.substr(text)) + ")", "JSON",
            "syntax"};
}

bool checkUtf8(const std::string& fileName, const std::string& text, Findings& findings)
{
    if (isUtf8(text))
        return true;
    std::istringstream in(text);
    int number = 1;
    std::string line;
    while (std::getline(in, line) && isUtf8(line))
        ++number;
    findings.push_back({fileName, "line " + std::to_string(number), "bytes that are no UTF-8",
                        "text in UTF-8", "utf8"});
    return false;
}

} // namespace

struct Schema::Compiled {
    Json::Value text;
    valijson::Schema schema;
};

Schema::Schema(const std::string& file) : m_compiled(new Compiled)
{
    m_compiled->text = readJson(file);
    valijson::SchemaParser parser;
    parser.populateSchema(valijson::adapters::JsonCppAdapter(m_compiled->text), m_compiled->schema);
}

Schema::~Schema() = default;
Schema::Schema(Schema&&) noexcept = default;

bool Schema::check(const std::string& fileName, const Json::Value& value, Findings& findings) const
{
    valijson::Validator validator;
    valijson::ValidationResults results;
    if (validator.validate(m_compiled->schema, valijson::adapters::JsonCppAdapter(value), &results))
        return true;

    valijson::ValidationResults::Error error;
    while (results.popError(error)) {
        Path path = stepsOf(error.context);
        // Such a line only says that one of the others is about a part of this value.
        if (beginsWith(error.description, "Failed to validate"))
            continue;
        if (beginsWith(error.description, "Missing required")) {
            path.push_back(quotedName(error.description));
            findings.push_back({fileName, asText(path), "nothing",
                                schemaAt(m_compiled->text, path)["description"].asString(),
                                "missing"});
        } else if (beginsWith(error.description, "Object contains a property")) {
            path.push_back(quotedName(error.description));
            findings.push_back({fileName, asText(path), "a member that nobody reads",
                                "a name from the manual, or no such member", "unknown"});
        } else {
            const bool wrongType = beginsWith(error.description, "Value type");
            findings.push_back({fileName, asText(path), shown(valueAt(value, path)),
                                schemaAt(m_compiled->text, path)["description"].asString(),
                                wrongType ? "type" : "range"});
        }
    }
    return false;
}

bool parseStrictly(const std::string& fileName, const std::string& text, Json::Value& value,
                   Findings& findings)
{
    if (!checkUtf8(fileName, text, findings))
        return false;
    std::string errors;
    try {
        if (strictReader()->parse(text.data(), text.data() + text.size(), &value, &errors))
            return true;
    } catch (const Json::Exception& error) {
        errors = error.what();
    }
    findings.push_back(syntaxFinding(fileName, errors));
    return false;
}

} // namespace layouts
