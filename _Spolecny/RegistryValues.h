#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "SeamScope.h"

// Where the program's folder values come from: the Windows registry in production, configuration
// files for the native tool, a fake in tests. Nothing is ever written through it.
class CRegistryValues {
public:
    enum class Hive { LocalMachine, CurrentUser };

    virtual ~CRegistryValues() = default;

    // The value `name` under `key` of `hive` when it is there as a plain string (REG_SZ) that fits
    // 1000 bytes; the text ends at its first zero character. Anything else counts as absent.
    virtual std::optional<std::u16string> ReadString(Hive hive, std::u16string_view key, std::u16string_view name) = 0;
};

// The source in use; without one installed every value is absent.
CRegistryValues& RegistryValues();

// Installs `values` (nullptr: none) and returns the one it replaces.
CRegistryValues* SetRegistryValues(CRegistryValues* values);

using CRegistryValuesScope = CSeamScope<CRegistryValues, SetRegistryValues>;
