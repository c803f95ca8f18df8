#ifndef INPUT_METHODS_ENGINES_KANA_H
#define INPUT_METHODS_ENGINES_KANA_H

#include <cstddef>
#include <string>

namespace input_methods
{

// A reading in hiragana while it is typed, with Latin letters at its end that are no kana yet.
class Kana
{
public:
    // Both return false, and change nothing, for a character that is no part of a reading.
    bool typeRomaji(const std::string& letter);
    bool
    typeKana(const std::string& kana); // of both kinds; also a voice mark for the one before it

    bool erase();

    // As it is typed.
    std::string shown() const;

    // What is kana if nothing more comes, a last n too, and the letters that are none behind it.
    std::string kana() const;
    std::string rest() const;

    // Takes so many kana away from the beginning.
    void drop(size_t count);
    void clear();

private:
    std::string m_kana;
    std::string m_pending;
};

std::string katakana(const std::string& hiragana);

} // namespace input_methods

#endif
