#include "_Velmora/CQvxMaterial.h"

#include <gtest/gtest.h>

#include "TextCodec.h"
#include "support/MaterialFixture.h"
#include "support/RecordSummary.h"
#include "support/ThrownText.h"

namespace {

TEST(MaterialConstruction, NewMaterialTakesZeroMasksAsAllWithTheDefaultRoughnessAndShape) {
    CQvxSezMaterialu list;
    const CQvxMaterial created(&list, u"PVC KG", 0, 0);
    EXPECT_EQ(created.Placement(), kPlacementAll);
    EXPECT_EQ(created.Medium(), kMediumAll);
    EXPECT_EQ(created.Roughness(), 0.00001f);
    EXPECT_EQ(created.Shape(), ProfileShape::Circle);
}

TEST(AddProfileDefaults, FollowTheDnTheLabelModeAndTheSdrRow) {
    const float sdrWall = 110.0f / 7.2f;  // "SDr 7.4" carries 7.2
    const struct {
        DescriptionMode mode;
        int sdrIndex;  // -1: the new material's, never edited
        int dnIndex;
        float wall;
        float inner;
        const char16_t* label;
    } cases[] = {
        {DescriptionMode::Dn, 0, 18, 3.0f, 350.0f, u"DN 350"},    // a wall of 3 below DN 400
        {DescriptionMode::Dn, 0, 19, 5.0f, 400.0f, u"DN 400"},    // and of 5 from it
        {DescriptionMode::DxT, 0, 11, 3.0f, 104.0f, u"110x3.0"},  // outer-diameter modes derive the inner one
        {DescriptionMode::DxT, 2, 11, sdrWall, 110.0f - 2.0f * sdrWall, u"110x15.3"},
        {DescriptionMode::DxT, -1, 20, 5.0f, 440.0f, u"450x5.0"},  // no SDR row at all: the default wall
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(ToUtf8(expected.label));
        CQvxSezMaterialu list;
        CQvxMaterial material(&list, u"PE", kPlacementAll, kMediumAll);
        if (expected.sdrIndex >= 0) {
            EditMaterial(material, [&](MaterialExchangeRecord& record) {
                record.descriptionMode = expected.mode;
                record.sdrIndex = expected.sdrIndex;
            });
        }
        const CQvxProfil* profile = material.AddProfile(expected.dnIndex);
        EXPECT_EQ(profile->Wall(), expected.wall);
        EXPECT_EQ(profile->InnerDiameter(), expected.inner);
        EXPECT_EQ(profile->Label(), expected.label);
    }
}

using AddProfile = MaterialFixture;

TEST_F(AddProfile, AddAndDeleteRefuseATakenUsedOrUnknownIndex) {
    CQvxProfil* used = material.AddProfile(4);
    ASSERT_NE(material.AddProfile(5), nullptr);
    used->Users().Register(&used);
    list.SetUnchanged(true);
    for (const int refused : {4, 28, -1}) EXPECT_EQ(material.AddProfile(refused), nullptr) << refused;
    EXPECT_FALSE(material.DeleteProfile(4));  // in use
    EXPECT_FALSE(material.DeleteProfile(6));
    EXPECT_TRUE(list.IsUnchanged());
    EXPECT_TRUE(material.DeleteProfile(5));
    EXPECT_FALSE(list.IsUnchanged());
    EXPECT_EQ(material.Profiles().size(), 1u);
    material.FindProfile(4)->Users().Unregister(&used);
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
    EXPECT_EQ(
        Summary(material),  // the labels follow the new rules
        "PE (PE 100) 'Tlakové potrubí' 'vvvvvvvvvvvvvvvvvvvvvvvvv' 3/12 k 0.01 3/4 mode 2 outer 'PE' 'mm' shape 4 "
        "#-2\n"
        "11: 104 x 3, 0, '' '' [PE110mm d110]");
    EditMaterial(material, [](MaterialExchangeRecord& changed) { changed.onInnerDiameter = true; });
    EXPECT_EQ(material.FindProfile(11)->Label(), u"PE104mm");  // that alone rebuilds the labels
    EditMaterial(material, [](MaterialExchangeRecord& changed) { changed.prefix = u"P"; });
    EXPECT_EQ(material.FindProfile(11)->Label(), u"P104mm");  // and so does the prefix alone
    // A roughness of -1000 means "take it from the text". A change that leaves the labels is a change too.
    for (const auto& [text, roughness] : {std::pair{u" 0.25 mm", 0.25f}, std::pair{u"drsnost", 0.0f}}) {
        list.SetUnchanged(true);
        EditMaterial(material, [text = text](MaterialExchangeRecord& changed) {
            changed.roughness = MaterialExchangeRecord::kRoughnessFromText;
            changed.roughnessText = text;
        });
        EXPECT_EQ(material.Roughness(), roughness);
        EXPECT_FALSE(list.IsUnchanged());
    }
}

TEST_F(ExchangeRecord, RefusalsCarryTheirLines) {
    using Change = void (*)(MaterialExchangeRecord&);
    const struct {
        Change change;
        const char16_t* message;
        int line;
    } refusals[] = {
        {[](MaterialExchangeRecord& r) { r.uniqueName = u"pe"; }, u"Jméno materiálu v předané struktuře nesouhlasí",
         211},
        {[](MaterialExchangeRecord& r) { r.manufacturer = std::u16string(26, u'v'); }, u"Příliš dlouhý výrobce", 212},
        {[](MaterialExchangeRecord& r) { r.prefix = u"12345"; }, u"Chyba při kopírování řetězce v paměti", 232},
        {[](MaterialExchangeRecord& r) { r.suffix = u"12345"; }, u"Chyba při kopírování řetězce v paměti", 234},
    };
    for (const auto& refusal : refusals) {
        EXPECT_EQ(ThrownText([&] { EditMaterial(material, refusal.change); }),
                  MaterialError(refusal.message, refusal.line));
    }
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

TEST_F(MaterialComparison, IsEqualUsesExactNamesAndProfilesWithinTolerances) {
    material.AddProfile(11)->SetDimensions(100.0f, 5.0f);
    CQvxMaterial other(&list, material);
    EXPECT_TRUE(material.IsEqual(other));

    // Fields outside the comparison do not matter.
    EditMaterial(other, [](MaterialExchangeRecord& record) {
        record.pnIndex = 4;
        record.sdrIndex = 4;
        record.roughness = 2.0;
        record.medium = kMediumGas;
    });
    EXPECT_TRUE(material.IsEqual(other));

    CQvxProfil* theirs = other.FindProfile(11);
    const struct {
        float inner;
        float wall;
        bool equal;
    } dimensions[] = {
        {100.0009f, 5.0f, true}, {100.002f, 5.0f, false}, {100.0f, 5.00005f, true}, {100.0f, 5.0002f, false}};
    for (const auto& [inner, wall, equal] : dimensions) {
        theirs->SetDimensions(inner, wall);
        EXPECT_EQ(material.IsEqual(other), equal) << inner << " x " << wall;
    }
    theirs->SetDimensions(100.0f, 5.0f);
    theirs->SetUrsMaterialCode(u"X");
    EXPECT_FALSE(material.IsEqual(other));
    theirs->SetUrsMaterialCode(u"");
    other.AddProfile(12);
    EXPECT_FALSE(material.IsEqual(other));

    // Names compare exactly.
    CQvxMaterial maker(&list, material);
    EditMaterial(maker, [](MaterialExchangeRecord& record) { record.manufacturer = u"Jiný výrobce"; });
    EXPECT_FALSE(material.IsEqual(maker));
    CQvxMaterial displayName(&list, material);
    EditMaterial(displayName, [](MaterialExchangeRecord& record) { record.displayName = u"pe"; });
    EXPECT_FALSE(material.IsEqual(displayName));
}

TEST_F(MaterialComparison, CopyKeepsEveryFieldProfileAndUser) {
    Describe(DescriptionMode::Custom, 4, true, u"A", u"B");
    EditMaterial(material, [](MaterialExchangeRecord& record) { record.shape = ProfileShape::EggPrague; });
    material.SetFileIndex(7);
    CQvxProfil* profile = material.AddProfile(2);
    profile->SetWidth(640);
    profile->SetUrsMaterialCode(u"M1");
    profile->SetUrsInstallCode(u"I1");
    CQvxMaterial* slot = &material;
    material.Users().Register(&slot);

    CQvxSezMaterialu otherList;
    otherList.SetUnchanged(true);
    CQvxMaterial copy(&otherList, material);
    EXPECT_EQ(Summary(copy),
              "PE () '' '' 3/31 k 1e-05 0/4 mode 2 inner 'A' 'B' shape 2 #7\n"
              "2: 14.727273 x 1.6363636, 640, 'M1' 'I1' [A15B d18]");
    EXPECT_TRUE(otherList.IsUnchanged());
    EXPECT_EQ(copy.Users().Count(), 1u);
    EXPECT_EQ(copy.FindProfile(2)->Owner(), &copy);
    EXPECT_EQ(copy.Owner(), &otherList);
}

}  // namespace
