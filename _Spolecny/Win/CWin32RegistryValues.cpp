#include "Win/CWin32RegistryValues.h"

#include <windows.h>

#include <array>

namespace {

const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

}  // namespace

std::optional<std::u16string> CWin32RegistryValues::ReadString(Hive hive, std::u16string_view key,
                                                               std::u16string_view name) {
    HKEY root = hive == Hive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, Wide(std::u16string(key)), 0, KEY_READ, &opened) != ERROR_SUCCESS) return std::nullopt;

    // 1000 bytes: a longer value, an expandable string or any other type counts as absent.
    std::array<wchar_t, 500> buffer{};
    DWORD size = sizeof(buffer);
    DWORD type = REG_NONE;
    const LSTATUS status = RegQueryValueExW(opened, Wide(std::u16string(name)), nullptr, &type,
                                            reinterpret_cast<BYTE*>(buffer.data()), &size);
    RegCloseKey(opened);
    if (status != ERROR_SUCCESS || type != REG_SZ) return std::nullopt;

    buffer.back() = L'\0';
    return std::u16string(reinterpret_cast<const char16_t*>(buffer.data()));
}
