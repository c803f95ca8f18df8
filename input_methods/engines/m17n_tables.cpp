// Reads m17n's tables: what they need, and from a character back to its keys.
#include "m17n_tables.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include <uninorm.h>

#include "text.h"
#include "whole_data.h"

namespace input_methods
{

std::string fromMText(MText* text)
{
    std::string bytes(static_cast<size_t>(mtext_len(text)) * 6 + 1, '\0');
    const int length =
        mconv_encode_buffer(Mcoding_utf_8, text, reinterpret_cast<unsigned char*>(&bytes[0]),
                            static_cast<int>(bytes.size()));
    bytes.resize(length < 0 ? 0 : static_cast<size_t>(length));
    return bytes;
}

namespace
{

using Spellings = std::map<std::string, std::vector<std::string>>; // by character

// A rule of a map: the keys as a text, and what comes of them.
void readRule(MPlist* rule, Spellings& spellings)
{
    if (mplist_key(rule) != Mtext || mplist_next(rule) == nullptr)
        return;
    const std::string keys = fromMText(static_cast<MText*>(mplist_value(rule)));
    MPlist* result = mplist_next(rule);
    std::string text;
    if (mplist_key(result) == Mtext)
        text = fromMText(static_cast<MText*>(mplist_value(result)));
    if (mplist_key(result) == Minteger)
        text = utf8(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(mplist_value(result))));
    std::vector<std::string>& known = spellings[text];
    const bool isShorter = !known.empty() && keys.size() < known.front().size();
    known.insert(isShorter ? known.begin() : known.end(), keys);
}

bool isSymbol(MPlist* list, const char* name)
{
    return mplist_key(list) == Msymbol && mplist_value(list) == msymbol(name);
}

// Calls back for each list that stands in this list, behind its first element or not.
template <typename Take> void forEachList(MPlist* list, const Take& take)
{
    for (; list != nullptr && mplist_key(list) != Mnil; list = mplist_next(list))
        if (mplist_key(list) == Mplist)
            take(static_cast<MPlist*>(mplist_value(list)));
}

// Calls back for each part of a table that has this name.
template <typename Take> void forEachPart(MPlist* table, const char* name, const Take& take)
{
    forEachList(table, [&](MPlist* part) {
        if (isSymbol(part, name))
            take(part);
    });
}

// Null where m17n has none.
MPlist* load(const TableName& table)
{
    MDatabase* database = mdatabase_find(msymbol("input-method"), table[0], table[1], table[2]);
    return database == nullptr ? nullptr : static_cast<MPlist*>(mdatabase_load(database));
}

// Calls back with the name of each table that this one includes.
template <typename Take> void forEachInclude(MPlist* table, const Take& take)
{
    forEachPart(table, "include", [&](MPlist* part) {
        MPlist* names = mplist_next(part);
        if (names == nullptr || mplist_key(names) != Mplist)
            return;
        TableName included = {Mnil, Mnil, Mnil};
        names = static_cast<MPlist*>(mplist_value(names));
        for (MSymbol& name : included)
            if (names != nullptr && mplist_key(names) == Msymbol) {
                name = static_cast<MSymbol>(mplist_value(names));
                names = mplist_next(names);
            }
        take(included);
    });
}

// All rules of a table, and of those that it includes.
void readTable(const TableName& name, Spellings& spellings)
{
    MPlist* table = load(name);
    if (table == nullptr)
        return;
    forEachPart(table, "map", [&](MPlist* part) {
        forEachList(part, [&](MPlist* map) {
            forEachList(map, [&](MPlist* rule) { readRule(rule, spellings); });
        });
    });
    forEachInclude(table, [&](const TableName& included) { readTable(included, spellings); });
    m17n_object_unref(table);
}

std::string fileName(const TableName& table)
{
    if (table[2] != Mnil)
        return msymbol_name(table[2]);
    return std::string(msymbol_name(table[0])) + "-" + msymbol_name(table[1]);
}

// m17n reads such a table up to its end.
bool isCutOff(const TableName& table, const std::vector<std::string>& folders)
{
    return std::any_of(folders.begin(), folders.end(), [&](const std::string& folder) {
        const std::string file = folder + "/" + fileName(table) + ".mim";
        return std::filesystem::exists(file) && !isWholeM17nTable(file);
    });
}

// The character without its marks; empty for one that is no Latin letter.
std::string plainLetter(const std::string& character)
{
    size_t length = 0;
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(character.data());
    const std::unique_ptr<uint8_t, decltype(&std::free)> apart(
        u8_normalize(UNINORM_NFD, bytes, character.size(), nullptr, &length), &std::free);
    const bool isLatin = apart && length > 0 && std::isalpha(apart.get()[0]) != 0;
    return isLatin ? std::string(1, static_cast<char>(apart.get()[0])) : "";
}

// The letter and at most two more that change it to the character; none where there are no such.
std::vector<std::string> changedLetter(const std::string& character,
                                       const std::function<bool(const std::string&)>& gives)
{
    const std::string letter = plainLetter(character);
    if (letter.empty())
        return {};
    std::vector<std::string> more = {"", letter};
    for (char change = 'a'; change <= 'z'; ++change)
        more.push_back(std::string(1, change));
    for (const std::string& first : more)
        for (const std::string& second : more) {
            std::string spelling = letter + first;
            spelling += second;
            if (gives(spelling))
                return {spelling};
        }
    return {};
}

} // namespace

std::string missingTable(const TableName& name, const std::vector<std::string>& folders)
{
    MPlist* table = load(name);
    if (table == nullptr)
        return fileName(name);
    std::string missing = isCutOff(name, folders) ? fileName(name) : "";
    forEachInclude(table, [&](const TableName& included) {
        if (missing.empty())
            missing = missingTable(included, folders);
    });
    m17n_object_unref(table);
    return missing;
}

std::vector<std::string> M17nSpelling::of(const std::string& character,
                                          const std::function<bool(const std::string&)>& gives)
{
    if (m_known.empty())
        readTable(m_table, m_known);
    std::vector<std::string>& known = m_known[character];
    if (known.empty())
        known = changedLetter(character, gives);
    return known;
}

} // namespace input_methods
