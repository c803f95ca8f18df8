// rime's folders and its schemas.
#include "rime_schema.h"

#include "whole_data.h"

namespace input_methods
{

namespace
{

const int kFatalOnly = 3; // it calls missing key bindings, which no host needs, an error

// Only the spelling itself is wanted: dictionaries of strokes and others that a schema also reads
// cost memory.
void simplify(RimeApi* api, RimeConfig& schema, bool learns)
{
    api->config_clear(&schema, "engine/translators");
    api->config_create_list(&schema, "engine/translators");
    api->config_set_string(&schema, "engine/translators/@next", "script_translator");
    if (!learns)
        api->config_set_bool(&schema, "translator/enable_user_dict", False);
}

// A schema that names no file of its own has that of its dictionary.
std::string fileOf(RimeApi* api, RimeConfig& schema, const char* key)
{
    const char* name = api->config_get_cstring(&schema, key);
    if (name == nullptr)
        name = api->config_get_cstring(&schema, "translator/dictionary");
    return name == nullptr ? "" : name;
}

} // namespace

RimeApi* startRime(const EngineSettings& settings)
{
    static RimeApi* api = nullptr;
    if (api != nullptr)
        return api;
    static const std::string kShared = settings.engineData + "/rime-data";
    static const std::string kUser = settings.userFolder();
    RIME_STRUCT(RimeTraits, traits);
    traits.shared_data_dir = kShared.c_str();
    traits.user_data_dir = kUser.c_str();
    traits.distribution_name = traits.distribution_code_name = "keyboard";
    traits.distribution_version = "1";
    traits.app_name = "rime.keyboard";
    traits.min_log_level = kFatalOnly;
    traits.log_dir = ""; // standard error
    api = rime_get_api();
    api->setup(&traits);
    api->initialize(&traits);
    return api;
}

bool openSchema(RimeApi* api, const EngineSettings& settings, RimeConfig& schema,
                std::string& problem)
{
    const std::string data = api->get_shared_data_dir();
    const bool isOpen = api->schema_open(settings.scheme.c_str(), &schema) != 0;
    // A schema that is not there may open as an empty one.
    if (!isOpen || api->config_get_cstring(&schema, "schema/schema_id") == nullptr) {
        if (isOpen)
            api->config_close(&schema);
        problem = "rime has no schema '" + settings.scheme + "' in " + data;
        return false;
    }
    const std::string table = fileOf(api, schema, "translator/dictionary") + ".table.bin";
    const std::string prism = fileOf(api, schema, "translator/prism") + ".prism.bin";
    const std::string folder = data + "/build/";
    if (!isWholeRimeTable(folder + table) || !isWholeRimePrism(folder + prism)) {
        api->config_close(&schema);
        problem = "rime cannot read the dictionary of '" + settings.scheme +
                  "'; expected its whole .table.bin and .prism.bin in " + folder;
        return false;
    }
    simplify(api, schema, settings.learns());
    return true;
}

} // namespace input_methods
