// Which letter another one is derived from.
#include "base_letters.h"

#include <map>

#include "text.h"

namespace layouts
{
namespace
{

// Only those that Unicode does not decompose: the base, and what is derived from it.
struct Row {
    const char* base;
    const char* derived;
};

const Row kRows[] = {
    {"a", "æɑəʌ"}, {"b", "ɓ"},    {"c", "ƈ"},     {"d", "đðɗɖ"},  {"e", "ɛǝ"},   {"f", "ƒ"},
    {"g", "ɣɠǥ"},  {"h", "ħꜧɦ"},  {"i", "ıɨɩ"},   {"j", "ɉ"},     {"k", "ƙĸ"},   {"l", "łɫ"},
    {"n", "ŋɲ"},   {"o", "øœɔɵ"}, {"p", "ƥ"},     {"q", "ɋ"},     {"r", "ɍ"},    {"s", "ßſʃ"},
    {"t", "ŧþƭ"},  {"u", "ʉʊɯ"},  {"v", "ʋʌ"},    {"w", "ʷ"},     {"y", "ƴ"},    {"z", "ƶʒǯ"},
    {"а", "әӕ"},   {"г", "ғґҕӷ"}, {"д", "ђ"},     {"е", "єә"},    {"ж", "җ"},    {"з", "ҙѕӡ"},
    {"и", "іӏј"},  {"к", "қҡҝ"},  {"л", "љԓ"},    {"н", "ңњҥӈ"},  {"о", "ө"},    {"п", "ԥҧ"},
    {"с", "ҫ"},    {"т", "ҭћ"},   {"у", "үұ"},    {"х", "һҳӽ"},   {"ч", "ҷҹџҽ"}, {"ь", "ҍ"},
    {"ا", "ٱ"},    {"ب", "پٻڀ"},  {"ت", "ٹټٺٿ"},  {"ج", "چڃڄڇ"},  {"د", "ڈډڌڊ"}, {"ر", "ڑړژۯڕ"},
    {"ز", "ژ"},    {"س", "ښ"},    {"ف", "ڤڦ"},    {"ک", "گڪګڳڱ"}, {"ك", "گک"},   {"ل", "ڵ"},
    {"ن", "ںڻڼ"},  {"ه", "ہھە"},  {"و", "ۆۇۈۋۅ"}, {"ي", "یېۍێ"},  {"ی", "ےېێ"},  {"ए", "ऍऎ"},
};

const std::map<std::string, std::string>& bases()
{
    static const std::map<std::string, std::string> kTable = [] {
        std::map<std::string, std::string> bases;
        for (const Row& row : kRows)
            for (const char32_t derived : codePoints(row.derived))
                bases.emplace(fromCodePoint(derived), row.base);
        return bases;
    }();
    return kTable;
}

} // namespace

std::string baseLetter(const std::string& letter)
{
    const std::string first = fromCodePoint(codePoints(nfd(letter)).front());
    const auto base = bases().find(first);
    return base == bases().end() ? first : base->second;
}

} // namespace layouts
