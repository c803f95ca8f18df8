#ifndef TOOLS_LAYOUTS_GENERATE_REPERTOIRE_H
#define TOOLS_LAYOUTS_GENERATE_REPERTOIRE_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "key_texts.h"

namespace layouts
{

struct Language;

// What a layout of a language is to type, each text a single character unless it says otherwise.
class Repertoire
{
public:
    // Throws std::runtime_error for a language whose letters nobody knows.
    explicit Repertoire(const Language& language);

    const std::string& name() const { return m_name; } // of the layout, for messages

    // The alphabet, and the letters of names and foreign words, each with its upper case; whole
    // letters, which may be several characters.
    const std::vector<KeyTexts>& letters() const { return m_letters; }
    const std::vector<KeyTexts>& foreignLetters() const { return m_foreign; }

    // The letters' single characters, each once; with decomposed, base letters and marks.
    std::vector<KeyTexts> characters(const std::vector<KeyTexts>& letters,
                                     bool decomposed = false) const;

    // The characters of running text, the most frequent first, and of 1 how much of it each is.
    const std::vector<std::string>& byUse() const { return m_by_use; }
    double share(const std::string& character) const;

    // From zero to nine.
    const std::vector<std::string>& digits() const { return m_digits; }
    const std::vector<std::string>& nativeDigits() const { return m_native_digits; }
    const std::vector<std::string>& punctuation() const { return m_punctuation; }

    // Whether the character is of the alphabet, in either case or as a mark of its letters, and
    // whether the language uses it at all.
    bool isLetter(const std::string& character) const { return m_alphabet.count(character) != 0; }
    bool uses(const std::string& character) const { return m_used.count(character) != 0; }

    std::string inLowerCase(const std::string& text) const;
    // None for a letter of which two would become, as ß.
    KeyTexts withUpperCase(const std::string& letter) const;

private:
    void countWords(const std::vector<std::string>& words);
    static void add(const std::vector<std::string>& texts, std::set<std::string>& to);
    std::vector<KeyTexts> withUpperCases(const std::vector<std::string>& letters) const;

    std::string m_name;
    std::string m_locale;
    std::vector<KeyTexts> m_letters;
    std::vector<KeyTexts> m_foreign;
    std::map<std::string, double> m_shares;
    std::vector<std::string> m_by_use;
    std::vector<std::string> m_digits;
    std::vector<std::string> m_native_digits;
    std::vector<std::string> m_punctuation;
    std::set<std::string> m_alphabet;
    std::set<std::string> m_used;
};

} // namespace layouts

#endif
