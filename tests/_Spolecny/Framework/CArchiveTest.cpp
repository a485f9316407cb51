#include "Framework/CArchive.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "support/ArchiveBytes.h"
#include "support/TempFolder.h"

namespace {

TEST(ArchivePrimitives, AreLittleEndianWithoutPaddingAndAShortReadGivesTheFieldsOffset) {
    const Bytes bytes = StoredBytes([](CArchive& archive) {
        archive.WriteByte(0x07);
        archive.WriteInt16(-2);
        archive.WriteUInt32(0x12345678);
        archive.WriteFloat(90.0f);
        archive.WriteUInt64(0x0102030405060708);
    });
    EXPECT_EQ(bytes, Hex("07 FE FF 78 56 34 12 00 00 B4 42 08 07 06 05 04 03 02 01"));

    LoadBytes(bytes, [](CArchive& archive) {
        EXPECT_EQ(archive.ReadByte(), 0x07);
        EXPECT_EQ(archive.ReadInt16(), -2);
        EXPECT_EQ(archive.ReadUInt32(), 0x12345678u);
        EXPECT_EQ(archive.ReadFloat(), 90.0f);
        EXPECT_EQ(archive.ReadUInt64(), 0x0102030405060708u);
    });
    LoadBytes(Bytes(bytes.begin(), bytes.end() - 2), [](CArchive& archive) {
        archive.Skip(11);
        try {
            archive.ReadUInt64();  // 2 bytes short
            FAIL() << "no archive exception";
        } catch (const CArchiveException& exception) {
            EXPECT_EQ(exception.Offset(), 11u);  // where the field starts
        }
    });
}

TEST(ArchiveBuffer, CarriesDataAcrossManyBufferFills) {
    // After the leading byte, some values straddle the end of a buffer in both directions.
    const std::size_t count = CArchive::kBufferSize + 17;
    const auto value = [](std::size_t i) { return static_cast<std::uint32_t>(i * 2654435761u); };
    const Bytes bytes = StoredBytes([&](CArchive& archive) {
        archive.WriteByte(0xA5);
        for (std::size_t i = 0; i < count; ++i) archive.WriteUInt32(value(i));
    });
    ASSERT_EQ(bytes.size(), 1 + 4 * count);
    LoadBytes(bytes, [&](CArchive& archive) {
        EXPECT_EQ(archive.ReadByte(), 0xA5);
        for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(archive.ReadUInt32(), value(i)) << i;
        EXPECT_EQ(archive.BytesLeft(), 0u);
    });
}

// A file that grew after it was measured: it says 3 bytes long and hands out 8.
class GrownFile final : public CFile {
public:
    std::uint64_t GetLength() const override { return 3; }
    std::size_t Read(void* buffer, std::size_t count) override {
        const std::size_t taken = std::min(count, bytes_.size() - read_);
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(read_), taken, static_cast<std::uint8_t*>(buffer));
        read_ += taken;
        return taken;
    }

private:
    Bytes bytes_ = Hex("01 02 03 04 05 06 07 08");
    std::size_t read_ = 0;
};

TEST(ArchiveBuffer, EndsAtTheMeasuredLength) {
    GrownFile file;
    CArchive archive(file, CArchive::load);
    EXPECT_EQ(archive.ReadUInt16(), 0x0201);
    EXPECT_EQ(archive.ReadByte(), 0x03);
    EXPECT_THROW(archive.ReadByte(), CArchiveException);
}

TEST(ArchiveBuffer, DestructionWritesWhatIsStillBuffered) {
    CMemFile file;
    {
        CArchive archive(file, CArchive::store);
        archive.WriteByte(3);
        archive.WriteByte(0xFF);
        EXPECT_TRUE(file.Bytes().empty());
    }
    EXPECT_EQ(file.Bytes(), Hex("03 FF"));
}

TEST(ArchiveStrings, WideStringsUseTheShortestLengthFormAndReadBack) {
    EXPECT_EQ(StoredBytes([](CArchive& archive) { archive.WriteString(u"Př"); }), Hex("FF FE FF 02 50 00 59 01"));
    const struct {
        std::size_t length;
        const char* header;  // after the wide tag FF FE FF
    } forms[] = {{0, "00"},
                 {254, "FE"},
                 {255, "FF FF 00"},
                 {0xFFFD, "FF FD FF"},
                 {0xFFFE, "FF FF FF FE FF 00 00"},
                 {70000, "FF FF FF 70 11 01 00"}};
    for (const auto& [length, header] : forms) {
        SCOPED_TRACE(length);
        std::u16string text(length, u'ř');
        if (length > 0) text.back() = u'Z';
        const Bytes bytes = StoredBytes([&](CArchive& archive) { archive.WriteString(text); });
        EXPECT_EQ(Bytes(bytes.begin() + 3, bytes.end() - static_cast<std::ptrdiff_t>(2 * length)), Hex(header));
        LoadBytes(bytes, [&](CArchive& archive) { EXPECT_EQ(archive.ReadString(), text); });
    }
    // The 64-bit form is never written for real texts, but a reader takes it.
    LoadBytes(Hex("FF FE FF FF FF FF FF FF FF FF 02 00 00 00 00 00 00 00 61 00 62 00"),
              [](CArchive& archive) { EXPECT_EQ(archive.ReadString(), u"ab"); });
}

TEST(ArchiveStrings, UntaggedStringsAreNarrowWindows1250) {
    LoadBytes(Hex("04 C8 65 73 E8"), [](CArchive& archive) { EXPECT_EQ(archive.ReadString(), u"Česč"); });
    LoadBytes(Hex("FF 03 00 41 42 43"), [](CArchive& archive) { EXPECT_EQ(archive.ReadString(), u"ABC"); });
    LoadBytes(Hex("FF FF FF 02 00 00 00 8A 9E"), [](CArchive& archive) { EXPECT_EQ(archive.ReadString(), u"Šž"); });
}

// Each of these promises more characters than the bytes that follow; none may be allocated.
TEST(ArchiveStrings, LengthBeyondTheFileIsRefusedBeforeAllocating) {
    const char* headers[] = {
        "FF FE FF 03 41 00 42 00",                                // 3 wide characters, 2 present
        "05 41 42 43 44",                                         // 5 narrow characters, 4 present
        "FF FE FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF 7F",  // 2^63 - 1 wide characters
        "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF",           // 2^64 - 1 narrow characters
        "FF FE FF FF FF FF FE FF FF FF",                          // 0xFFFFFFFE wide characters
    };
    for (const char* header : headers) {
        EXPECT_THROW(LoadBytes(Hex(header), [](CArchive& archive) { archive.ReadString(); }), CArchiveException)
            << header;
    }
}

class FileOnDisk : public ::testing::Test {
protected:
    TempFolder folder;
};

TEST_F(FileOnDisk, OnlyFilesOpenCreateTruncatesAndReadingMeasuresTheFile) {
    CFile file;
    EXPECT_FALSE(file.Open(folder / u"chybí.qxp", CFile::modeRead));
    EXPECT_FALSE(file.Open(folder / u"nová složka/Potrubi.qxp", CFile::modeCreate | CFile::modeWrite));
    std::filesystem::create_directory(folder.Path() / u"složka.qxp");
    EXPECT_FALSE(file.Open(folder / u"složka.qxp", CFile::modeRead));
    EXPECT_FALSE(file.Open(folder / u"složka.qxp", CFile::modeCreate | CFile::modeWrite));

    const std::u16string path = folder / u"Potrubí – žluťoučký.qxp";
    std::ofstream(std::filesystem::path(path), std::ios::binary) << std::string(10000, 'x');

    CFile output;
    ASSERT_TRUE(output.Open(path, CFile::modeCreate | CFile::modeWrite));
    {
        CArchive archive(output, CArchive::store);
        for (int i = 0; i < 5000; ++i) archive.WriteUInt32(static_cast<std::uint32_t>(i));
        archive.Close();
    }
    output.Close();
    EXPECT_EQ(std::filesystem::file_size(path), 20000u);

    CFile input;
    ASSERT_TRUE(input.Open(path, CFile::modeRead));
    EXPECT_EQ(input.GetLength(), 20000u);
    CArchive archive(input, CArchive::load);
    for (int i = 0; i < 5000; ++i) ASSERT_EQ(archive.ReadUInt32(), static_cast<std::uint32_t>(i));
    EXPECT_THROW(archive.ReadByte(), CArchiveException);
}

}  // namespace
