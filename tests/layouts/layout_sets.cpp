// Reads bad_and_odd_sets.txt: each line of a set changes the good set a little further.
#include "layout_sets.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <json/json.h>

#include "json_file.h"

using layouts::LayoutSet;

namespace
{

void require(bool holds, const std::string& problem)
{
    if (!holds)
        throw std::runtime_error(problem);
}

Json::Value parsed(const std::string& text)
{
    Json::CharReaderBuilder reader;
    std::istringstream stream(text);
    Json::Value value;
    std::string errors;
    require(Json::parseFromStream(reader, stream, &value, &errors), errors);
    return value;
}

// \n, \r, \\ and \xHH as in C++.
std::string unescaped(const std::string& text)
{
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        const char kind = text.at(++i);
        if (kind == 'x') {
            result += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            result += kind == 'n' ? '\n' : kind == 'r' ? '\r' : kind;
        }
    }
    return result;
}

std::vector<std::string> splitAt(char separator, const std::string& text)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

// |OLD|NEW| or |OLD|
void replaceText(std::string& text, const std::string& change)
{
    const std::vector<std::string> parts = splitAt('|', change);
    require(parts.size() == 2 || parts.size() == 3, "expected |OLD|NEW| or |OLD|");
    const std::string old = unescaped(parts[1]);
    size_t at = text.find(old);
    require(at != std::string::npos, "the text is not there");
    if (parts.size() == 2) {
        text.resize(at);
        return;
    }
    const std::string replacement = unescaped(parts[2]);
    for (; at != std::string::npos; at = text.find(old, at + replacement.size()))
        text.replace(at, old.size(), replacement);
}

void remove(Json::Value& root, const std::string& place)
{
    if (place.back() == ']') {
        const size_t bracket = place.rfind('[');
        Json::Value removed;
        require(
            Json::Path(place.substr(0, bracket))
                .make(root)
                .removeIndex(static_cast<Json::ArrayIndex>(std::stoul(place.substr(bracket + 1))),
                             &removed),
            "no such place");
        return;
    }
    const size_t dot = place.rfind('.');
    Json::Value& parent =
        dot == std::string::npos ? root : Json::Path(place.substr(0, dot)).make(root);
    const std::string name = place.substr(dot + 1);
    require(parent.isMember(name), "no such place");
    parent.removeMember(name);
}

void put(Json::Value& target, const Json::Value& value)
{
    if (!target.isObject() || !value.isObject()) {
        target = value;
        return;
    }
    for (const std::string& name : value.getMemberNames()) {
        if (value[name].isNull())
            target.removeMember(name);
        else
            target[name] = value[name];
    }
}

// PLACE JSON or PLACE
void changeValue(std::string& text, const std::string& change)
{
    const size_t blank = change.find(' ');
    const std::string place = change.substr(0, blank);
    const size_t star = place.find('*');
    if (star != std::string::npos) {
        for (const char* set : {"KeyMode_Default", "KeyMode_Symbol"})
            changeValue(text, std::string(change).replace(star, 1, set));
        return;
    }
    Json::Value root = parsed(text);
    if (blank == std::string::npos)
        remove(root, place);
    else
        put(place == "." ? root : Json::Path(place).make(root), parsed(change.substr(blank + 1)));
    text = Json::writeString(Json::StreamWriterBuilder(), root);
}

void changeFile(LayoutSet& files, const std::string& line)
{
    const size_t blank = line.find(' ');
    const std::string middle = line.substr(0, blank);
    const std::string name = layouts::keyMapName(middle == "-" ? "" : middle);
    if (blank == std::string::npos) {
        require(files.erase(name) == 1, "no such file");
        return;
    }
    const std::string change = line.substr(blank + 1);
    if (change.compare(0, 2, "= ") == 0)
        files[name] = files.at(layouts::keyMapName(change.substr(2)));
    else if (change[0] == '|')
        replaceText(files.at(name), change);
    else
        changeValue(files.at(name), change);
}

void change(CheckedSet& set, const std::vector<CheckedSet>& earlier, const std::string& line)
{
    const size_t blank = line.find(' ');
    const std::string word = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (word == ">") {
        set.findings.push_back(rest);
    } else if (word == "like") {
        const auto other = std::find_if(earlier.begin(), earlier.end(),
                                        [&](const CheckedSet& one) { return one.name == rest; });
        require(other != earlier.end(), "no such set before this one");
        set.files = other->files;
    } else if (word == "font") {
        set.font = rest;
    } else if (word == "screen") {
        require(std::sscanf(rest.c_str(), "%dx%d", &set.screenWidth, &set.screenHeight) == 2,
                "expected WxH");
    } else {
        changeFile(set.files, line);
    }
}

} // namespace

std::vector<CheckedSet> readCheckedSets()
{
    const LayoutSet good = layouts::readLayoutSet(LAYOUT_SETS "/good");
    std::ifstream in(LAYOUT_SETS "/bad_and_odd_sets.txt");
    std::vector<CheckedSet> sets;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        if (line.compare(0, 4, "set ") == 0) {
            sets.emplace_back();
            sets.back().name = line.substr(4);
            sets.back().files = good;
            continue;
        }
        require(!sets.empty(), "bad_and_odd_sets.txt: expected a set first: " + line);
        try {
            change(sets.back(), sets, line);
        } catch (const std::exception& error) {
            throw std::runtime_error("bad_and_odd_sets.txt: " + sets.back().name + ": " + line +
                                     ": " + error.what());
        }
    }
    return sets;
}
