#include "soak_layouts.h"

#include "layout_sample.h"

namespace
{

using sample::inRows;
using sample::Kind;

Kind plain(const char* text, const char* shiftText, int code)
{
    return {text, false, false, code, 1000 + code, shiftText, 2000 + code};
}

Kind special(const char* text, int code, const char* shiftText = nullptr)
{
    return {text,       true, false, code, 1000 + code, shiftText == nullptr ? text : shiftText,
            2000 + code};
}

Kind language(const char* text, const char* shiftText)
{
    return {text, true, true, 0, 1000, shiftText, 2000};
}

} // namespace

std::vector<LayoutKeys> soakLayouts()
{
    const LayoutKeys one = {
        inRows({plain("a", "A", 65), special("Shift", 16), plain("b", "B", 66), special("Alt", 18),
                language("EN", "EN"), plain("dead", "DEAD", -1), special("Hide", 27),
                special("ClearAll", 46)}),
        inRows({plain("1", "!", 49), special("Shift", 16), plain("2", "NULL", 50),
                special("Alt", 18), language("EN", "EN")})};
    const LayoutKeys two = {
        inRows({special("alt", 18), plain("\xC3\xA4", "\xC3\x84", 228), special("shift", 16),
                language("DE", "de"), special("hide", 27), special("clearall", 46)}),
        inRows({special("alt", 18), plain("NULL", "NULL", 0), special("shift", 16),
                language("DE", "de"), plain("a label longer than a short string", "x", 120),
                special("clearall", 46), special("SHIFT", 16)})};
    const LayoutKeys three = {
        inRows({language("FR", "FR"), special("Shift", 16, "shift"), special("Alt", 18, "alt"),
                plain("q", "Q", 81), special("what", 1), special("Shift", 16)}),
        inRows({language("FR", "FR"), plain("9", "9", 57)})};
    return {one, two, three};
}

void writeLayouts(test_support::LayoutFolder& folder, const std::vector<LayoutKeys>& layouts)
{
    const test_support::Catalogue catalogue = sample::catalogue();
    for (size_t i = 0; i < layouts.size(); ++i)
        folder.writeKeyMap(catalogue.names[i], asJson(layouts[i].defaults, layouts[i].symbols));
    folder.writeCatalogue(asJson(catalogue));
}
