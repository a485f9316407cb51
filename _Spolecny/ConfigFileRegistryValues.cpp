#include "ConfigFileRegistryValues.h"

#include <cstdlib>
#include <fstream>
#include <string>

#include "TextCodec.h"

namespace {

std::optional<std::u16string> FindValue(const std::filesystem::path& file, std::u16string_view name) {
    std::ifstream input(file);
    std::string line;
    while (std::getline(input, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line.front() == '#') continue;
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) continue;
        if (FromUtf8(std::string_view(line).substr(0, equals)) == name) return FromUtf8(line.substr(equals + 1));
    }
    return std::nullopt;
}

}  // namespace

CConfigFileRegistryValues CConfigFileRegistryValues::ForThisSystem() {
    std::filesystem::path userFolder;
    if (const char* config = std::getenv("XDG_CONFIG_HOME"); config != nullptr && *config != '\0') {
        userFolder = config;
    } else if (const char* home = std::getenv("HOME"); home != nullptr) {
        userFolder = std::filesystem::path(home) / ".config";
    }
    const std::filesystem::path userFile = userFolder.empty() ? userFolder : userFolder / "quorvex" / "paths.conf";
    return CConfigFileRegistryValues("/etc/quorvex/paths.conf", userFile);
}

std::optional<std::u16string> CConfigFileRegistryValues::ReadString(Hive hive, std::u16string_view,
                                                                    std::u16string_view name) {
    return FindValue(hive == Hive::LocalMachine ? machineFile_ : userFile_, name);
}
