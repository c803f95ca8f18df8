// m17n's calls, for what is being composed.
#include "m17n_context.h"

#include <m17n-misc.h>

#include "m17n_tables.h"
#include "text.h"

namespace input_methods
{

bool startM17n(const std::string& dataFolder)
{
    static std::string folder; // m17n keeps the pointer
    static bool isStarted = false;
    if (isStarted)
        return true;
    folder = dataFolder;
    mdatabase_dir = &folder[0];
    M17N_INIT();
    isStarted = merror_code == MERROR_NONE;
    return isStarted;
}

M17nContext::M17nContext(MInputMethod* method)
    : m_method(method), m_context(minput_create_ic(method, nullptr))
{
}

M17nContext::~M17nContext()
{
    minput_destroy_ic(m_context);
    minput_close_im(m_method);
}

bool M17nContext::press(uint32_t character, std::string& commit)
{
    MSymbol key = msymbol(utf8(character).c_str());
    if (minput_filter(m_context, key, nullptr) != 0)
        return true;
    MText* produced = mtext();
    const bool used = minput_lookup(m_context, key, nullptr, produced) == 0;
    commit += fromMText(produced);
    m17n_object_unref(produced);
    return used;
}

void M17nContext::addPreedit(std::string& text) const
{
    text += fromMText(m_context->preedit);
}

// minput_reset_ic writes to freed memory once a table has handed a key on to another. The price: a
// context that ends within a word loses the few bytes that it has saved of it.
void M17nContext::clear()
{
    minput_destroy_ic(m_context);
    m_context = minput_create_ic(m_method, nullptr);
}

bool M17nContext::gives(const std::u32string& keys, const std::string& composed)
{
    clear();
    std::string commit;
    for (const char32_t key : keys)
        press(key, commit);
    std::string preedit;
    addPreedit(preedit);
    return commit.empty() && preedit == composed;
}

} // namespace input_methods
