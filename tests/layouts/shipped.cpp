#include "shipped.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "layout_set.h"

namespace fs = std::filesystem;
using namespace layouts;

std::string resource(const std::string& name)
{
    return std::string(RESOURCES) + "/" + name;
}

std::string shippedFolder()
{
    return resource("oskeyboard_config");
}

std::vector<std::string> shippedLayouts()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(shippedFolder())) {
        const std::string name = layoutOf(entry.path().filename().string());
        if (!name.empty())
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

const std::vector<Language>& languages()
{
    static const std::vector<Language> kTable = readLanguages(resource("languages.tsv"));
    return kTable;
}

const Language& languageOf(const std::string& layout)
{
    const Language* language = findLanguage(languages(), layout);
    if (!language)
        throw std::runtime_error(layout + ": not in resources/languages.tsv");
    return *language;
}

Catalogue shippedCatalogue()
{
    return readCatalogue(catalogueFile(shippedFolder()));
}

KeyMap shippedKeyMap(const std::string& layout)
{
    return readKeyMap(keyMapFile(shippedFolder(), layout));
}

std::vector<std::string> lines(const Findings& findings)
{
    std::vector<std::string> result;
    for (const Finding& finding : findings)
        result.push_back(asLine(finding));
    return result;
}

TemporaryFolder::TemporaryFolder()
{
    std::string name = (fs::temp_directory_path() / "layouts-test-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::runtime_error("no temporary folder");
    m_path = name;
}

TemporaryFolder::~TemporaryFolder()
{
    fs::remove_all(m_path);
}

std::string TemporaryFolder::path(const std::string& name) const
{
    return name.empty() ? m_path.string() : (m_path / name).string();
}
