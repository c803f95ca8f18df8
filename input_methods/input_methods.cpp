// The table of layouts, and the engines that are in use.
#include "input_methods.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

#include "engine_module.h"

namespace input_methods
{

namespace
{

// A line of the table; false for comments and for lines with too few columns.
bool readEntry(const std::string& line, LayoutEngine& entry)
{
    if (line.empty() || line[0] == '#')
        return false;
    std::istringstream columns(line);
    std::string* const fields[] = {&entry.layout, &entry.engine, &entry.scheme, &entry.learns,
                                   &entry.packages};
    for (std::string* field : fields)
        if (!std::getline(columns, *field, '\t'))
            return false;
    return true;
}

const char kTable[] = "/layouts.tsv";

std::string chosenFolder(const std::string& wanted)
{
    if (!wanted.empty())
        return wanted;
    const std::string television = kDataFolder;
    const bool isThere = ::access((television + kTable).c_str(), R_OK) == 0;
    return isThere ? television : folderOfThisLibrary() + "/" + VKB_INSTALLED_INPUT_METHODS;
}

std::string wrongLine(const std::string& file, int number, const std::string& line)
{
    return file + ":" + std::to_string(number) + ": found '" + line +
           "', expected layout, engine, scheme, learns and packages with tabs between";
}

} // namespace

InputMethods::InputMethods(Settings settings) : m_settings(std::move(settings))
{
    m_settings.dataFolder = chosenFolder(m_settings.dataFolder);
    const std::string name = m_settings.dataFolder + kTable;
    std::ifstream file(name);
    if (!file) {
        report(name + ": " + std::strerror(errno) +
               ", expected the table of layouts and engines; no layout has an input method");
        return;
    }
    std::string line;
    int number = 0;
    while (std::getline(file, line)) {
        ++number;
        LayoutEngine entry;
        if (readEntry(line, entry))
            m_table.push_back(entry);
        else if (!line.empty() && line[0] != '#')
            report(wrongLine(name, number, line));
    }
}

InputMethods::~InputMethods() = default;

InputMethod* InputMethods::find(const std::string& layout, Field field)
{
    const LayoutEngine* entry = field == Field::Text ? entryOf(layout) : nullptr;
    if (entry == nullptr)
        return nullptr;
    const bool isFirst = m_opened.count(layout) == 0;
    const Opened& opened = open(*entry);
    if (isFirst && opened.method == nullptr)
        report(opened.problem);
    return opened.method.get();
}

std::string InputMethods::problem(const std::string& layout)
{
    const LayoutEngine* entry = entryOf(layout);
    if (entry == nullptr)
        return layout + ": the table names no engine for this layout";
    return open(*entry).problem;
}

const InputMethods::Opened& InputMethods::open(const LayoutEngine& entry)
{
    const auto known = m_opened.find(entry.layout);
    if (known != m_opened.end())
        return known->second;

    Opened opened;
    const EngineSettings settings = {entry.scheme, m_settings.dataFolder, m_settings.engineData,
                                     makeLearningFolder(entry)};
    std::string problem;
    std::unique_ptr<Engine> engine = loadEngine(entry.engine, settings, problem);
    if (engine == nullptr)
        opened.problem = entry.layout + ": no input method: " + problem +
                         "; the keys type what they show; install " + entry.packages;
    else if (!problem.empty())
        report(entry.layout + ": " + problem);
    if (engine != nullptr)
        opened.method = std::make_unique<InputMethod>(std::move(engine));
    return m_opened.emplace(entry.layout, std::move(opened)).first->second;
}

const LayoutEngine* InputMethods::entryOf(const std::string& layout) const
{
    for (const LayoutEngine& entry : m_table)
        if (entry.layout == layout)
            return &entry;
    return nullptr;
}

bool InputMethods::offersCandidates(const std::string& layout) const
{
    const LayoutEngine* entry = entryOf(layout);
    return entry != nullptr && entry->learns == "yes";
}

void InputMethods::report(const std::string& line) const
{
    if (m_settings.report)
        m_settings.report(line);
}

std::string InputMethods::learningFolder(const LayoutEngine& entry) const
{
    const bool learns = entry.learns == "yes" && !m_settings.learningFolder.empty();
    return learns ? m_settings.learningFolder + "/" + entry.engine : "";
}

std::string InputMethods::makeLearningFolder(const LayoutEngine& entry) const
{
    std::string folder = learningFolder(entry);
    if (folder.empty())
        return "";
    const bool made = ::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST;
    // A file that can be made there, written and taken away is the only proof on a full disk.
    const std::string probe = folder + "/.probe";
    std::ofstream file;
    if (made)
        file.open(probe, std::ios::trunc);
    if (made && file && file.put('\n').flush()) {
        file.close();
        ::unlink(probe.c_str());
        return folder;
    }
    report(entry.layout + ": " + folder + ": " + std::strerror(errno) +
           ", expected a folder to write to; nothing is learned");
    ::unlink(probe.c_str());
    return "";
}

} // namespace input_methods
