#pragma once

#include "Framework/FileSystem.h"

// The file system through the Win32 file functions: the new file is flushed with
// FlushFileBuffers, put in place with ReplaceFileW (keeping the backup) or, where there is no
// file yet or no backup is wanted, with MoveFileExW; failures carry the system's cause.
class CWin32FileSystem final : public CFileSystem {
public:
    std::optional<Info> Stat(std::u16string_view path) override;
    Content Read(std::u16string_view path) override;
    void WriteNew(std::u16string_view path, std::span<const std::uint8_t> bytes) override;
    void Replace(std::u16string_view target, std::u16string_view replacement, std::u16string_view backup) override;
    void Remove(std::u16string_view path) noexcept override;
};
