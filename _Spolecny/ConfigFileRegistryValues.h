#pragma once

#include <filesystem>

#include "RegistryValues.h"

// The folder values for a system without a registry: a per-machine file read first, a per-user
// file second. Each file holds UTF-8 lines "Name=Value" (the names of the registry values);
// blank lines and lines starting with '#' are ignored. A missing file holds no values.
class CConfigFileRegistryValues final : public CRegistryValues {
public:
    CConfigFileRegistryValues(std::filesystem::path machineFile, std::filesystem::path userFile)
        : machineFile_(std::move(machineFile)), userFile_(std::move(userFile)) {}

    // /etc/quorvex/paths.conf, then $XDG_CONFIG_HOME/quorvex/paths.conf (~/.config by default).
    static CConfigFileRegistryValues ForThisSystem();

    // The key is the maker's key of every value; the files stand for it.
    std::optional<std::u16string> ReadString(Hive hive, std::u16string_view key, std::u16string_view name) override;

private:
    std::filesystem::path machineFile_;
    std::filesystem::path userFile_;
};
