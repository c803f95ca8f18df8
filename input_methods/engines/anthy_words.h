#ifndef INPUT_METHODS_ENGINES_ANTHY_WORDS_H
#define INPUT_METHODS_ENGINES_ANTHY_WORDS_H

#include <cstddef>
#include <string>

#include <anthy/anthy.h>

namespace input_methods
{

// Starts the library, which stays for the process. Returns false where its dictionary is not whole.
bool startAnthy(const std::string& data, const std::string& userFolder);

// What anthy makes of a row of hiragana.
class AnthyWords
{
public:
    explicit AnthyWords(anthy_context_t context) : m_context(context) {} // takes it over
    ~AnthyWords() { anthy_release_context(m_context); }
    AnthyWords(const AnthyWords&) = delete;
    AnthyWords& operator=(const AnthyWords&) = delete;

    // The following are of this reading, until the next one.
    void convert(const std::string& reading);

    // The whole in the best words; empty where there is none.
    std::string best() const;

    // Words for the beginning: how many, each by its number, and how many letters they stand for.
    int count() const { return m_first.nr_candidate; }
    std::string first(int number) const { return word(0, number); }
    size_t firstLength() const { return static_cast<size_t>(m_first.seg_len); }

    // The word of this number was chosen.
    void learn(int number);

private:
    std::string word(int segment, int number) const;

    anthy_context_t m_context;
    int m_segments = 0;
    anthy_segment_stat m_first = {};
};

} // namespace input_methods

#endif
