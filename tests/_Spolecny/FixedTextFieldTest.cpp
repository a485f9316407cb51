#include "FixedTextField.h"

#include <gtest/gtest.h>

#include "support/ArchiveBytes.h"
#include "support/ThrownText.h"

namespace {

TEST(FixedTextFieldWriting, KeepsAtMostCapacityMinusOneCharacters) {
    auto written = [](std::u16string_view text) {
        return StoredBytes([&](CArchive& archive) { WriteFixedTextField(archive, text, 4); });
    };
    EXPECT_EQ(written(u""), Hex("00 00"));
    EXPECT_EQ(written(u"DN"), Hex("44 00 4E 00 00 00"));
    EXPECT_EQ(written(u"ABC"), Hex("41 00 42 00 43 00 00 00"));
    EXPECT_EQ(written(u"ABCD"), Hex("41 00 42 00 43 00 00 00"));
}

TEST(FixedTextFieldReading, TerminatedFormStopsAtTheZeroUnitWithinCapacityPlusOneUnits) {
    LoadBytes(Hex("41 00 00 00 42 00 43 00 44 00 45 00 00 00"), [](CArchive& archive) {
        EXPECT_EQ(ReadTerminatedTextField(archive, 4), u"A");
        EXPECT_EQ(archive.Position(), 4u);
        EXPECT_EQ(ReadTerminatedTextField(archive, 4), u"BCDE");  // n + 1 units, the terminator last
    });
    EXPECT_EQ(ThrownText([] {
                  LoadBytes(Hex("41 00 42 00 43 00 44 00 45 00 00 00"),
                            [](CArchive& archive) { ReadTerminatedTextField(archive, 3); });
              }),
              u"Načítaný řetězec není ukončen nulou, Line 625, \n_Spolecny\\CQvxFunkce");
}

TEST(FixedTextFieldReading, FixedFormTakesCapacityPlusOneUnitsWhateverTheyHold) {
    // Garbage after the terminator is skipped with it.
    const Bytes bytes = Hex("41 00 00 00 5A 00 5A 00 5A 00  41 00 42 00 43 00 44 00 45 00  77 00");
    LoadBytes(bytes, [](CArchive& archive) {
        EXPECT_EQ(ReadFixedFormTextField(archive, 4), u"A");
        EXPECT_EQ(archive.Position(), 10u);
        // No terminator at all: cut to the n characters the buffer holds.
        EXPECT_EQ(ReadFixedFormTextField(archive, 4), u"ABCD");
        EXPECT_EQ(archive.ReadUInt16(), u'w');
    });
}

}  // namespace
