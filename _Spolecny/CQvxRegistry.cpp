#include "CQvxRegistry.h"

#include <array>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#ifdef _WIN32
#include <direct.h>
#else
#include <sys/stat.h>

#include "TextCodec.h"
#endif

#include "CQvxException.h"
#include "RegistryValues.h"

namespace {

constexpr int kLineValueMissing = 149;
constexpr int kLineCannotCreate = 251;

constexpr std::array<std::u16string_view, 5> kValueNames = {
    u"NULL", u"InstallPath", u"DataPath", u"CommonInstallPath", u"CommonDataPath",
};

std::optional<std::u16string> ReadValue(std::u16string_view name) {
    std::optional<std::u16string> value =
        RegistryValues().ReadString(CRegistryValues::Hive::LocalMachine, CQvxRegistry::kKey, name);
    if (!value) value = RegistryValues().ReadString(CRegistryValues::Hive::CurrentUser, CQvxRegistry::kKey, name);
    return value;
}

bool IsDirectory(const std::u16string& path) {
    std::error_code error;
    return std::filesystem::is_directory(std::filesystem::path(path), error);
}

bool MakeDirectory(const std::u16string& path) {
#ifdef _WIN32
    static_assert(sizeof(wchar_t) == sizeof(char16_t), "wide paths are UTF-16 on Windows");
    return _wmkdir(reinterpret_cast<const wchar_t*>(path.c_str())) == 0;
#else
    return ::mkdir(ToUtf8(path).c_str(), 0777) == 0;
#endif
}

}  // namespace

std::u16string CQvxRegistry::ReadPath(int kind) {
    const std::u16string_view name = kValueNames.at(static_cast<std::size_t>(kind));
    std::optional<std::u16string> path = ReadValue(name);
    if (!path) {
        throw CQvxException(
            u"Nelze načíst Install/Data Path z registru Windows (z HKLM ani z HKCU), chyba instalace programu",
            kLineValueMissing, SourceModule::kRegistry);
    }
    // An empty folder value is a broken installation; it is not handled more gently than this.
    if (path->empty()) throw std::out_of_range("invalid string position");
    if (path->back() != kSeparator) path->push_back(kSeparator);
    return *path;
}

std::u16string CQvxRegistry::ProgramFolder(int kind, bool create) {
    std::u16string folder = ReadPath(kind) + std::u16string(kProgramFolderName);
    folder.push_back(kSeparator);
    if (!create || IsDirectory(folder)) return folder;
    if (!MakeDirectory(folder))
        throw CQvxException(u"Adresář nelze založit", kLineCannotCreate, SourceModule::kRegistry);
    return folder;
}
