#pragma once

#include "RegistryValues.h"

// Folder values from the Windows registry: HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER, read only.
class CWin32RegistryValues final : public CRegistryValues {
public:
    std::optional<std::u16string> ReadString(Hive hive, std::u16string_view key, std::u16string_view name) override;
};
