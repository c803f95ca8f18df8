// m17n alone, with its table for Telex.
#include <m17n.h>

#include "typing.h"

namespace bench
{

namespace
{

MInputContext* context = nullptr;
std::vector<MSymbol> keys;

std::string fromMText(MText* text)
{
    std::string bytes(static_cast<size_t>(mtext_len(text)) * 6 + 1, '\0');
    bytes.resize(static_cast<size_t>(
        mconv_encode_buffer(Mcoding_utf_8, text, reinterpret_cast<unsigned char*>(&bytes[0]),
                            static_cast<int>(bytes.size()))));
    return bytes;
}

} // namespace

bool start(const std::string&, const std::vector<std::string>& characters)
{
    M17N_INIT();
    for (const std::string& character : characters)
        keys.push_back(msymbol(character.c_str()));
    MInputMethod* method = minput_open_im(msymbol("vi"), msymbol("telex"), nullptr);
    context = method == nullptr ? nullptr : minput_create_ic(method, nullptr);
    return context != nullptr;
}

size_t press(size_t character)
{
    Shown shown;
    MSymbol symbol = keys[character];
    if (minput_filter(context, symbol, nullptr) == 0) {
        MText* produced = mtext();
        minput_lookup(context, symbol, nullptr, produced);
        shown.committed = fromMText(produced);
        m17n_object_unref(produced);
    }
    shown.preedit = fromMText(context->preedit);
    return shown.bytes();
}

void clear()
{
    minput_reset_ic(context);
}

} // namespace bench
