#ifndef INPUT_METHODS_ENGINES_M17N_CONTEXT_H
#define INPUT_METHODS_ENGINES_M17N_CONTEXT_H

#include <cstdint>
#include <string>

#include <m17n.h>

namespace input_methods
{

// Starts the library, which stays for the process; tables in this folder are found beside the
// packaged ones. Returns false where m17n's own database is missing or broken.
bool startM17n(const std::string& dataFolder);

// What is being composed by one of m17n's methods.
class M17nContext
{
public:
    explicit M17nContext(MInputMethod* method); // takes it over
    ~M17nContext();
    M17nContext(const M17nContext&) = delete;
    M17nContext& operator=(const M17nContext&) = delete;

    // Returns whether the key was used; adds what is finished to the commit.
    bool press(uint32_t character, std::string& commit);

    void addPreedit(std::string& text) const;
    bool isEmpty() const { return mtext_len(m_context->preedit) == 0; }
    void clear();

    // Whether these keys compose just this, and commit nothing. What was composed is gone.
    bool gives(const std::u32string& keys, const std::string& composed);

private:
    MInputMethod* m_method;
    MInputContext* m_context;
};

} // namespace input_methods

#endif
