// make_spelling_tables: writes m17n tables in which each syllable is typed as Unicode names it.
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include <uniname.h>

#include "text.h"

using input_methods::utf8;

namespace
{

struct Range {
    uint32_t first;
    uint32_t last;
};

// What a name begins with, and what the rest of it is typed with.
struct Naming {
    const char* prefix;
    bool isCapital; // the rest begins with a capital, to be told from that of another prefix
};

struct Exception {
    uint32_t character;
    const char* keys;
};

struct Script {
    const char* language; // ISO 639
    const char* title;
    Range ranges[3]; // unused ones are 0
    Naming namings[2];
    Exception exceptions[1];
};

const Script kScripts[] = {
    // Cherokee is written in the letters of the first range; the small ones are rare.
    {"chr",
     "Cherokee",
     {{0x13A0, 0x13F5}, {0x13F8, 0x13FD}, {0xAB70, 0xABBF}},
     {{"CHEROKEE LETTER ", false}, {"CHEROKEE SMALL LETTER ", true}},
     {}},
    {"ii", "Yi", {{0xA000, 0xA48C}}, {{"YI SYLLABLE ", false}}, {}},
    // The lengthener's name is no sound.
    {"vai",
     "Vai",
     {{0xA500, 0xA60C}, {0xA610, 0xA612}, {0xA62A, 0xA62B}},
     {{"VAI SYLLABLE ", false}, {"VAI SYLLABLE NDOLE ", true}},
     {{0xA60C, "-"}}},
};

std::string lower(std::string text)
{
    for (char& letter : text)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return text;
}

// Empty for a character whose name has another form.
std::string keysOf(const Script& script, uint32_t character)
{
    for (const Exception& exception : script.exceptions)
        if (exception.keys != nullptr && exception.character == character)
            return exception.keys;
    char name[UNINAME_MAX];
    if (unicode_character_name(character, name) == nullptr)
        return "";
    for (const Naming& naming : script.namings) {
        const size_t length = naming.prefix == nullptr ? 0 : std::strlen(naming.prefix);
        if (length == 0 || std::strncmp(name, naming.prefix, length) != 0)
            continue;
        std::string keys = lower(name + length);
        if (keys.find(' ') != std::string::npos)
            continue;
        if (naming.isCapital)
            keys[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(keys[0])));
        return keys;
    }
    return "";
}

std::string table(const Script& script)
{
    std::string text = std::string(";; Written by make_spelling_tables from the Unicode names.\n"
                                   "(input-method ") +
                       script.language + " names)\n\n(description \"" + script.title +
                       ", each syllable typed as Unicode names it; ' ends one.\")\n\n(title \"" +
                       script.title + "\")\n\n(map\n (syllables\n  (\"'\")\n";
    for (const Range& range : script.ranges)
        for (uint32_t character = range.first; character != 0 && character <= range.last;
             ++character) {
            const std::string keys = keysOf(script, character);
            if (!keys.empty())
                text += "  (\"" + keys + "\" \"" + utf8(character) + "\")\n";
        }
    return text + " ))\n\n(state\n (init\n  (syllables)))\n";
}

int fail(const std::string& message)
{
    std::fprintf(stderr, "make_spelling_tables: %s\n", message.c_str());
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return fail("usage: make_spelling_tables FOLDER");
    for (const Script& script : kScripts) {
        const std::string name = std::string(argv[1]) + "/" + script.language + "-names.mim";
        std::ofstream file(name, std::ios::trunc);
        file << table(script);
        if (!file.flush())
            return fail(name + ": " + std::strerror(errno));
    }
    return 0;
}
