#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "Framework/Exceptions.h"

// A binary file on disk, opened for reading or created for writing, over the C runtime's streams.
// Paths are UTF-16: opened with _wfopen on Windows and as UTF-8 elsewhere. Failures after a
// successful Open raise CFileException.
class CFile {
public:
    enum OpenFlags : unsigned {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeCreate = 0x1000,  // with modeWrite: create, or truncate an existing file
    };

    CFile() = default;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    virtual ~CFile();

    // Opens `path` with modeRead or with modeCreate | modeWrite. False when the file cannot be
    // opened (missing, locked, no folder) or the flags are another combination.
    bool Open(std::u16string_view path, unsigned flags);
    // Closes the file; a failure to write the last bytes raises CFileException.
    virtual void Close();

    // Reads up to `count` bytes; fewer only at the end of the file.
    virtual std::size_t Read(void* buffer, std::size_t count);
    virtual void Write(const void* buffer, std::size_t count);
    // Length in bytes of a file opened for reading.
    virtual std::uint64_t GetLength() const { return length_; }

    const std::u16string& GetFilePath() const { return path_; }

private:
    [[noreturn]] void ThrowFileException() const;

    std::FILE* stream_ = nullptr;
    std::u16string path_;
    std::uint64_t length_ = 0;
};

// Opens a C runtime stream on a UTF-16 path (`mode` as for fopen); nullptr with errno on failure.
std::FILE* OpenFileStream(std::u16string_view path, const char* mode);

// A file held in memory: the bytes an archive writes, or the bytes it is to read.
class CMemFile final : public CFile {
public:
    CMemFile() = default;
    explicit CMemFile(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

    void Close() override {}
    std::size_t Read(void* buffer, std::size_t count) override;
    void Write(const void* buffer, std::size_t count) override;
    std::uint64_t GetLength() const override { return bytes_.size(); }

    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

private:
    std::vector<std::uint8_t> bytes_;
    std::size_t readPosition_ = 0;
};
