#include "fault_layouts.h"

using test_support::Key;

const char* const kLayouts[2] = {"One", "Two"};
const int kKeys = 5;

namespace
{

std::string withoutLineEnds(std::string text)
{
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

} // namespace

std::vector<Key> keysMarked(const std::string& mark, int count)
{
    std::vector<Key> keys;
    for (int i = 0; i < count; ++i) {
        Key key = {};
        key.id = i;
        key.text = "a" + mark;
        key.shiftText = "A" + mark;
        key.keyCode = 100 + i;
        key.character = 200 + i;
        key.shiftCharacter = 300 + i;
        key.left = (i + count - 1) % count;
        key.right = (i + 1) % count;
        key.up = key.left;
        key.down = key.right;
        keys.push_back(key);
    }
    const char* const specials[] = {"Next", "", "Shift", "Alt"};
    for (int i = 0; i < count && i < 4; ++i) {
        if (i == 1)
            continue;
        Key& key = keys[static_cast<size_t>(i)];
        key.text = key.shiftText = specials[i];
        key.isSpecial = true;
        key.isLanguage = i == 0;
    }
    return keys;
}

// No prefix of it is JSON.
std::string keyMapText(const std::string& mark, int count)
{
    return withoutLineEnds(asJson(keysMarked(mark, count), keysMarked(mark + "+", count)));
}

std::string catalogueText()
{
    test_support::Catalogue catalogue = {{kLayouts[0], kLayouts[1]}, 4, 4, 20, 16, {}};
    for (int i = 0; i < kKeys; ++i)
        catalogue.rects.push_back({i, 0, 1, 1});
    return withoutLineEnds(asJson(catalogue));
}

void writeGoodFiles(test_support::LayoutFolder& folder)
{
    folder.writeCatalogue(catalogueText());
    folder.writeKeyMap(kLayouts[0], keyMapText("1"));
    folder.writeKeyMap(kLayouts[1], keyMapText("2"));
}
