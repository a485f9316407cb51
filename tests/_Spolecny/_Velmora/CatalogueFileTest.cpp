// The catalogue file: byte-exact writing, every older layout on reading, refusals.

#include <gtest/gtest.h>

#include "RandomCatalogue.h"
#include "TextCodec.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/CatalogueCsvFields.h"
#include "_Velmora/MaterialTables.h"
#include "support/ArchiveBytes.h"
#include "support/CatalogueBuilding.h"
#include "support/CatalogueFixtures.h"
#include "support/RecordSummary.h"
#include "support/ThrownText.h"

namespace {

using namespace CatalogueFixtures;

// Files store indexes into these tables, so their rows are pinned: label, value, outer diameter.
// Not the PN table: nothing reads its values, and the sheets' refusals list its labels.
TEST(CatalogueTables, HoldThePublishedRowsInTheirOrder) {
    std::string dn, sdr;
    for (const DnRow& row : DnTable()) {
        dn += ToUtf8(row.label) + " " + FormatCsvNumber(row.value) + "/" + std::to_string(row.outerDiameter) + ", ";
    }
    for (const SdrRow& row : SdrTable()) sdr += ToUtf8(row.label) + " " + FormatCsvNumber(row.value) + ", ";
    EXPECT_EQ(dn,
              "DN 8 8/10, DN 10 10/16, DN 12 12/18, DN 15 15/20, DN 20 20/25, DN 25 25/32, DN 32 32/40, "
              "DN 40 40/50, DN 50 50/63, DN 65 65/75, DN 80 80/90, DN 100 100/110, DN 125 125/125, "
              "DN 150 150/160, DN 200 200/200, DN 225 225/225, DN 250 250/250, DN 300 300/315, DN 350 350/350, "
              "DN 400 400/400, DN 450 450/450, DN 500 500/500, DN 600 600/600, DN 700 700/700, DN 800 800/800, "
              "DN 900 900/900, DN 1000 1000/1000, DN 1200 1200/1200, ");
    EXPECT_EQ(sdr, "--- 0, SDr 6 6, SDr 7.4 7.2, SDr 9 9, SDr 11 11, SDr 13.6 13.6, SDr 17 17, SDr 17.6 17.6, ");
    EXPECT_NE(FindSdrRow(0), nullptr);
    EXPECT_EQ(FindSdrRow(kSdrCount), nullptr);  // an index a newer file may hold
}

TEST(CatalogueWriting, WorkedExampleIsWrittenByteForByte) {
    CQvxSezMaterialu list;
    CQvxMaterial& pe = AddMaterial(list, u"PE");
    EditMaterial(pe, [](MaterialExchangeRecord& record) {
        record.roughness = 0.01;
        record.pnIndex = 3;
        record.sdrIndex = 4;
    });
    pe.AddProfile(11)->SetDimensions(90.0f, 10.0f);

    EXPECT_EQ(WriteCatalogue(list), Hex(kWorkedExample));
    CQvxSezMaterialu empty;
    EXPECT_EQ(WriteCatalogue(empty), Hex("03 FF"));  // version and end marker only
    EXPECT_EQ(WriteCatalogue(empty, true), Hex("03 FF"));
}

TEST(CatalogueWriting, FourCharacterPrefixIsSavedWithThree) {
    CQvxSezMaterialu list;
    EditMaterial(AddMaterial(list, u"K"), [](MaterialExchangeRecord& record) {
        record.descriptionMode = DescriptionMode::Custom;
        record.onInnerDiameter = true;
        record.prefix = u"ABCD";
        record.suffix = u"mm";
    });

    const Bytes bytes = WriteCatalogue(list);
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 18), Hex("03 05 02 01 41 00 42 00 43 00 00 00 6D 00 6D 00 00 00"));
}

TEST(CatalogueWriting, OnlyUsedWritesTheMaterialsAndProfilesInUseAndNumbersThem) {
    CQvxSezMaterialu list;
    CQvxMaterial& unused = AddMaterial(list, u"A");
    CQvxMaterial& used = AddMaterial(list, u"B");
    CQvxMaterial& alsoUsed = AddMaterial(list, u"C");
    CQvxMaterial* materialSlots[2] = {&used, &alsoUsed};
    used.Users().Register(&materialSlots[0]);
    alsoUsed.Users().Register(&materialSlots[1]);
    unused.AddProfile(3);
    CQvxProfil* profileSlot = used.AddProfile(5);
    used.AddProfile(6);
    alsoUsed.AddProfile(7);
    used.FindProfile(5)->Users().Register(&profileSlot);

    const Bytes bytes = WriteCatalogue(list, true);
    EXPECT_EQ(unused.FileIndex(), -2);
    EXPECT_EQ(used.FileIndex(), 0);
    EXPECT_EQ(alsoUsed.FileIndex(), 1);

    CQvxSezMaterialu read;
    ReadCatalogue(read, bytes);
    ASSERT_EQ(read.Count(), 2u);
    EXPECT_EQ(MaterialNamed(read, u"B").Profiles().size(), 1u);
    EXPECT_NE(MaterialNamed(read, u"B").FindProfile(5), nullptr);
    EXPECT_TRUE(MaterialNamed(read, u"C").Profiles().empty());
    list.ClearUsage();  // the slots end with this test
}

// Each layout: what the list holds afterwards, material by material in key order.
TEST(CatalogueReading, EveryLayoutFillsTheFieldsItStoresAndDefaultsTheRest) {
    const struct {
        std::string bytes;
        std::string read;
    } layouts[] = {
        {kWorkedExample,
         "PE (PE) '' '' 3/31 k 0.01 3/4 mode 1 outer '' '' shape 0 #0\n"
         "11: 90 x 10, 0, '' '' [110x10.0 d110]"},
        // Zero masks read as all; old DN rows from 15 on move one down; "Šedá" from Windows-1250.
        {kListVersion0,
         "Litina (Litina) 'Šedá' '' 3/31 k 1 2/-1 mode 0 outer '' '' shape 0 #0\n"
         "16: 250 x 5, 0, 'K1' '' [DN 250 250]\n"
         "PE (PE) '' '' 2/4 k 0.01 0/4 mode 1 outer '' '' shape 0 #1"},
        {kMaterialVersion2,
         "PVC (PVC) '' '' 1/1 k 1 3/2 mode 1 outer '' '' shape 0 #0\n"
         "15: 200 x 5, 0, '' '' [210x5.0 d210]\n"
         "21: 100 x 2.5, 0, 'KG' '' [105x2.5 d105]"},
        {kMaterialVersion3,  // fixed-form affixes cut to their buffer
         "Beton (Beton) '' '' 3/31 k 1 0/0 mode 2 inner 'DN' 'abcd' shape 0 #0\n"
         "15: 225 x 5, 0, 'X1' '' [DN225abcd d235]"},
        {kMaterialVersion4,
         "Sklo (Sklo) '' '' 2/1 k 1 0/0 mode 2 inner 'DN' '' shape 0 #0\n"
         "11: 90 x 10, 640, 'C' 'D' [DN90 d110]"},
        {kMaterialVersion6,
         "Ocel (Ocel ČSN) '' '' 3/31 k 1 0/0 mode 0 outer '' '' shape 4 #0\n"
         "10: 80 x 3, 1000, 'A' 'B' [DN 80 80]"},
        {"01 00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00 00 00 00 00", ""},  // no materials, then the trailer
    };
    for (const auto& [bytes, read] : layouts) {
        CQvxSezMaterialu list;
        list.MarkChanged();
        EXPECT_EQ(ReadCatalogue(list, Hex(bytes)), 0u);
        EXPECT_TRUE(list.IsUnchanged());
        EXPECT_EQ(Summary(list), read);
    }
}

TEST(CatalogueRefusal, NewerVersionAtEachLevelAndADnTwiceWithTheirSourceAndLine) {
    CQvxSezMaterialu list;
    EXPECT_EQ(ThrownText([&] { ReadCatalogue(list, Hex("04 FF")); }),
              NewerVersionError(257, u"_Spolecny\\_Velmora\\CQvxSezMaterialu"));
    EXPECT_EQ(list.Count(), 0u);

    // The material read before the refusal stays.
    EXPECT_EQ(ThrownText([&] { ReadCatalogue(list, Hex("03 " + kPeMaterial + "07")); }),
              NewerVersionError(357, u"_Spolecny\\_Velmora\\CQvxMaterial"));
    EXPECT_EQ(list.Count(), 1u);

    CQvxSezMaterialu other;
    EXPECT_EQ(ThrownText([&] { ReadCatalogue(other, Hex(std::string("03 ") + kPeHeader + "08")); }),
              NewerVersionError(447, u"_Spolecny\\_Velmora\\CQvxMaterial"));
    EXPECT_EQ(other.Count(), 0u);

    EXPECT_EQ(ThrownText([&] { ReadCatalogue(other, Hex(std::string("03 ") + kPeHeader + kPeProfile + kPeProfile)); }),
              MaterialError(u"Nelze vložit nový profil", 411));  // one DN twice in a material
}

TEST(CatalogueRefusal, EveryTruncationEndsInTheArchiveException) {
    const Bytes whole = Hex(kWorkedExample);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        CQvxSezMaterialu list;
        EXPECT_THROW(ReadCatalogue(list, Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))),
                     CArchiveException)
            << length;
    }
}

// The writer writes every stored field, so a rewrite equal to the original bytes means the read
// material holds every stored field of the original.
TEST(CatalogueRoundTrip, LargeRandomCatalogueKeepsEveryStoredField) {
    CQvxSezMaterialu original;
    RandomCatalogue(20240601).Fill(original, 400);
    const Bytes bytes = WriteCatalogue(original);

    CQvxSezMaterialu read;
    EXPECT_EQ(ReadCatalogue(read, bytes), 0u);
    EXPECT_EQ(WriteCatalogue(read), bytes);
    ASSERT_EQ(read.Count(), original.Count());
    int position = 0;
    for (const auto& [name, material] : read.Materials()) {
        EXPECT_EQ(material->DisplayName(), name);
        EXPECT_EQ(material->FileIndex(), position++);
    }
}

}  // namespace
