// An engine that is not used costs nothing: it is not even loaded.
#include <link.h>

#include <gmock/gmock.h>

#include "text_field.h"

namespace input_methods_test
{

using input_methods::Field;
using input_methods::InputMethods;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// Of the engines' own libraries, those that are in this process.
std::vector<std::string> loadedEngines()
{
    std::vector<std::string> found;
    const auto look = [](dl_phdr_info* library, size_t, void* names) {
        const std::string path = library->dlpi_name;
        for (const char* engine : {"libanthy", "libchewing", "libhangul", "libm17n", "librime"})
            if (path.find(std::string("/") + engine + ".so") != std::string::npos)
                static_cast<std::vector<std::string>*>(names)->push_back(engine);
        return 0;
    };
    ::dl_iterate_phdr(look, &found);
    return found;
}

TEST(EnginesAreLoaded, NotBeforeTheirFirstLayoutIsUsed)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    EXPECT_FALSE(methods->table().empty());
    EXPECT_EQ(methods->find("English", Field::Text), nullptr);
    EXPECT_EQ(methods->find("Korean", Field::Password), nullptr);
    EXPECT_TRUE(methods->offersCandidates("Japanese"));
    EXPECT_THAT(loadedEngines(), IsEmpty());

    EXPECT_NE(methods->find("Korean", Field::Text), nullptr);
    EXPECT_THAT(loadedEngines(), ElementsAre("libhangul"));
    EXPECT_NE(methods->find("Japanese", Field::Text), nullptr);
    EXPECT_THAT(loadedEngines(), testing::UnorderedElementsAre("libhangul", "libanthy"));
}

} // namespace

} // namespace input_methods_test
