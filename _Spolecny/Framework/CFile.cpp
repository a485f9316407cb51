#include "Framework/CFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "Framework/FileSystem.h"
#include "TextCodec.h"

std::FILE* OpenFileStream(std::u16string_view path, const char* mode) {
#ifdef _WIN32
    static_assert(sizeof(wchar_t) == sizeof(char16_t), "wide paths are UTF-16 on Windows");
    const std::u16string widePath(path);
    const std::wstring wideMode(mode, mode + std::strlen(mode));
    return _wfopen(reinterpret_cast<const wchar_t*>(widePath.c_str()), wideMode.c_str());
#else
    return std::fopen(ToUtf8(path).c_str(), mode);
#endif
}

namespace {

// The stream's size, leaving it positioned at the start. 64-bit offsets on every platform.
bool MeasureStream(std::FILE* stream, std::uint64_t& length) {
#ifdef _WIN32
    if (_fseeki64(stream, 0, SEEK_END) != 0) return false;
    const long long end = _ftelli64(stream);
    if (end < 0 || _fseeki64(stream, 0, SEEK_SET) != 0) return false;
#else
    if (fseeko(stream, 0, SEEK_END) != 0) return false;
    const off_t end = ftello(stream);
    if (end < 0 || fseeko(stream, 0, SEEK_SET) != 0) return false;
#endif
    length = static_cast<std::uint64_t>(end);
    return true;
}

}  // namespace

CFile::~CFile() {
    if (stream_ != nullptr) std::fclose(stream_);
}

bool CFile::Open(std::u16string_view path, unsigned flags) {
    if (stream_ != nullptr) {
        std::fclose(stream_);
        stream_ = nullptr;
    }
    const char* mode = nullptr;
    if (flags == modeRead) mode = "rb";
    if (flags == (modeCreate | modeWrite)) mode = "wb";
    if (mode == nullptr) return false;
    // A folder is no file, though some C runtimes open one for reading.
    std::error_code error;
    if (std::filesystem::is_directory(std::filesystem::path(std::u16string(path)), error)) return false;

    std::FILE* stream = OpenFileStream(path, mode);
    if (stream == nullptr) return false;
    // The archive buffers; a second buffer in the stream would only copy the bytes once more. The
    // buffering of a stream can only be chosen before anything else is done with it, the seeks of
    // the measuring included.
    std::setvbuf(stream, nullptr, _IONBF, 0);
    std::uint64_t length = 0;
    if (flags == modeRead && !MeasureStream(stream, length)) {
        std::fclose(stream);
        return false;
    }
    stream_ = stream;
    path_ = path;
    length_ = length;
    return true;
}

void CFile::Close() {
    if (stream_ == nullptr) return;
    std::FILE* stream = stream_;
    stream_ = nullptr;
    if (std::fclose(stream) != 0) ThrowFileException();
}

std::size_t CFile::Read(void* buffer, std::size_t count) {
    if (stream_ == nullptr) throw CFileException(CFileException::Cause::Generic, path_);
    const std::size_t read = std::fread(buffer, 1, count, stream_);
    if (read < count && std::ferror(stream_)) ThrowFileException();
    return read;
}

void CFile::Write(const void* buffer, std::size_t count) {
    if (stream_ == nullptr) throw CFileException(CFileException::Cause::Generic, path_);
    errno = 0;
    if (std::fwrite(buffer, 1, count, stream_) != count) ThrowFileException();
}

void CFile::ThrowFileException() const {
    throw FileExceptionOf({errno, std::generic_category()}, path_);
}

std::size_t CMemFile::Read(void* buffer, std::size_t count) {
    const std::size_t available = std::min(count, bytes_.size() - readPosition_);
    if (available > 0) std::memcpy(buffer, bytes_.data() + readPosition_, available);
    readPosition_ += available;
    return available;
}

void CMemFile::Write(const void* buffer, std::size_t count) {
    const auto* bytes = static_cast<const std::uint8_t*>(buffer);
    bytes_.insert(bytes_.end(), bytes, bytes + count);
}
