#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "Framework/CFile.h"
#include "Framework/Exceptions.h"

// A one-way binary stream over a file: either loads or stores. Primitives are little-endian with
// no padding. Reading past the end, or a length field that promises more bytes than the file has
// left, raises CArchiveException with the offset of the field that could not be read.
class CArchive {
public:
    enum Mode { load, store };
    // Large enough that the system calls under a save or load cost little beside the copying.
    static constexpr std::size_t kBufferSize = 64 * 1024;

    CArchive(CFile& file, Mode mode);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    // Writes what is still buffered, quietly: a failed save has already been reported.
    ~CArchive();

    bool IsLoading() const { return mode_ == load; }
    bool IsStoring() const { return mode_ == store; }
    // Writes out the buffer of a storing archive; the file stays open.
    void Close();

    // Bytes read or written so far.
    std::uint64_t Position() const { return position_; }
    // Bytes a loading archive has not read yet.
    std::uint64_t BytesLeft() const { return fileLength_ - position_; }

    void WriteByte(std::uint8_t value) { WriteValue(value); }
    void WriteUInt16(std::uint16_t value) { WriteValue(value); }
    void WriteInt16(std::int16_t value) { WriteUInt16(static_cast<std::uint16_t>(value)); }
    void WriteUInt32(std::uint32_t value) { WriteValue(value); }
    void WriteInt32(std::int32_t value) { WriteUInt32(static_cast<std::uint32_t>(value)); }
    void WriteUInt64(std::uint64_t value) { WriteValue(value); }
    void WriteFloat(float value) { WriteUInt32(std::bit_cast<std::uint32_t>(value)); }
    // Wide string: tag FF FE FF, the length in characters, the UTF-16LE units.
    void WriteString(std::u16string_view text);

    std::uint8_t ReadByte() { return ReadValue<std::uint8_t>(); }
    std::uint16_t ReadUInt16() { return ReadValue<std::uint16_t>(); }
    std::int16_t ReadInt16() { return static_cast<std::int16_t>(ReadUInt16()); }
    std::uint32_t ReadUInt32() { return ReadValue<std::uint32_t>(); }
    std::int32_t ReadInt32() { return static_cast<std::int32_t>(ReadUInt32()); }
    std::uint64_t ReadUInt64() { return ReadValue<std::uint64_t>(); }
    float ReadFloat() { return std::bit_cast<float>(ReadUInt32()); }
    // A wide string, or an untagged narrow one widened from Windows-1250 (the code page of the
    // Czech systems that wrote such files).
    std::u16string ReadString();
    void Skip(std::uint64_t count);

private:
    struct StringHeader {
        std::uint64_t length;  // in characters
        bool wide;
    };

    // Catalogues are read and written a few bytes at a time: a field the buffer can take or give
    // whole is copied here, inline, and only the rest goes through the loops of ReadBytes and
    // WriteBytes. The buffer never holds bytes beyond the measured length (see ReadBytes), so a
    // field found in it is a field the file has.
    template <typename T>
    T ReadValue() {
        std::uint8_t bytes[sizeof(T)];
        if (bufferUsed_ - bufferRead_ >= sizeof(T)) {
            std::memcpy(bytes, buffer_.data() + bufferRead_, sizeof(T));
            bufferRead_ += sizeof(T);
            position_ += sizeof(T);
        } else {
            ReadBytes(bytes, sizeof(T));
        }
        T value = 0;
        for (std::size_t i = 0; i < sizeof(T); ++i) value |= static_cast<T>(static_cast<T>(bytes[i]) << (8 * i));
        return value;
    }

    template <typename T>
    void WriteValue(T value) {
        std::uint8_t bytes[sizeof(T)];
        for (std::size_t i = 0; i < sizeof(T); ++i) bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
        if (kBufferSize - bufferUsed_ >= sizeof(T)) {
            std::memcpy(buffer_.data() + bufferUsed_, bytes, sizeof(T));
            bufferUsed_ += sizeof(T);
            position_ += sizeof(T);
        } else {
            WriteBytes(bytes, sizeof(T));
        }
    }

    void ReadBytes(std::uint8_t* target, std::size_t count);
    void WriteBytes(const std::uint8_t* source, std::size_t count);
    void Flush();
    StringHeader ReadStringHeader();
    void WriteStringLength(std::uint64_t length);
    // Refuses a field of `count` bytes that the rest of the file cannot hold.
    void RequireBytesLeft(std::uint64_t count) const;

    CFile& file_;
    Mode mode_;
    std::uint64_t fileLength_ = 0;
    std::uint64_t position_ = 0;
    std::vector<std::uint8_t> buffer_ = std::vector<std::uint8_t>(kBufferSize);
    std::size_t bufferUsed_ = 0;  // storing: bytes waiting; loading: bytes filled
    std::size_t bufferRead_ = 0;  // loading: bytes of the buffer already taken
};
