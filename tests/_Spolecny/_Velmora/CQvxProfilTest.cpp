#include "_Velmora/CQvxProfil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>

#include "TextCodec.h"

#include "support/MaterialFixture.h"
#include "support/ThrownText.h"

namespace {

using ProfileLabels = MaterialFixture;

// Numbers round as printf rounds the exact binary value: half to even.
TEST_F(ProfileLabels, FollowTheModeAndItsAffixesAndRoundLikePrintf) {
    const DescriptionMode unknown = static_cast<DescriptionMode>(7);  // taken as custom
    const struct {
        DescriptionMode mode;
        bool onInner;
        const char16_t* prefix;
        const char16_t* suffix;
        int dnIndex;
        float inner;
        float wall;
        const char16_t* label;
        const char16_t* shortLabel;
    } cases[] = {
        {DescriptionMode::DxT, false, u"", u"", 11, 96.8f, 6.6f, u"110x6.6", u"d110"},
        {DescriptionMode::Dn, false, u"", u"", 27, 1187.3f, 12.0f, u"DN 1200", u"1200"},  // the table's DN
        {DescriptionMode::Custom, true, u"DN", u"mm", 11, 96.8f, 6.6f, u"DN97mm", u"d110"},
        {DescriptionMode::Custom, false, u"d", u"/PE", 11, 96.8f, 6.6f, u"d110/PE", u"d110"},
        {unknown, false, u"x", u"", 8, 57.0f, 3.0f, u"x63", u"d63"},
        {DescriptionMode::DxT, false, u"", u"", 0, 2.5f, 0.0f, u"2x0.0", u"d2"},     // 2.5 is exact
        {DescriptionMode::DxT, false, u"", u"", 0, 3.0f, 0.25f, u"4x0.2", u"d4"},    // 3.5 and 0.25 are exact
        {DescriptionMode::DxT, false, u"", u"", 0, 0.0f, 6.65f, u"13x6.7", u"d13"},  // 6.65f is 6.6500000953...
        {DescriptionMode::DxT, false, u"", u"", 0, 0.0f, 0.35f, u"1x0.3", u"d1"},    // 0.35f is 0.3499999940...
        {DescriptionMode::DxT, false, u"", u"", 0, -0.3f, 0.1f, u"-0x0.1", u"d-0"},  // the sign of -0.1 stays
        {DescriptionMode::DxT, false, u"", u"", 0, 0.0f, -0.04f, u"-0x-0.0", u"d-0"},
        {DescriptionMode::DxT, false, u"", u"", 0, INFINITY, 1.0f, u"infx1.0", u"dinf"},
        {DescriptionMode::DxT, false, u"", u"", 0, 1.0f, NAN, u"nanxnan", u"dnan"},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(ToUtf8(expected.label));
        material.DeleteAllProfiles();
        Describe(expected.mode, 0, expected.onInner, expected.prefix, expected.suffix);
        CQvxProfil* profile = material.AddProfile(expected.dnIndex);
        profile->SetDimensions(expected.inner, expected.wall);
        EXPECT_EQ(profile->Label(), expected.label);
        EXPECT_EQ(profile->ShortLabel(), expected.shortLabel);
    }
}

// Labels are built without printf; they must still read exactly as printf writes the numbers.
TEST_F(ProfileLabels, LabelsMatchPrintfOverManyValues) {
    Describe(DescriptionMode::DxT);
    CQvxProfil* profile = material.AddProfile(11);
    std::mt19937 random(1234);
    std::uniform_int_distribution<int> eighths(0, 72000);         // ties at .5 and .05 included
    std::uniform_real_distribution<float> any(-900.0f, 9000.0f);  // short labels hold "d" and 4 more
    for (int i = 0; i < 20000; ++i) {
        const float inner = i % 2 == 0 ? static_cast<float>(eighths(random)) / 8.0f : any(random);
        const float wall = i % 2 == 0 ? static_cast<float>(eighths(random) % 800) / 80.0f : any(random) / 100.0f;
        profile->SetDimensions(inner, wall);
        const float outer = inner + wall + wall;
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.0fx%.1f", double(outer), double(wall));
        ASSERT_EQ(ToUtf8(profile->Label()), expected) << inner << " " << wall;
        std::snprintf(expected, sizeof expected, "d%.0f", double(outer));
        ASSERT_EQ(ToUtf8(profile->ShortLabel()), expected);
    }
}

TEST_F(ProfileLabels, LabelsThatDoNotFitThrowWithTheFormatLine) {
    Describe(DescriptionMode::DxT);
    CQvxProfil* profile = material.AddProfile(11);
    EXPECT_EQ(ThrownText([&] { profile->SetDimensions(99990.0f, 10.0f); }),
              MaterialError(u"Nepodařilo se vytvořit popis", 36));
    // Outer diameter 0 keeps the short label small while the long one overflows 14 characters.
    EXPECT_EQ(ThrownText([&] { profile->SetDimensions(-2e10f, 1e10f); }),
              MaterialError(u"Nepodařilo se vytvořit popis", 41));

    profile->SetDimensions(104.0f, 3.0f);  // the failed calls kept their values; make the labels fit again
    Describe(DescriptionMode::Custom, 0, true, u"ABCD", u"EFGH");
    EXPECT_EQ(ThrownText([&] { profile->SetDimensions(1234567.0f, -617283.5f); }),
              MaterialError(u"Nepodařilo se vytvořit popis", 47));
}

TEST_F(ProfileLabels, DnLabelOfAProfileWithoutIndexThrows) {
    Describe(DescriptionMode::Dn);
    CQvxProfil unread(material);  // as a file read starts it: DN index -1
    EXPECT_EQ(ThrownText([&] { unread.BuildLabels(); }), MaterialError(u"Nepodařilo se vytvořit popis", 28));
}

using ProfileRecord = MaterialFixture;

TEST_F(ProfileRecord, SetDnMovesTheProfileToAFreeKeyOnly) {
    Describe(DescriptionMode::Dn);
    CQvxProfil* profile = material.AddProfile(11);
    material.AddProfile(12);
    for (const int refused : {11, 12, 28, -1}) EXPECT_FALSE(profile->SetDN(refused, true)) << refused;
    EXPECT_EQ(profile->DnIndex(), 11);
    EXPECT_EQ(material.FindProfile(11), profile);

    ASSERT_TRUE(profile->SetDN(13, false));
    EXPECT_EQ(material.FindProfile(11), nullptr);
    EXPECT_EQ(material.FindProfile(13), profile);
    EXPECT_FLOAT_EQ(profile->InnerDiameter(), 100.0f);  // kept: not taken from the table
    EXPECT_EQ(profile->Label(), u"DN 150");
    ASSERT_TRUE(profile->SetDN(15, true));
    EXPECT_FLOAT_EQ(profile->InnerDiameter(), 225.0f);
    EXPECT_EQ(material.Profiles().size(), 2u);
}

TEST_F(ProfileRecord, MaterialCodeHoldsNineCharacters) {
    CQvxProfil* profile = material.AddProfile(3);
    profile->SetUrsMaterialCode(u"286111111");
    EXPECT_EQ(profile->UrsMaterialCode(), u"286111111");
    EXPECT_EQ(ThrownText([&] { profile->SetUrsMaterialCode(u"2861111112"); }),
              MaterialError(u"Chyba kopírování řetězce", 155));
    EXPECT_EQ(profile->UrsMaterialCode(), u"286111111");
}

TEST_F(ProfileRecord, CopyKeepsTheMaterialCodeAndWidthDropsTheInstallCodeAndDestructionClearsSlots) {
    CQvxProfil* source = material.AddProfile(11);
    source->SetDimensions(96.8f, 6.6f);
    source->SetUrsMaterialCode(u"M1");
    source->SetUrsInstallCode(u"I1");
    source->SetWidth(640);
    CQvxProfil* slot = source;
    source->Users().Register(&slot);

    CQvxMaterial other(&list, u"Other", kPlacementAll, kMediumAll);
    CQvxProfil copy(other, *source);
    EXPECT_EQ(copy.DnIndex(), 11);
    EXPECT_FLOAT_EQ(copy.InnerDiameter(), 96.8f);
    EXPECT_FLOAT_EQ(copy.Wall(), 6.6f);
    EXPECT_EQ(copy.UrsMaterialCode(), u"M1");
    EXPECT_EQ(copy.UrsInstallCode(), u"");
    EXPECT_EQ(copy.Width(), 640);
    EXPECT_EQ(copy.Users().Count(), 1u);
    EXPECT_EQ(copy.Label(), u"110x6.6");
    EXPECT_EQ(copy.Owner(), &other);
    CQvxProfil* second = slot;
    source->Users().Register(&second);
    material.DeleteAllProfiles();  // destruction clears every registered slot
    EXPECT_EQ(slot, nullptr);
    EXPECT_EQ(second, nullptr);
    copy.Users().Unregister(&slot);  // the copy took the source's users and outlives this test's slots
}

TEST_F(ProfileRecord, EveryChangeMarksTheCatalogueChanged) {
    CQvxProfil* profile = material.AddProfile(5);
    const auto expectChangedBy = [&](auto change) {
        list.SetUnchanged(true);
        change();
        EXPECT_FALSE(list.IsUnchanged());
    };
    expectChangedBy([&] { profile->SetWall(2.0f); });
    expectChangedBy([&] { profile->SetInnerDiameter(20.0f); });
    expectChangedBy([&] { profile->SetWidth(1); });
    expectChangedBy([&] { profile->SetUrsMaterialCode(u"A"); });
    expectChangedBy([&] { profile->BuildLabels(); });
    expectChangedBy([&] { profile->SetDN(6, false); });
    expectChangedBy([&] { material.SetClassIndexes(-1, -1); });
}

}  // namespace
