#ifndef INPUT_METHODS_INPUT_METHOD_H
#define INPUT_METHODS_INPUT_METHOD_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "keyboard_types.h"

namespace input_methods
{

class Engine;

/// What the host does after a call, in this order: delete takeBack characters before the caret,
/// insert commit, show preedit and candidates in place of those before, and where used is false
/// do with the key what it does without an input method. All texts are UTF-8.
struct Answer {
    bool used = false;
    int takeBack = 0;    ///< code points
    std::string commit;  ///< text that is now the page's
    std::string preedit; ///< text that is still being composed; shown at the caret, not inserted
    std::vector<std::string> candidates; ///< of the page that is shown; at most kPageCandidates
    int chosen = -1;                     ///< the candidate that space takes, or -1 without any
    bool hasPrevious = false;            ///< there are candidates before this page
    bool hasNext = false;                ///< there are candidates behind this page
};

const int kPageCandidates = 9; ///< one for each digit
const int kPageLetters = 30;   ///< of all candidates of a page; a longer candidate is alone on its
const int kMaxPreedit = 40;    ///< letters; what is beyond is committed first

/// Turns key results into the text of one language. One for each layout that needs one; the host's
/// one thread alone uses it. Nothing throws.
class InputMethod
{
public:
    explicit InputMethod(std::unique_ptr<Engine> engine);
    ~InputMethod();
    InputMethod(const InputMethod&) = delete;
    InputMethod& operator=(const InputMethod&) = delete;

    /// One key result of the keyboard. Its key code is looked at before its character: Back
    /// shortens the preedit, ClearAll drops it, the caret keys turn the pages, Enter, Tab and Del
    /// finish it and are the host's.
    Answer feed(const velmora::browser::vkb::OsButton_t& key);

    /// Takes a candidate of the page by its number, 1 to kPageCandidates. A number without a
    /// candidate changes nothing and is not used.
    Answer choose(int number);

    /// Shows the page before (-1) or behind (+1). Not used where there is none.
    Answer page(int step);

    /// Commits what is being composed: the field is left, the layout changes, the keyboard hides.
    Answer finish();

    /// Drops what is being composed, commits nothing: the field was cleared or is gone.
    Answer reset();

    /// The characters of the keys that compose this text, one behind the other, with nothing before
    /// it. Empty where the language cannot, and where it converts. Drops what is being composed.
    std::string spell(const std::string& text);

    /// Whether a key with this text is used while nothing is being composed. Drops what is.
    bool isUsed(const std::string& text);

private:
    bool composes(const std::string& keys, const std::string& text);
    void type(uint32_t character, Answer& answer);
    void passOn(uint32_t character, Answer& answer);
    void erase(Answer& answer);
    void take(int number, Answer& answer);
    void turn(int step, Answer& answer);
    void handOver(Answer& answer);
    void makeRoom(Answer& answer);
    void takeWordAtTheBeginning(Answer& answer);
    void drop();
    void show(Answer& answer);
    void showFirstPage(Answer& answer);
    void showCandidates(Answer& answer);

    std::unique_ptr<Engine> m_engine;
    bool m_converts;                   // as the engine says
    std::vector<size_t> m_page_starts; // of the page that is shown, and of those before it
    size_t m_page_size = 0;            // candidates that are shown
    bool m_has_next = false;
    size_t m_preedit_bytes = 0;
};

} // namespace input_methods

#endif
