#pragma once

#include <string>
#include <string_view>

// Where the installation and the data live: four folder values that the installer writes under
// the maker's key, read from the machine-wide hive first and then from the user's.
class CQvxRegistry {
public:
    // Path kinds, as callers pass them; each names one registry value.
    enum PathKind {
        kNull = 0,  // placeholder row, never used
        kInstallPath = 1,
        kDataPath = 2,
        kCommonInstallPath = 3,  // folder of the standard catalogue
        kCommonDataPath = 4,     // folder of the user's catalogue
    };

    static constexpr std::u16string_view kKey = u"Software\\Quorvex\\";
    static constexpr std::u16string_view kProgramFolderName = u"Velmora";
#ifdef _WIN32
    static constexpr char16_t kSeparator = u'\\';
#else
    static constexpr char16_t kSeparator = u'/';  // the native tool's folders are POSIX paths
#endif

    // The folder of `kind`, always ending in the separator. Throws CQvxException when the value is
    // in neither hive; an empty value is an installation fault that stops with std::out_of_range.
    static std::u16string ReadPath(int kind);

    // ReadPath(kind) + "Velmora" + separator. With `create` the folder is made when missing (one
    // level: the folder of the value must exist); a failure throws CQvxException.
    static std::u16string ProgramFolder(int kind, bool create);
};
