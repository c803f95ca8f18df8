// Reads m17n's tables the other way round: from a character to its keys.
#include "m17n_spelling.h"

#include <cctype>
#include <cstdlib>
#include <memory>

#include <uninorm.h>

#include "text.h"

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

// All rules of a table, and of those that it includes.
void readTable(MSymbol language, MSymbol name, Spellings& spellings)
{
    MDatabase* database = mdatabase_find(msymbol("input-method"), language, name, Mnil);
    MPlist* table = database == nullptr ? nullptr : static_cast<MPlist*>(mdatabase_load(database));
    if (table == nullptr)
        return;
    forEachList(table, [&](MPlist* part) {
        if (isSymbol(part, "map"))
            forEachList(part, [&](MPlist* map) {
                forEachList(map, [&](MPlist* rule) { readRule(rule, spellings); });
            });
        if (!isSymbol(part, "include"))
            return;
        MPlist* other = mplist_next(part);
        if (other == nullptr || mplist_key(other) != Mplist)
            return;
        MPlist* names = static_cast<MPlist*>(mplist_value(other));
        MSymbol tags[2] = {Mnil, Mnil};
        for (MSymbol& tag : tags)
            if (names != nullptr && mplist_key(names) == Msymbol) {
                tag = static_cast<MSymbol>(mplist_value(names));
                names = mplist_next(names);
            }
        readTable(tags[0], tags[1], spellings);
    });
    m17n_object_unref(table);
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
            const std::string spelling = letter + first + second;
            if (gives(spelling))
                return {spelling};
        }
    return {};
}

} // namespace

std::vector<std::string> M17nSpelling::of(const std::string& character,
                                          const std::function<bool(const std::string&)>& gives)
{
    if (m_known.empty())
        readTable(m_language, m_table, m_known);
    std::vector<std::string>& known = m_known[character];
    if (known.empty())
        known = changedLetter(character, gives);
    return known;
}

} // namespace input_methods
