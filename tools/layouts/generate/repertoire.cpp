// Collects what a language is written with, and how often.
#include "repertoire.h"

#include <algorithm>

#include "language.h"
#include "text.h"

namespace layouts
{

Repertoire::Repertoire(const Language& language)
    : m_name(language.name), m_locale(language.icuName),
      m_letters(withUpperCases(mainLetters(language))),
      m_foreign(withUpperCases(auxiliaryLetters(language))), m_digits(digitsOf(language)),
      m_native_digits(nativeDigitsOf(language))
{
    for (const std::string& mark : punctuationOf(language))
        if (isSign(mark))
            m_punctuation.push_back(mark);
    for (const KeyTexts& letter : characters(m_letters))
        add({letter.plain, letter.shifted}, m_alphabet);
    for (const KeyTexts& part : characters(m_letters, true))
        add({part.plain}, m_alphabet);
    m_used = m_alphabet;
    for (const KeyTexts& letter : characters(m_foreign))
        add({letter.plain, letter.shifted}, m_used);
    add(m_digits, m_used);
    add(m_native_digits, m_used);
    add(m_punctuation, m_used);
    countWords(wordsOf(language));
}

void Repertoire::add(const std::vector<std::string>& texts, std::set<std::string>& to)
{
    for (const std::string& text : texts)
        if (!text.empty())
            to.insert(text);
}

// Words as people type them into a search field, all lower case. What only begins words counts
// too, at the very end.
void Repertoire::countWords(const std::vector<std::string>& words)
{
    double total = 0;
    for (const std::string& word : words) {
        for (const char32_t c : codePoints(lowerCase(word, m_locale))) {
            m_shares[fromCodePoint(c)] += 1;
            total += 1;
        }
        for (const char32_t c : codePoints(word))
            m_shares[fromCodePoint(c)] += 0;
    }
    for (auto& share : m_shares) {
        share.second /= total;
        m_by_use.push_back(share.first);
        m_used.insert(share.first);
    }
    std::stable_sort(
        m_by_use.begin(), m_by_use.end(),
        [&](const std::string& a, const std::string& b) { return share(a) > share(b); });
}

double Repertoire::share(const std::string& character) const
{
    const auto found = m_shares.find(character);
    return found == m_shares.end() ? 0 : found->second;
}

std::string Repertoire::inLowerCase(const std::string& text) const
{
    return lowerCase(text, m_locale);
}

KeyTexts Repertoire::withUpperCase(const std::string& letter) const
{
    const std::string upper = upperCase(letter, m_locale);
    const bool isOne = singleCodePoint(letter) == 0 || singleCodePoint(upper) != 0;
    return {letter, isOne ? upper : std::string()};
}

std::vector<KeyTexts> Repertoire::withUpperCases(const std::vector<std::string>& letters) const
{
    std::vector<KeyTexts> result;
    result.reserve(letters.size());
    for (const std::string& letter : letters)
        result.push_back(withUpperCase(letter));
    return result;
}

std::vector<KeyTexts> Repertoire::characters(const std::vector<KeyTexts>& letters,
                                             bool decomposed) const
{
    std::vector<KeyTexts> result;
    std::set<std::string> seen;
    for (const KeyTexts& letter : letters)
        for (const char32_t c : codePoints(decomposed ? nfd(letter.plain) : letter.plain))
            if (seen.insert(fromCodePoint(c)).second)
                result.push_back(withUpperCase(fromCodePoint(c)));
    std::stable_sort(result.begin(), result.end(), [&](const KeyTexts& a, const KeyTexts& b) {
        return share(a.plain) > share(b.plain);
    });
    return result;
}

} // namespace layouts
