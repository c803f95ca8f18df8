#ifndef INPUT_METHODS_ENGINES_ZHUYIN_H
#define INPUT_METHODS_ENGINES_ZHUYIN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <chewing.h>

#include "key_table.h"

namespace input_methods
{

// What is typed in Zhuyin, and what chewing makes of it. chewing cannot take a key back, nor the
// beginning of what it holds: the keys are typed again then.
class Zhuyin
{
public:
    explicit Zhuyin(ChewingContext* context); // takes it over
    ~Zhuyin() { chewing_delete(m_context); }
    Zhuyin(const Zhuyin&) = delete;
    Zhuyin& operator=(const Zhuyin&) = delete;

    // Return false, and change nothing, for a character that is no sign of a syllable here, and
    // where there is nothing to take away. A tone of no syllable is used and changes nothing.
    bool type(uint32_t character);
    bool erase();

    const std::string& converted() const { return m_converted; }
    const std::string& sound() const { return m_sound; } // of the syllable that has no tone yet

    // What the first syllables may be besides, the longest words first; and takes one of these.
    std::vector<std::string> wordsAtTheBeginning();
    void choose(const std::string& word);

    // What is converted, as it stands. chewing is empty then, until the next drop or clear.
    void learn() { chewing_commit_preedit_buf(m_context); }

    // Takes so many syllables away from the beginning.
    void drop(size_t syllables);
    void clear();

private:
    struct Key {
        int key; // chewing's
        bool isTone;
    };
    void press(int key);
    void typeAgain();
    template <typename See> void forEachWord(See see);

    ChewingContext* m_context;
    KeyTable m_keys; // of each sign but the tones
    std::vector<Key> m_typed;
    std::string m_converted;
    std::string m_sound;
};

} // namespace input_methods

#endif
