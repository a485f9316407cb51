#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "Framework/Exceptions.h"
#include "SeamScope.h"

// Whole-file operations of the file system, behind a seam: the portable implementation over the
// C++ library natively, the Win32 one in the programs, failing fakes in tests. Every failure throws
// CFileException with its cause.
class CFileSystem {
public:
    struct Info {
        std::uint64_t size = 0;
        // In the implementation's own units: only compared, never shown.
        std::int64_t lastWriteTime = 0;
    };
    struct Content {
        std::vector<std::uint8_t> bytes;
        std::int64_t lastWriteTime = 0;
    };

    virtual ~CFileSystem() = default;

    // Size and last-write time of the file at `path`; none when no file is there (a folder
    // included).
    virtual std::optional<Info> Stat(std::u16string_view path) = 0;
    // The whole file and its last-write time.
    virtual Content Read(std::u16string_view path) = 0;
    // Creates `path` (truncating a file there), writes `bytes` and makes sure they are on the disk
    // before it returns.
    virtual void WriteNew(std::u16string_view path, std::span<const std::uint8_t> bytes) = 0;
    // Puts `replacement` in the place of `target` in one step. When `backup` is given and `target`
    // exists, the previous `target` is kept as `backup` (replacing an older one). On failure
    // `target` is as it was.
    virtual void Replace(std::u16string_view target, std::u16string_view replacement, std::u16string_view backup) = 0;
    // Removes the file if it is there; never fails.
    virtual void Remove(std::u16string_view path) noexcept = 0;
};

// The C++ library's file system, with the C runtime's flush to the disk.
class CPortableFileSystem : public CFileSystem {
public:
    std::optional<Info> Stat(std::u16string_view path) override;
    Content Read(std::u16string_view path) override;
    void WriteNew(std::u16string_view path, std::span<const std::uint8_t> bytes) override;
    void Replace(std::u16string_view target, std::u16string_view replacement, std::u16string_view backup) override;
    void Remove(std::u16string_view path) noexcept override;
};

// The implementation in use: the portable one unless another is installed.
CFileSystem& FileSystem();
// Installs `files` (nullptr: the portable one) and returns the one it replaces.
CFileSystem* SetFileSystem(CFileSystem* files);
using CFileSystemScope = CSeamScope<CFileSystem, SetFileSystem>;

// The file exception for a failure of the C++ library or the C runtime (an errno value in the
// generic category) on `path`.
CFileException FileExceptionOf(std::error_code error, std::u16string_view path);

// Why a file operation failed, for the user: a Czech sentence, or the system's own text.
std::u16string FileFailureCause(const CFileException& failure);

// What a file held when it was read or written: a later difference in any part means that
// something else has written it meanwhile.
struct FileStamp {
    std::uint64_t size = 0;
    std::int64_t lastWriteTime = 0;
    std::uint64_t hash = 0;  // of the bytes (the standard library's hash: kept in memory only)

    bool operator==(const FileStamp&) const = default;
};
FileStamp StampOf(std::span<const std::uint8_t> bytes, std::int64_t lastWriteTime);

// Whether the file at `path` differs from `remembered` (none: the caller has not seen any file
// there). A missing file counts as unchanged: there is nothing to overwrite. The bytes are read
// only when size and time agree.
bool ChangedSince(std::u16string_view path, const std::optional<FileStamp>& remembered);

// Writes `bytes` as the file `target` without ever leaving it in part: a new file beside it
// (`target` + ".new") is written and flushed to the disk, then put in the target's place in one
// step, the previous file kept as `backup` when that is given. On failure the new file is removed,
// `target` is as it was, and the CFileException passes on. Returns the stamp of the written file.
FileStamp WriteFileAtomically(std::u16string_view target, std::span<const std::uint8_t> bytes,
                              std::u16string_view backup = {});
