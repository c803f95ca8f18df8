// The keyboard's own reader takes any two files, or ends by the JSON library's own exception.
#include <cstdlib>

#include <json/json.h>

#include "Language_Parser.h"
#include "input.h"
#include "layout_folder.h"

using velmora::browser::vkb::LanguageParser;

namespace
{

test_support::LayoutFolder& folder()
{
    setenv("CSP_DEBUG_LEVEL", "0", 1);
    static test_support::LayoutFolder only;
    return only;
}

void read(std::string name)
{
    LanguageParser parser;
    parser.getLayoutsName();
    parser.onLayoutchanged(name);
    const size_t plain = parser.getKeyMap(name, false, false).size();
    const size_t symbols = parser.getKeyMap(name, false, true).size();
    if (parser.getKeyMap(name, true, false).size() != plain ||
        parser.getKeyMap(name, true, true).size() != symbols)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const LayoutTexts texts = split(data, size);
    folder().writeCatalogue(texts.catalogue);
    folder().writeKeyMap("English", texts.keyMap);
    try {
        read("English");
    } catch (const Json::Exception&) {
        // What the library cannot convert ends the reading, as the keyboard has it.
    }
    return 0;
}
