// Typing through our library.
#include <cstdio>
#include <utility>

#include "input_methods.h"

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

} // namespace

bool start(const std::string& layout)
{
    method = methods().find(layout, input_methods::Field::Text);
    return method != nullptr;
}

Shown press(const std::string& key)
{
    velmora::browser::vkb::OsButton_t result = {};
    result.text = key;
    input_methods::Answer answer = method->feed(result);
    return {std::move(answer.commit), std::move(answer.preedit), std::move(answer.candidates)};
}

void clear()
{
    method->reset();
}

} // namespace bench
