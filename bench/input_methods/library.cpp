// Typing through our library.
#include <cstdio>

#include "input_methods.h"
#include "text.h"

#include "typing.h"

namespace bench
{

namespace
{

input_methods::InputMethods& methods()
{
    static input_methods::InputMethods all([] {
        input_methods::Settings settings;
        settings.dataFolder = DATA_FOLDER;
        settings.report = [](const std::string& line) {
            std::fprintf(stderr, "%s\n", line.c_str());
        };
        return settings;
    }());
    return all;
}

input_methods::InputMethod* method = nullptr;
std::vector<velmora::browser::vkb::OsButton_t> keys;

} // namespace

bool start(const std::string& layout, const std::vector<std::string>& characters)
{
    for (const std::string& character : characters) {
        keys.emplace_back();
        keys.back().text = character;
        keys.back().character = static_cast<int32_t>(input_methods::firstLetter(character));
    }
    method = methods().find(layout, input_methods::Field::Text);
    return method != nullptr;
}

size_t press(size_t character)
{
    const input_methods::Answer answer = method->feed(keys[character]);
    return answer.commit.size() + answer.preedit.size();
}

void clear()
{
    method->reset();
}

} // namespace bench
