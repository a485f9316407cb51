// The profile pane's rules: cell texts, the free DN search and how an edited cell changes a profile.

#include <gtest/gtest.h>

#include <stdexcept>

#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/ProfileEditRules.h"
#include "support/CatalogueBuilding.h"

namespace {

constexpr int kDn8 = 0, kDn10 = 1, kDn12 = 2, kDn80 = 10, kDn100 = 11, kDn125 = 12, kDn1000 = 26, kDn1200 = 27;

class ProfilePane : public ::testing::Test {
protected:
    CQvxProfil& ProfileAt(int dnIndex, float inner, float wall) {
        CQvxProfil* profile = material.FindProfile(dnIndex);
        if (profile == nullptr) profile = material.AddProfile(dnIndex);
        profile->SetDimensions(inner, wall);
        return *profile;
    }

    CQvxSezMaterialu list;
    CQvxMaterial& material = AddMaterial(list, u"PE");
};

TEST_F(ProfilePane, CellTextsFollowTheShape) {
    CQvxProfil& profile = ProfileAt(kDn100, 102.6f, 3.7f);
    profile.SetWidth(640);
    const char16_t* circle[] = {u"110x3.7", u"110", u"3.70", u"102.6", u"DN 100", u"103"};
    for (int column = 0; column < 6; ++column) {
        EXPECT_EQ(ProfileCellText(profile, ProfileShape::Circle, column), circle[column]) << column;
    }
    EXPECT_EQ(ProfileCellText(profile, ProfileShape::Rectangle, kWidthColumn), u"640");
    EXPECT_EQ(InnerColumnTitle(ProfileShape::Circle), u"ID");
    EXPECT_EQ(InnerColumnTitle(ProfileShape::EggVienna), u"Výška");
}

TEST_F(ProfilePane, FreeDnIsSearchedUpwardFromTheStart) {
    ProfileAt(3, 15, 1);
    ProfileAt(4, 20, 1);
    EXPECT_EQ(FindFreeDnIndex(material, 3), 5);
    EXPECT_EQ(FindFreeDnIndex(material, 0), 0);
    EXPECT_EQ(FindFreeDnIndex(material, kDn1200), kDn1200);
    material.GenerateSeries(0, kDn1200);
    EXPECT_EQ(FindFreeDnIndex(material, 0), std::nullopt);
    EXPECT_EQ(FindFreeDnIndex(material, 20), std::nullopt);
}

TEST_F(ProfilePane, NumbersAreReadAsTheStandardConversionReadsThem) {
    EXPECT_DOUBLE_EQ(ParseCellNumber(u" 72.5"), 72.5);
    EXPECT_DOUBLE_EQ(ParseCellNumber(u"12mm"), 12.0);
    for (const char16_t* text : {u"", u"abc", u"."}) {
        try {
            ParseCellNumber(text);
            ADD_FAILURE() << "no throw";
        } catch (const std::invalid_argument& failure) {
            EXPECT_STREQ(failure.what(), "invalid stod argument");
        }
    }
    try {
        ParseCellNumber(u"1e999");
        ADD_FAILURE() << "no throw";
    } catch (const std::out_of_range& failure) {
        EXPECT_STREQ(failure.what(), "stod argument out of range");
    }
    EXPECT_EQ(DnIndexOfLabel(u"DN 100"), kDn100);
    EXPECT_EQ(DnIndexOfLabel(u"DN 101"), -1);
}

// DN 100: neighbours DN 80 and DN 125, so inner diameters inside (72, 137.5) fit.
TEST_F(ProfilePane, InnerDiameterMustFitTheBandOfItsDn) {
    const CQvxProfil& dn100 = ProfileAt(kDn100, 100, 5);
    struct Case {
        const char16_t* text;
        bool accepted;
    };
    for (const Case& c : {Case{u"72", false}, Case{u"72.5", true}, Case{u"137", true}, Case{u"137.5", false}}) {
        const ProfileEdit edit = ValidateProfileEdit(dn100, kInnerColumn, c.text);
        EXPECT_EQ(edit.refusal, c.accepted ? u"" : u"Zadaný průměr neodpovídá zadanému DN, nejprve změňte DN");
    }
    const ProfileEdit kept = ValidateProfileEdit(dn100, kInnerColumn, u"90");  // the outer diameter stays 110
    EXPECT_FLOAT_EQ(kept.innerDiameter, 90);
    EXPECT_FLOAT_EQ(kept.wall, 10);

    // The smallest two and the largest DN have no band; DN 12 and DN 1000 have one.
    for (const int free : {kDn8, kDn10, kDn1200}) {
        EXPECT_TRUE(ValidateProfileEdit(ProfileAt(free, 10, 1), kInnerColumn, u"5000").refusal.empty()) << free;
    }
    EXPECT_FALSE(ValidateProfileEdit(ProfileAt(kDn12, 12, 1), kInnerColumn, u"1").refusal.empty());
    EXPECT_FALSE(ValidateProfileEdit(ProfileAt(kDn1000, 1000, 10), kInnerColumn, u"1400").refusal.empty());
}

TEST_F(ProfilePane, WallAndOuterDiameterKeepTheInnerDiameterInItsBand) {
    const CQvxProfil& dn100 = ProfileAt(kDn100, 100, 5);  // OD 110
    EXPECT_EQ(ValidateProfileEdit(dn100, kWallColumn, u"55").refusal, u"OD - 2x stěna je menší než 0, trubka nemá díru");
    EXPECT_EQ(ValidateProfileEdit(dn100, kWallColumn, u"56").refusal, u"OD - 2x stěna je menší než 0, trubka nemá díru");

    struct Case {
        int column;
        const char16_t* text;
        float inner;
        float wall;
    };
    for (const Case& c : {Case{kWallColumn, u"10", 90, 10},    // ID 90 fits
                          Case{kWallColumn, u"16", 80, 16},    // ID 78 is at or below DN 80: OD grows
                          Case{kWallColumn, u"54.75", 80, 54.75f},  // ID 0.5 still has a hole
                          Case{kOuterColumn, u"120", 110, 5},  // ID 110 fits
                          Case{kOuterColumn, u"160", 125, 17.5f},   // ID 150 is above the band: DN 125
                          Case{kOuterColumn, u"70", 80, -5}}) {     // ID 60 is below it: DN 80
        const ProfileEdit edit = ValidateProfileEdit(dn100, c.column, c.text);
        EXPECT_TRUE(edit.refusal.empty());
        EXPECT_FLOAT_EQ(edit.innerDiameter, c.inner) << c.column;
        EXPECT_FLOAT_EQ(edit.wall, c.wall) << c.column;
    }
    EXPECT_EQ(ValidateProfileEdit(dn100, kWidthColumn, u"640.6").width, 641);

    const CQvxProfil& wide = ProfileAt(kDn100, 130, 5);  // OD 140: a thin wall leaves ID 136, above DN 125
    const ProfileEdit thin = ValidateProfileEdit(wide, kWallColumn, u"2");
    EXPECT_FLOAT_EQ(thin.innerDiameter, 125);
    EXPECT_FLOAT_EQ(thin.wall, 2);
}

TEST_F(ProfilePane, DnTakenByAnotherProfileIsRefused) {
    const CQvxProfil& dn100 = ProfileAt(kDn100, 100, 5);
    ProfileAt(kDn80, 80, 4);
    EXPECT_EQ(ValidateProfileEdit(dn100, kDnColumn, u"DN 80").refusal, u"DN již existuje, zadejte jiné DN");
    EXPECT_TRUE(ValidateProfileEdit(dn100, kDnColumn, u"DN 100").refusal.empty());
    EXPECT_EQ(ValidateProfileEdit(dn100, kDnColumn, u"DN 125").dnIndex, kDn125);
}

TEST_F(ProfilePane, CellChangeStoresWithoutTheBands) {
    const CQvxProfil& dn100 = ProfileAt(kDn100, 100, 5);  // OD 110
    struct Case {
        int column;
        const char16_t* text;
        float inner;
        float wall;
    };
    for (const Case& c : {Case{kOuterColumn, u"500.9", 490, 5},  // whole number only
                          Case{kWallColumn, u"50", 10, 50},
                          Case{kInnerColumn, u"20", 20, 45}}) {
        const ProfileEdit edit = StoredProfileEdit(dn100, c.column, c.text);
        EXPECT_FLOAT_EQ(edit.innerDiameter, c.inner) << c.column;
        EXPECT_FLOAT_EQ(edit.wall, c.wall) << c.column;
    }
    EXPECT_EQ(StoredProfileEdit(dn100, kDnColumn, u"DN 80").dnIndex, kDn80);
    EXPECT_EQ(StoredProfileEdit(dn100, kDnColumn, u"DN 81").dnIndex, -1);
    EXPECT_EQ(StoredProfileEdit(dn100, kWidthColumn, u"12.4").width, 12);
}

// Typed codes go each to its own field, cut to nine characters; codes as they were change nothing.
TEST_F(ProfilePane, TypedCodesAreStoredEachInItsFieldOnlyWhenChanged) {
    CQvxProfil& profile = ProfileAt(kDn100, 100, 5);
    list.SetUnchanged(true);
    EXPECT_TRUE(StoreProfileCodes(profile, u"8011234567", u"2861"));
    EXPECT_EQ(profile.UrsInstallCode(), u"801123456");
    EXPECT_EQ(profile.UrsMaterialCode(), u"2861");
    EXPECT_FALSE(list.IsUnchanged());
    list.SetUnchanged(true);
    EXPECT_FALSE(StoreProfileCodes(profile, u"801123456", u"2861"));
    EXPECT_TRUE(list.IsUnchanged());
    EXPECT_TRUE(StoreProfileCodes(profile, u"801123456", u""));
    EXPECT_EQ(profile.UrsMaterialCode(), u"");
}

}  // namespace
