// Which keys compose a text, in the layouts whose scripts are composed.
#ifndef HOSTS_SHARED_SPELLING_H
#define HOSTS_SHARED_SPELLING_H

#include <set>
#include <string>
#include <vector>

#include "input_methods.h"

#include "keyboard_model.h"

namespace host
{

// Asks the layouts' input methods. Those that convert are left out: nobody knows before which word
// they offer first.
class Spelling
{
public:
    // Loads the engines of the model's layouts. What is missing is not reported here.
    explicit Spelling(const KeyboardModel& model, const std::string& dataFolder = "");

    static constexpr int kAnyLayout = -1;

    // A piece of a text: to be composed by keys of one layout, or typed as it is.
    struct Part {
        std::string keys; // the characters of the keys, or the text
        int layout;       // or kAnyLayout
    };
    std::vector<Part> parts(const std::string& text) const;

    bool isComposed(int layout) const { return m_methods[static_cast<size_t>(layout)] != nullptr; }

    // Whether a key of a layout that is composed types its text all the same.
    bool isPlain(int layout, const std::string& text) const
    {
        return m_plain[static_cast<size_t>(layout)].count(text) != 0;
    }

private:
    bool isPlain(const std::string& character) const;
    void addWord(const std::string& word, std::vector<Part>& parts) const;
    bool addSpelled(const std::string& word, std::vector<Part>& parts) const;

    input_methods::InputMethods m_all;
    std::vector<input_methods::InputMethod*> m_methods; // by layout; null where none composes
    std::vector<std::set<std::string>> m_plain;         // by layout: the texts of its keys
};

} // namespace host

#endif
