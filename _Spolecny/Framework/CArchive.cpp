#include "Framework/CArchive.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "TextCodec.h"

namespace {

// Length scheme of archive strings: one byte below 0xFF, then escalating escape values.
constexpr std::uint8_t kLengthEscape8 = 0xFF;
constexpr std::uint16_t kWideTag = 0xFFFE;  // after an escape byte: the string is UTF-16
constexpr std::uint16_t kLengthEscape16 = 0xFFFF;
constexpr std::uint32_t kLengthEscape32 = 0xFFFFFFFF;

}  // namespace

CArchive::CArchive(CFile& file, Mode mode) : file_(file), mode_(mode) {
    if (mode_ == load) fileLength_ = file_.GetLength();
}

CArchive::~CArchive() {
    if (mode_ != store) return;
    try {
        Flush();
    } catch (const CException&) {
        // The failure that ended the save has been reported; the file stays as far as written.
    }
}

void CArchive::Close() {
    if (mode_ == store) Flush();
}

void CArchive::Flush() {
    const std::size_t count = bufferUsed_;
    bufferUsed_ = 0;  // never written twice, even when the write fails
    if (count > 0) file_.Write(buffer_.data(), count);
}

void CArchive::WriteBytes(const std::uint8_t* source, std::size_t count) {
    position_ += count;
    while (count > 0) {
        if (bufferUsed_ == kBufferSize) Flush();
        const std::size_t chunk = std::min(count, kBufferSize - bufferUsed_);
        std::memcpy(buffer_.data() + bufferUsed_, source, chunk);
        bufferUsed_ += chunk;
        source += chunk;
        count -= chunk;
    }
}

void CArchive::RequireBytesLeft(std::uint64_t count) const {
    if (count > BytesLeft()) throw CArchiveException(CArchiveException::Cause::EndOfFile, position_);
}

void CArchive::ReadBytes(std::uint8_t* target, std::size_t count) {
    const std::uint64_t start = position_;
    while (count > 0) {
        if (bufferRead_ == bufferUsed_) {
            // Never past the measured length: bytes the file gained since are not part of it.
            const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kBufferSize, BytesLeft()));
            bufferUsed_ = file_.Read(buffer_.data(), wanted);
            bufferRead_ = 0;
            // The measured length is used up, or the file shrank after it was measured.
            if (bufferUsed_ == 0) throw CArchiveException(CArchiveException::Cause::EndOfFile, start);
        }
        const std::size_t chunk = std::min(count, bufferUsed_ - bufferRead_);
        std::memcpy(target, buffer_.data() + bufferRead_, chunk);
        bufferRead_ += chunk;
        position_ += chunk;
        target += chunk;
        count -= chunk;
    }
}

void CArchive::WriteString(std::u16string_view text) {
    WriteByte(kLengthEscape8);
    WriteUInt16(kWideTag);
    WriteStringLength(text.size());
    // On a little-endian host the units lie in memory as the file has them.
    if constexpr (std::endian::native == std::endian::little) {
        WriteBytes(reinterpret_cast<const std::uint8_t*>(text.data()), 2 * text.size());
    } else {
        for (char16_t unit : text) WriteUInt16(unit);
    }
}

void CArchive::WriteStringLength(std::uint64_t length) {
    if (length < kLengthEscape8) {
        WriteByte(static_cast<std::uint8_t>(length));
        return;
    }
    WriteByte(kLengthEscape8);
    if (length < kWideTag) {
        WriteUInt16(static_cast<std::uint16_t>(length));
        return;
    }
    WriteUInt16(kLengthEscape16);
    if (length < kLengthEscape32) {
        WriteUInt32(static_cast<std::uint32_t>(length));
        return;
    }
    WriteUInt32(kLengthEscape32);
    WriteUInt64(length);
}

void CArchive::Skip(std::uint64_t count) {
    RequireBytesLeft(count);
    std::array<std::uint8_t, 64> scratch;
    while (count > 0) {
        const auto chunk = static_cast<std::size_t>(std::min<std::uint64_t>(count, scratch.size()));
        ReadBytes(scratch.data(), chunk);
        count -= chunk;
    }
}

CArchive::StringHeader CArchive::ReadStringHeader() {
    StringHeader header{ReadByte(), false};
    if (header.length < kLengthEscape8) return header;
    std::uint16_t length16 = ReadUInt16();
    if (length16 == kWideTag) {
        header.wide = true;
        header.length = ReadByte();
        if (header.length < kLengthEscape8) return header;
        length16 = ReadUInt16();
    }
    header.length = length16;
    if (length16 < kLengthEscape16) return header;
    header.length = ReadUInt32();
    if (header.length < kLengthEscape32) return header;
    header.length = ReadUInt64();
    return header;
}

std::u16string CArchive::ReadString() {
    const StringHeader header = ReadStringHeader();
    // Checked before anything is allocated: a length field may promise far more than the file holds.
    const std::uint64_t unitSize = header.wide ? 2 : 1;
    if (header.length > BytesLeft() / unitSize) {
        throw CArchiveException(CArchiveException::Cause::EndOfFile, position_);
    }
    const auto length = static_cast<std::size_t>(header.length);
    if (!header.wide) {
        std::string narrow(length, '\0');
        ReadBytes(reinterpret_cast<std::uint8_t*>(narrow.data()), length);
        return FromWindows1250(narrow);
    }
    std::u16string text(length, u'\0');
    if constexpr (std::endian::native == std::endian::little) {
        ReadBytes(reinterpret_cast<std::uint8_t*>(text.data()), 2 * length);
    } else {
        for (char16_t& unit : text) unit = ReadUInt16();
    }
    return text;
}
