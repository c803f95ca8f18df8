// Reads and writes whole files, and JSON in them.
#include "json_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>

#include <json/json.h>

namespace layouts
{

std::string readFile(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    if (std::filesystem::is_directory(file))
        throw std::runtime_error(file + ": cannot be read: is a folder");
    if (!in)
        throw std::runtime_error(file + ": cannot be read: " + std::strerror(errno));
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

Json::Value readJson(const std::string& file)
{
    const std::string text = readFile(file);
    Json::CharReaderBuilder builder;
    Json::Value root;
    std::string errors;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    if (!reader->parse(text.data(), text.data() + text.size(), &root, &errors))
        throw std::runtime_error(file + ": not JSON:\n" + errors);
    return root;
}

std::string quoted(const Json::Value& value)
{
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    return Json::writeString(builder, value);
}

std::string writeBeside(const std::string& file, const std::string& text)
{
    std::string temporary = file + ".new";
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    if (!out) {
        const std::string reason = std::strerror(errno);
        std::remove(temporary.c_str());
        throw std::runtime_error(file + ": cannot be written: " + reason);
    }
    return temporary;
}

void putInPlace(const std::string& temporary, const std::string& file)
{
    if (std::rename(temporary.c_str(), file.c_str()) != 0)
        throw std::runtime_error(file + ": cannot be replaced: " + std::strerror(errno));
}

void writeFile(const std::string& file, const std::string& text)
{
    putInPlace(writeBeside(file, text), file);
}

} // namespace layouts
