#ifndef TESTS_LAYOUTS_SHIPPED_H
#define TESTS_LAYOUTS_SHIPPED_H

#include <filesystem>
#include <string>
#include <vector>

#include "catalogue.h"
#include "checker.h"
#include "key_map.h"
#include "language.h"

// The files that are shipped, and what the tests need from them again and again.

std::string resource(const std::string& name);
std::string shippedFolder();

// Of all key maps in the folder, in the order of their names.
std::vector<std::string> shippedLayouts();

const std::vector<layouts::Language>& languages();
const layouts::Language& languageOf(const std::string& layout);
layouts::Catalogue shippedCatalogue();
layouts::KeyMap shippedKeyMap(const std::string& layout);

std::vector<std::string> lines(const layouts::Findings& findings);

// A folder of its own that goes with the object.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path(const std::string& name = std::string()) const;

private:
    std::filesystem::path m_path;
};

#endif
