#include "_Velmora/CQvxMaterial.h"

#include <gtest/gtest.h>

#include "support/MaterialFixture.h"
#include "support/ThrownText.h"

namespace {

TEST(MaterialConstruction, DefaultsForReadingAndForANewMaterial) {
    CQvxSezMaterialu list;
    const CQvxMaterial read(&list);
    EXPECT_EQ(read.FileIndex(), -2);
    EXPECT_EQ(read.GetDescriptionMode(), DescriptionMode::DxT);
    EXPECT_EQ(read.Placement(), 3);
    EXPECT_EQ(read.Medium(), 31);
    EXPECT_EQ(read.PnIndex(), -1);
    EXPECT_EQ(read.SdrIndex(), -1);
    EXPECT_EQ(read.Roughness(), 0.0f);

    const CQvxMaterial created(&list, u"PVC KG", 0, 0);
    EXPECT_EQ(created.UniqueName(), u"PVC KG");
    EXPECT_EQ(created.Placement(), kPlacementAll);
    EXPECT_EQ(created.Medium(), kMediumAll);
    EXPECT_EQ(created.Roughness(), 0.00001f);
    EXPECT_EQ(created.Shape(), ProfileShape::Circle);
    EXPECT_TRUE(created.Profiles().empty());
}

using AddProfile = MaterialFixture;

TEST_F(AddProfile, DefaultWallIsThreeBelowDn400AndFiveFrom) {
    Describe(DescriptionMode::Dn);
    const CQvxProfil* dn350 = material.AddProfile(18);
    const CQvxProfil* dn400 = material.AddProfile(19);
    EXPECT_EQ(dn350->Wall(), 3.0f);
    EXPECT_EQ(dn350->InnerDiameter(), 350.0f);
    EXPECT_EQ(dn400->Wall(), 5.0f);
    EXPECT_EQ(dn400->InnerDiameter(), 400.0f);
}

TEST_F(AddProfile, OuterDiameterModesDeriveTheInnerDiameter) {
    Describe(DescriptionMode::DxT, 0);
    const CQvxProfil* plain = material.AddProfile(11);
    EXPECT_EQ(plain->Wall(), 3.0f);
    EXPECT_EQ(plain->InnerDiameter(), 104.0f);
    EXPECT_EQ(plain->Label(), u"110x3.0");
}

TEST_F(AddProfile, SdrRowGivesTheWall) {
    Describe(DescriptionMode::DxT, 2);  // "SDr 7.4" carries 7.2
    const CQvxProfil* profile = material.AddProfile(11);
    const float wall = 110.0f / 7.2f;
    EXPECT_EQ(profile->Wall(), wall);
    EXPECT_EQ(profile->InnerDiameter(), 110.0f - 2.0f * wall);
    EXPECT_EQ(profile->Label(), u"110x15.3");
}

TEST_F(AddProfile, MaterialWithoutSdrChoiceGetsTheDefaultWall) {
    ASSERT_EQ(material.SdrIndex(), -1);
    const CQvxProfil* profile = material.AddProfile(20);
    EXPECT_EQ(profile->Wall(), 5.0f);
    EXPECT_EQ(profile->InnerDiameter(), 440.0f);
}

TEST_F(AddProfile, RefusesATakenOrUnknownIndex) {
    ASSERT_NE(material.AddProfile(4), nullptr);
    list.SetUnchanged(true);
    EXPECT_EQ(material.AddProfile(4), nullptr);
    EXPECT_EQ(material.AddProfile(28), nullptr);
    EXPECT_EQ(material.AddProfile(-1), nullptr);
    EXPECT_TRUE(list.IsUnchanged());
    EXPECT_EQ(material.Profiles().size(), 1u);
}

TEST_F(AddProfile, GenerateSeriesReplacesAllProfiles) {
    material.AddProfile(3);
    material.GenerateSeries(5, 7);
    ASSERT_EQ(material.Profiles().size(), 3u);
    EXPECT_EQ(material.Profiles().begin()->first, 5);

    material.GenerateSeries(5, 4);
    EXPECT_TRUE(material.Profiles().empty());

    EXPECT_EQ(ThrownText([&] { material.GenerateSeries(26, 28); }), MaterialError(u"Nelze přidat profil", 315));
    EXPECT_EQ(material.Profiles().size(), 2u);  // what was added before the failure stays
}

TEST_F(AddProfile, AddMissingProfilesCopiesOnlyTheMissingOnes) {
    CQvxProfil* own = material.AddProfile(5);
    own->SetWall(1.5f);
    CQvxMaterial other(&list, u"Other", kPlacementAll, kMediumAll);
    other.AddProfile(5)->SetWall(9.0f);
    CQvxProfil* extra = other.AddProfile(6);
    extra->SetUrsMaterialCode(u"M");
    extra->SetUrsInstallCode(u"I");

    list.SetUnchanged(true);
    material.AddMissingProfiles(other);
    EXPECT_FALSE(list.IsUnchanged());
    ASSERT_EQ(material.Profiles().size(), 2u);
    EXPECT_EQ(material.FindProfile(5), own);
    EXPECT_EQ(own->Wall(), 1.5f);
    const CQvxProfil* added = material.FindProfile(6);
    EXPECT_EQ(added->Owner(), &material);
    EXPECT_EQ(added->UrsMaterialCode(), u"M");
    EXPECT_EQ(added->UrsInstallCode(), u"");
}

using ExchangeRecord = MaterialFixture;

TEST_F(ExchangeRecord, TakesEveryField) {
    material.AddProfile(11);
    MaterialExchangeRecord record = material.MakeExchangeRecord();
    record.displayName = u"PE 100";
    record.manufacturer = std::u16string(25, u'v');
    record.description = u"Tlakové potrubí";
    record.pnIndex = 3;
    record.sdrIndex = 4;
    record.shape = ProfileShape::Rectangle;
    record.placement = 0;
    record.medium = kMediumWater | kMediumGas;
    record.descriptionMode = DescriptionMode::Custom;
    record.prefix = u"PE";
    record.suffix = u"mm";
    record.roughness = 0.01;
    list.SetUnchanged(true);
    material.ApplyExchangeRecord(record);

    EXPECT_FALSE(list.IsUnchanged());
    EXPECT_EQ(material.DisplayName(), u"PE 100");
    EXPECT_EQ(material.Manufacturer().size(), 25u);
    EXPECT_EQ(material.Description(), u"Tlakové potrubí");
    EXPECT_EQ(material.PnIndex(), 3);
    EXPECT_EQ(material.SdrIndex(), 4);
    EXPECT_EQ(material.Shape(), ProfileShape::Rectangle);
    EXPECT_EQ(material.Placement(), kPlacementAll);
    EXPECT_EQ(material.Medium(), kMediumWater | kMediumGas);
    EXPECT_EQ(material.Roughness(), 0.01f);
    EXPECT_EQ(material.FindProfile(11)->Label(), u"PE110mm");  // labels follow the new rules
}

TEST_F(ExchangeRecord, RoughnessOfMinusThousandComesFromTheText) {
    MaterialExchangeRecord record = material.MakeExchangeRecord();
    record.pnIndex = 0;
    record.sdrIndex = 0;
    record.roughness = MaterialExchangeRecord::kRoughnessFromText;
    record.roughnessText = u" 0.25 mm";
    material.ApplyExchangeRecord(record);
    EXPECT_EQ(material.Roughness(), 0.25f);

    record.roughnessText = u"drsnost";
    material.ApplyExchangeRecord(record);
    EXPECT_EQ(material.Roughness(), 0.0f);
}

TEST_F(ExchangeRecord, RefusalsCarryTheirLines) {
    MaterialExchangeRecord record = material.MakeExchangeRecord();
    record.pnIndex = 0;
    record.sdrIndex = 0;

    MaterialExchangeRecord foreign = record;
    foreign.uniqueName = u"pe";
    EXPECT_EQ(ThrownText([&] { material.ApplyExchangeRecord(foreign); }),
              MaterialError(u"Jméno materiálu v předané struktuře nesouhlasí", 211));

    MaterialExchangeRecord longMaker = record;
    longMaker.manufacturer = std::u16string(26, u'v');
    EXPECT_EQ(ThrownText([&] { material.ApplyExchangeRecord(longMaker); }),
              MaterialError(u"Příliš dlouhý výrobce", 212));

    MaterialExchangeRecord longPrefix = record;
    longPrefix.prefix = u"12345";
    EXPECT_EQ(ThrownText([&] { material.ApplyExchangeRecord(longPrefix); }),
              MaterialError(u"Chyba při kopírování řetězce v paměti", 232));

    MaterialExchangeRecord longSuffix = record;
    longSuffix.suffix = u"12345";
    EXPECT_EQ(ThrownText([&] { material.ApplyExchangeRecord(longSuffix); }),
              MaterialError(u"Chyba při kopírování řetězce v paměti", 234));
}

TEST_F(ExchangeRecord, MissingPnOrSdrThrowsAfterTakingTheFieldsBeforeIt) {
    MaterialExchangeRecord record = material.MakeExchangeRecord();
    record.displayName = u"Nový";
    record.roughness = 1.5;
    record.pnIndex = 2;
    record.sdrIndex = -1;
    record.medium = kMediumGas;
    EXPECT_EQ(ThrownText([&] { material.ApplyExchangeRecord(record); }),
              MaterialError(u"SDR nebo PN nenalezeno v seznamu ", 224));
    EXPECT_EQ(material.DisplayName(), u"Nový");
    EXPECT_EQ(material.Roughness(), 1.5f);
    EXPECT_EQ(material.PnIndex(), 2);
    EXPECT_EQ(material.Medium(), kMediumAll);  // masks come after the check
}

using MaterialComparison = MaterialFixture;

TEST_F(MaterialComparison, IsEqualUsesNamesAndProfilesWithinTolerances) {
    material.AddProfile(11)->SetDimensions(100.0f, 5.0f);
    CQvxMaterial other(&list, material);
    EXPECT_TRUE(material.IsEqual(other));

    // Fields outside the comparison do not matter.
    MaterialExchangeRecord record = other.MakeExchangeRecord();
    record.pnIndex = 4;
    record.sdrIndex = 4;
    record.roughness = 2.0;
    record.medium = kMediumGas;
    other.ApplyExchangeRecord(record);
    EXPECT_TRUE(material.IsEqual(other));

    CQvxProfil* theirs = other.FindProfile(11);
    theirs->SetDimensions(100.0009f, 5.0f);
    EXPECT_TRUE(material.IsEqual(other));
    theirs->SetDimensions(100.002f, 5.0f);
    EXPECT_FALSE(material.IsEqual(other));
    theirs->SetDimensions(100.0f, 5.00005f);
    EXPECT_TRUE(material.IsEqual(other));
    theirs->SetDimensions(100.0f, 5.0002f);
    EXPECT_FALSE(material.IsEqual(other));
    theirs->SetDimensions(100.0f, 5.0f);
    theirs->SetUrsMaterialCode(u"X");
    EXPECT_FALSE(material.IsEqual(other));
    theirs->SetUrsMaterialCode(u"");
    other.AddProfile(12);
    EXPECT_FALSE(material.IsEqual(other));
}

TEST_F(MaterialComparison, NamesCompareExactly) {
    CQvxMaterial other(&list, material);
    MaterialExchangeRecord record = other.MakeExchangeRecord();
    record.pnIndex = 0;
    record.sdrIndex = 0;
    record.manufacturer = u"Pipelife";
    other.ApplyExchangeRecord(record);
    EXPECT_FALSE(material.IsEqual(other));
    record.manufacturer = u"";
    record.displayName = u"pe";
    other.ApplyExchangeRecord(record);
    EXPECT_FALSE(material.IsEqual(other));
}

TEST_F(MaterialComparison, CopyLeavesShapeAndFileIndexBehind) {
    Describe(DescriptionMode::Custom, 4, true, u"A", u"B");
    MaterialExchangeRecord record = material.MakeExchangeRecord();
    record.shape = ProfileShape::EggPrague;
    material.ApplyExchangeRecord(record);
    material.SetFileIndex(7);
    material.AddProfile(2);
    CQvxMaterial* slot = &material;
    material.Users().Register(&slot);

    CQvxSezMaterialu otherList;
    CQvxMaterial copy(&otherList, material);
    EXPECT_EQ(copy.Shape(), ProfileShape::Circle);
    EXPECT_EQ(copy.FileIndex(), -2);
    EXPECT_EQ(copy.SdrIndex(), 4);
    EXPECT_EQ(copy.Prefix(), u"A");
    EXPECT_EQ(copy.Suffix(), u"B");
    EXPECT_TRUE(copy.OnInnerDiameter());
    EXPECT_EQ(copy.Users().Count(), 1u);
    ASSERT_EQ(copy.Profiles().size(), 1u);
    EXPECT_EQ(copy.FindProfile(2)->Owner(), &copy);
    EXPECT_EQ(copy.Owner(), &otherList);
}

TEST(MaterialLifetime, DestructionClearsRegisteredSlots) {
    CQvxSezMaterialu list;
    auto material = std::make_unique<CQvxMaterial>(&list, u"PP", kPlacementAll, kMediumAll);
    CQvxMaterial* slot = material.get();
    material->Users().Register(&slot);
    EXPECT_FALSE(material->Users().IsEmpty());
    material.reset();
    EXPECT_EQ(slot, nullptr);
}

}  // namespace
