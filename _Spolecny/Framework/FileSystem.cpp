#include "Framework/FileSystem.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string_view>

#include "Framework/CFile.h"
#include "TextCodec.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

fs::path PathOf(std::u16string_view path) {
    return fs::path(std::u16string(path));
}

std::error_code LastError() {
    return {errno, std::generic_category()};
}

bool SyncToDisk(std::FILE* stream) {
#ifdef _WIN32
    return _commit(_fileno(stream)) == 0;
#else
    return ::fsync(::fileno(stream)) == 0;
#endif
}

std::int64_t LastWriteTime(const fs::path& path, std::u16string_view name) {
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(path, error);
    if (error) throw FileExceptionOf(error, name);
    return static_cast<std::int64_t>(time.time_since_epoch().count());
}

CPortableFileSystem g_portable;
CFileSystem* g_installed = nullptr;

}  // namespace

std::optional<CFileSystem::Info> CPortableFileSystem::Stat(std::u16string_view path) {
    const fs::path file = PathOf(path);
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found || fs::is_directory(status)) return std::nullopt;
    if (error) throw FileExceptionOf(error, path);
    const std::uintmax_t size = fs::file_size(file, error);
    if (error) throw FileExceptionOf(error, path);
    return Info{size, LastWriteTime(file, path)};
}

CFileSystem::Content CPortableFileSystem::Read(std::u16string_view path) {
    Content content;
    content.lastWriteTime = LastWriteTime(PathOf(path), path);
    std::FILE* stream = OpenFileStream(path, "rb");
    if (stream == nullptr) throw FileExceptionOf(LastError(), path);
    std::uint8_t buffer[65536];
    std::size_t read = 0;
    while ((read = std::fread(buffer, 1, sizeof buffer, stream)) > 0) {
        content.bytes.insert(content.bytes.end(), buffer, buffer + read);
    }
    const bool failed = std::ferror(stream) != 0;
    const std::error_code error = LastError();
    std::fclose(stream);
    if (failed) throw FileExceptionOf(error, path);
    return content;
}

void CPortableFileSystem::WriteNew(std::u16string_view path, std::span<const std::uint8_t> bytes) {
    std::FILE* stream = OpenFileStream(path, "wb");
    if (stream == nullptr) throw FileExceptionOf(LastError(), path);
    errno = 0;
    bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() && std::fflush(stream) == 0 &&
                   SyncToDisk(stream);
    std::error_code error = LastError();
    if (std::fclose(stream) != 0 && written) {
        written = false;
        error = LastError();
    }
    if (!written) throw FileExceptionOf(error, path);
}

void CPortableFileSystem::Replace(std::u16string_view target, std::u16string_view replacement,
                                  std::u16string_view backup) {
    const fs::path file = PathOf(target);
    std::error_code error;
    if (!backup.empty() && fs::is_regular_file(file, error)) {
        // A second name for the previous file: the rename below then leaves it under that name.
        const fs::path kept = PathOf(backup);
        fs::remove(kept, error);
        error.clear();
        fs::create_hard_link(file, kept, error);
        if (error) {
            error.clear();
            fs::copy_file(file, kept, fs::copy_options::overwrite_existing, error);
        }
        if (error) throw FileExceptionOf(error, target);
    }
    fs::rename(PathOf(replacement), file, error);
    if (error) throw FileExceptionOf(error, target);
}

void CPortableFileSystem::Remove(std::u16string_view path) noexcept {
    std::error_code ignored;
    fs::remove(PathOf(path), ignored);
}

CFileSystem& FileSystem() {
    return g_installed != nullptr ? *g_installed : g_portable;
}

CFileSystem* SetFileSystem(CFileSystem* files) {
    CFileSystem* previous = g_installed;
    g_installed = files;
    return previous;
}

CFileException FileExceptionOf(std::error_code error, std::u16string_view path) {
    using Cause = CFileException::Cause;
    Cause cause = Cause::Generic;
    if (error == std::errc::no_space_on_device) {
        cause = Cause::DiskFull;
#ifdef EDQUOT
    } else if (error.default_error_condition() == std::error_condition(EDQUOT, std::generic_category())) {
        cause = Cause::DiskFull;
#endif
    } else if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
               error == std::errc::read_only_file_system) {
        cause = Cause::AccessDenied;
    } else if (error == std::errc::device_or_resource_busy || error == std::errc::text_file_busy) {
        cause = Cause::SharingViolation;
    } else if (error == std::errc::no_such_file_or_directory) {
        cause = Cause::FileNotFound;
    }
    return CFileException(cause, std::u16string(path), cause == Cause::Generic ? FromUtf8(error.message()) : u"");
}

std::u16string FileFailureCause(const CFileException& failure) {
    switch (failure.GetCause()) {
        case CFileException::Cause::DiskFull:
            return u"Na disku není dost místa.";
        case CFileException::Cause::AccessDenied:
            return u"Přístup k souboru byl odepřen.";
        case CFileException::Cause::SharingViolation:
            return u"Soubor používá jiný program.";
        case CFileException::Cause::FileNotFound:
            return u"Soubor nebo složka neexistuje.";
        case CFileException::Cause::Generic:
            break;
    }
    return failure.SystemText().empty() ? u"Neznámá chyba." : failure.SystemText();
}

FileStamp StampOf(std::span<const std::uint8_t> bytes, std::int64_t lastWriteTime) {
    // The standard library's hash takes eight bytes a step: a byte at a time took 14 ms for a
    // catalogue of 10,000 materials, twice for each save.
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return {bytes.size(), lastWriteTime, std::hash<std::string_view>{}(text)};
}

bool ChangedSince(std::u16string_view path, const std::optional<FileStamp>& remembered) {
    const std::optional<CFileSystem::Info> info = FileSystem().Stat(path);
    if (!info) return false;
    if (!remembered) return true;
    if (info->size != remembered->size || info->lastWriteTime != remembered->lastWriteTime) return true;
    // The same size and time, yet a copy may have kept the time of its source.
    const CFileSystem::Content content = FileSystem().Read(path);
    return StampOf(content.bytes, content.lastWriteTime) != *remembered;
}

FileStamp WriteFileAtomically(std::u16string_view target, std::span<const std::uint8_t> bytes,
                              std::u16string_view backup) {
    CFileSystem& files = FileSystem();
    const std::u16string fresh = std::u16string(target) + u".new";
    try {
        files.WriteNew(fresh, bytes);
        files.Replace(target, fresh, backup);
    } catch (const CFileException&) {
        files.Remove(fresh);
        throw;
    }
    std::int64_t lastWriteTime = 0;  // unknown: a later check then takes the file as changed
    try {
        if (const std::optional<CFileSystem::Info> info = files.Stat(target)) lastWriteTime = info->lastWriteTime;
    } catch (const CFileException&) {
    }
    return StampOf(bytes, lastWriteTime);
}
