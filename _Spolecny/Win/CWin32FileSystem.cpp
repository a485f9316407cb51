#include "Win/CWin32FileSystem.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>

#include "TextCodec.h"
#include "Win/WideText.h"

namespace {

std::u16string SystemText(DWORD error) {
    wchar_t* text = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, error, 0, reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    std::u16string result = length > 0 ? FromWide(std::wstring_view(text, length)) : u"";
    LocalFree(text);
    while (!result.empty() && (result.back() == u'\n' || result.back() == u'\r' || result.back() == u' ')) {
        result.pop_back();
    }
    return result.empty() ? u"Systémová chyba " + FromUtf8(std::to_string(error)) + u"." : result;
}

CFileException Failure(DWORD error, std::u16string_view path) {
    using Cause = CFileException::Cause;
    const std::u16string name(path);
    switch (error) {
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return {Cause::DiskFull, name};
        case ERROR_ACCESS_DENIED:
            return {Cause::AccessDenied, name};
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        // ReplaceFileW's word for a file it cannot open to replace: another program holds it.
        case ERROR_UNABLE_TO_REMOVE_REPLACED:
            return {Cause::SharingViolation, name};
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return {Cause::FileNotFound, name};
        default:
            return {Cause::Generic, name, SystemText(error)};
    }
}

[[noreturn]] void ThrowLastError(std::u16string_view path) {
    throw Failure(GetLastError(), path);
}

std::int64_t TimeOf(const FILETIME& time) {
    return static_cast<std::int64_t>((static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime);
}

class FileHandle {
public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    ~FileHandle() {
        if (IsOpen()) CloseHandle(handle_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }
    // Closes now, so that a failure to close is seen.
    bool Close() {
        const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
        return CloseHandle(handle) != 0;
    }

private:
    HANDLE handle_;
};

// ReadFile and WriteFile take at most a DWORD at a time.
constexpr std::size_t kChunk = std::size_t{1} << 24;

}  // namespace

std::optional<CFileSystem::Info> CWin32FileSystem::Stat(std::u16string_view path) {
    const std::u16string name(path);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(Wide(name), GetFileExInfoStandard, &data)) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return std::nullopt;
        throw Failure(error, path);
    }
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
    return Info{(static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow,
                TimeOf(data.ftLastWriteTime)};
}

CFileSystem::Content CWin32FileSystem::Read(std::u16string_view path) {
    const std::u16string name(path);
    FileHandle file(CreateFileW(Wide(name), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) ThrowLastError(path);
    LARGE_INTEGER size{};
    FILETIME written{};
    if (!GetFileSizeEx(file.Get(), &size) || !GetFileTime(file.Get(), nullptr, nullptr, &written)) {
        ThrowLastError(path);
    }
    Content content;
    content.lastWriteTime = TimeOf(written);
    content.bytes.resize(static_cast<std::size_t>(size.QuadPart));
    std::size_t done = 0;
    while (done < content.bytes.size()) {
        DWORD read = 0;
        const auto wanted = static_cast<DWORD>(std::min(kChunk, content.bytes.size() - done));
        if (!ReadFile(file.Get(), content.bytes.data() + done, wanted, &read, nullptr)) ThrowLastError(path);
        if (read == 0) break;  // shorter now than it was a moment ago
        done += read;
    }
    content.bytes.resize(done);
    return content;
}

void CWin32FileSystem::WriteNew(std::u16string_view path, std::span<const std::uint8_t> bytes) {
    const std::u16string name(path);
    FileHandle file(
        CreateFileW(Wide(name), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) ThrowLastError(path);
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD written = 0;
        const auto wanted = static_cast<DWORD>(std::min(kChunk, bytes.size() - done));
        if (!WriteFile(file.Get(), bytes.data() + done, wanted, &written, nullptr) || written == 0) ThrowLastError(path);
        done += written;
    }
    if (!FlushFileBuffers(file.Get()) || !file.Close()) ThrowLastError(path);
}

void CWin32FileSystem::Replace(std::u16string_view target, std::u16string_view replacement,
                               std::u16string_view backup) {
    const std::u16string to(target);
    const std::u16string from(replacement);
    const std::u16string kept(backup);
    if (backup.empty() || !Stat(target)) {
        if (!MoveFileExW(Wide(from), Wide(to), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
            ThrowLastError(target);
        }
        return;
    }
    if (ReplaceFileW(Wide(to), Wide(from), Wide(kept), REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)) return;
    const DWORD error = GetLastError();
    // The previous file already went to the backup name but the new one could not follow it in:
    // the previous one goes back.
    if (error == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2) MoveFileExW(Wide(kept), Wide(to), MOVEFILE_WRITE_THROUGH);
    throw Failure(error, target);
}

void CWin32FileSystem::Remove(std::u16string_view path) noexcept {
    const std::u16string name(path);
    DeleteFileW(Wide(name));
}
