// The material dialogs' decisions without windows: filters, display order, edit modes, layouts,
// the field buffer and applying an edit to the list.

#include <gtest/gtest.h>

#include <vector>

#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/MaterialEditRules.h"
#include "_Velmora/MaterialFilter.h"
#include "support/CatalogueBuilding.h"
#include "support/RecordSummary.h"
#include "support/ThrownText.h"

namespace {

std::vector<std::u16string> NamesOf(const std::vector<CQvxMaterial*>& materials) {
    std::vector<std::u16string> names;
    for (const CQvxMaterial* material : materials) names.push_back(material->UniqueName());
    return names;
}

CQvxMaterial& AddWithMasks(CQvxSezMaterialu& list, std::u16string_view name, int32_t placement, int32_t medium) {
    CQvxMaterial& material = AddMaterial(list, name);
    EditMaterial(material, [&](MaterialExchangeRecord& record) {
        record.placement = placement;
        record.medium = medium;
    });
    return material;
}

TEST(MaterialFilter, RadiosAndMasksMapBothWays) {
    const int32_t mediumMasks[] = {1, 2, 4, 8, 16, 31};
    for (int radio = 0; radio < 6; ++radio) {
        EXPECT_EQ(MediumMaskForRadio(radio), mediumMasks[radio]);
        EXPECT_EQ(MediumRadioForMask(mediumMasks[radio]), radio);
    }
    EXPECT_EQ(MediumMaskForRadio(-1), 31);     // none checked
    EXPECT_EQ(MediumRadioForMask(4 | 16), 2);  // the lowest set bit
    EXPECT_EQ(MediumRadioForMask(2 | 8), 1);

    const int32_t placementMasks[] = {1, 2, 3};
    for (int radio = 0; radio < 3; ++radio) {
        EXPECT_EQ(PlacementMaskForRadio(radio), placementMasks[radio]);
        EXPECT_EQ(PlacementRadioForMask(placementMasks[radio]), radio);
    }
    EXPECT_EQ(PlacementMaskForRadio(-1), 3);
    EXPECT_EQ(PlacementMaskForRadio(3), 3);
    EXPECT_EQ(MediumMaskForRadio(6), 31);
}

TEST(MaterialFilter, ListsMaterialsSharingABitWithEachMaskInKeyOrder) {
    CQvxSezMaterialu list;
    AddWithMasks(list, u"Voda a kanál", 2, 1 | 4);
    AddWithMasks(list, u"Plyn ZTI", 1, 8);
    AddWithMasks(list, u"Teplo", 3, 16);
    struct Case {
        UsageFilter filter;
        std::vector<std::u16string> listed;
    };
    for (const Case& c : {Case{{3, 1}, {u"Voda a kanál"}}, Case{{3, 4}, {u"Voda a kanál"}}, Case{{3, 8}, {u"Plyn ZTI"}},
                          Case{{3, 31}, {u"Plyn ZTI", u"Teplo", u"Voda a kanál"}},
                          Case{{1, 31}, {u"Plyn ZTI", u"Teplo"}}, Case{{2, 2}, {}}}) {
        EXPECT_EQ(NamesOf(ListedMaterials(list, c.filter)), c.listed) << c.filter.placement << " " << c.filter.medium;
    }
}

TEST(DisplayOrder, IgnoresCaseTheCzechWayThenComparesCodes) {
    CQvxSezMaterialu list;
    for (const char16_t* name : {u"Dno", u"Čep", u"abc", u"Abd", u"ABC", u"čas"}) AddMaterial(list, name);
    std::vector<CQvxMaterial*> rows = ListedMaterials(list, {});
    EXPECT_EQ(NamesOf(rows), (std::vector<std::u16string>{u"ABC", u"Abd", u"Dno", u"abc", u"Čep", u"čas"}));
    SortForDisplay(rows);
    EXPECT_EQ(NamesOf(rows), (std::vector<std::u16string>{u"ABC", u"abc", u"Abd", u"Dno", u"čas", u"Čep"}));

    EXPECT_TRUE(DisplayOrderLess(u"abc", u"Abd"));
    EXPECT_TRUE(DisplayOrderLess(u"ABC", u"abc"));  // equal but for case: code units decide
    EXPECT_FALSE(DisplayOrderLess(u"abc", u"ABC"));
    EXPECT_FALSE(DisplayOrderLess(u"abc", u"abc"));
    EXPECT_TRUE(DisplayOrderLess(u"zz", u"Čep"));
    EXPECT_EQ(CzechLowered(u"ŽLUŤOUČKÝ KŮŇ Ě Ď Ň Ř Š Ť Ú Ů Ý Á É Í Ó ĹĽŔ ĀĶŊŶŹ ÀÖØÞ × Ÿ İ ΑΩ ЀЏАЯ"),
              u"žluťoučký kůň ě ď ň ř š ť ú ů ý á é í ó ĺľŕ āķŋŷź àöøþ × ÿ i αω ѐџая");
    EXPECT_EQ(CzechLowered(u"ı ĸ ŉ ſ ß 1-[]"), u"ı ĸ ŉ ſ ß 1-[]");

    // Typing in the list: from the start row on, case ignored, round to the top only with wrap.
    EXPECT_EQ(FindRowStartingWith(rows, u"AB", 2, false), 2);
    EXPECT_EQ(FindRowStartingWith(rows, u"ab", 3, false), -1);
    EXPECT_EQ(FindRowStartingWith(rows, u"ab", 3, true), 0);
    EXPECT_EQ(FindRowStartingWith(rows, u"Č", 0, false), 4);
}

TEST(MaterialEditModes, TransitionsFollowTheCommands) {
    using E = EditEvent;
    using M = EditMode;
    struct Case {
        M from;
        E event;
        bool marked;
        M to;
    };
    for (const Case& c :
         {Case{M::Browse, E::AddPressed, false, M::Add}, Case{M::Browse, E::CopyPressed, true, M::Copy},
          Case{M::Browse, E::CopyPressed, false, M::Browse}, Case{M::Browse, E::EditPressed, true, M::Edit},
          Case{M::Browse, E::EditPressed, false, M::Browse}, Case{M::Edit, E::AddPressed, true, M::Edit},
          Case{M::Add, E::CopyPressed, true, M::Add}, Case{M::Add, E::ApplyAccepted, false, M::Browse},
          Case{M::Copy, E::ApplyRefused, true, M::Copy}, Case{M::Edit, E::RevertPressed, true, M::Browse},
          Case{M::Copy, E::ListRefilled, true, M::Browse}, Case{M::Edit, E::ListRefilled, true, M::Browse},
          Case{M::Add, E::ListRefilled, false, M::Add}}) {
        EXPECT_EQ(NextEditMode(c.from, c.event, c.marked), c.to)
            << static_cast<int>(c.from) << " event " << static_cast<int>(c.event);
    }
}

TEST(MaterialEditModes, EditingLayoutIsTheReverseOfBrowsing) {
    const EditorGroup others[] = {EditorGroup::MaterialList, EditorGroup::MaterialCommands, EditorGroup::FilterRadios,
                                  EditorGroup::LoadCommands, EditorGroup::ProfilePane};
    for (EditMode mode : {EditMode::Add, EditMode::Copy, EditMode::Edit}) {
        EXPECT_TRUE(LayoutOf(EditorGroup::MaterialFields, mode).enabled);
        EXPECT_TRUE(LayoutOf(EditorGroup::ApplyButtons, mode).enabled);
        EXPECT_TRUE(LayoutOf(EditorGroup::ApplyButtons, mode).visible);
        for (EditorGroup group : others) EXPECT_FALSE(LayoutOf(group, mode).enabled);
    }
    EXPECT_FALSE(LayoutOf(EditorGroup::MaterialFields, EditMode::Browse).enabled);
    EXPECT_TRUE(LayoutOf(EditorGroup::MaterialFields, EditMode::Browse).visible);
    EXPECT_FALSE(LayoutOf(EditorGroup::ApplyButtons, EditMode::Browse).visible);
    for (EditorGroup group : others) {
        EXPECT_TRUE(LayoutOf(group, EditMode::Browse).enabled);
        EXPECT_TRUE(LayoutOf(group, EditMode::Browse).visible);
    }
    EXPECT_FALSE(LayoutOf(EditorGroup::ProfilePane, EditMode::Browse, false).enabled);  // no material shown
}

TEST(MaterialFields, BufferOfAMaterialAndOfANewOne) {
    CQvxSezMaterialu list;
    CQvxMaterial& material = AddMaterial(list, u"PE 100");
    EditMaterial(material, [](MaterialExchangeRecord& record) {
        record.roughness = 0.5;
        record.pnIndex = 3;
        record.sdrIndex = 4;
        record.descriptionMode = DescriptionMode::Dn;
    });
    // The roughness goes to the edit as text.
    EXPECT_EQ(Summary(FieldsOf(material)), "PE 100 () '' '' 3/31 k -1000 3/4 mode 0 outer '' '' shape 0 '0.50000'");
    EXPECT_EQ(Summary(NewMaterialFields(DescriptionMode::Custom)),
              " () '' '' 3/31 k -1000 0/0 mode 2 outer '' '' shape 0 '0.01'");
}

TEST(MaterialFields, DisplayNameTakesTheUniqueNameOnlyWhenBlank) {
    struct Case {
        const char16_t* display;
        bool transfer;
        const char16_t* after;
    };
    for (const Case& c :
         {Case{u"", true, u"PE 100"}, Case{u"  \t ", true, u"PE 100"}, Case{u"  Trubka ", false, u"Trubka"}}) {
        MaterialExchangeRecord fields = NewMaterialFields(DescriptionMode::DxT);
        fields.uniqueName = u"PE 100";
        fields.displayName = c.display;
        EXPECT_EQ(TakeDisplayNameFromUniqueName(fields), c.transfer);
        EXPECT_EQ(fields.displayName, c.after);
    }
    EXPECT_TRUE(MustRecheckUsageBox(0));
    EXPECT_FALSE(MustRecheckUsageBox(2));
}

class ApplyEdit : public ::testing::Test {
protected:
    ApplyEdit() {
        EditMaterial(pe, [](MaterialExchangeRecord&) {});  // PN and SDR rows "---", as the editor shows them
        pe.AddProfile(3);
        pe.AddProfile(11);
        list.SetUnchanged(true);
    }

    MaterialExchangeRecord FieldsNamed(std::u16string_view name, const CQvxMaterial* from = nullptr) {
        MaterialExchangeRecord fields = from != nullptr ? FieldsOf(*from) : NewMaterialFields(DescriptionMode::DxT);
        fields.uniqueName = name;
        return fields;
    }

    CQvxSezMaterialu list;
    CQvxMaterial& pe = AddMaterial(list, u"PE");
    CQvxMaterial& pvc = AddMaterial(list, u"PVC");
};

TEST_F(ApplyEdit, RefusalsLeaveTheListAsItWas) {
    struct Case {
        EditMode mode;
        const char16_t* name;
        ApplyOutcome outcome;
        const char16_t* text;
    };
    for (const Case& c :
         {Case{EditMode::Add, u"", ApplyOutcome::EmptyName, u"Název nesmí být prázdný"},
          Case{EditMode::Edit, u"", ApplyOutcome::EmptyName, u"Název nesmí být prázdný"},
          Case{EditMode::Copy, u"PE", ApplyOutcome::NameTakenOnAdd,
               u"Tento název již existuje u jiného materiálu, možná jen není zobrazen\n(přepněte filtry)"},
          Case{EditMode::Add, u"PVC", ApplyOutcome::NameTakenOnAdd,
               u"Tento název již existuje u jiného materiálu, možná jen není zobrazen\n(přepněte filtry)"},
          Case{EditMode::Edit, u"PVC", ApplyOutcome::NameTakenOnRename,
               u"Tento název již existuje u jiného materiálu"}}) {
        const ApplyResult result = ApplyMaterialEdit(list, c.mode, FieldsNamed(c.name, &pe), &pe);
        EXPECT_EQ(result.outcome, c.outcome) << static_cast<int>(c.mode);
        EXPECT_EQ(result.material, nullptr);
        EXPECT_EQ(ApplyRefusalText(c.outcome), c.text);
        EXPECT_EQ(list.Count(), 2u);
        EXPECT_EQ(list.Find(u"PE"), &pe);
        EXPECT_TRUE(list.IsUnchanged());
    }
    EXPECT_EQ(ApplyRefusalText(ApplyOutcome::Applied), u"");

    MaterialExchangeRecord noClass = FieldsNamed(u"Beton");
    noClass.pnIndex = -1;  // a drop-down without a choice: the new material's fields are refused
    EXPECT_NE(ThrownText([&] { ApplyMaterialEdit(list, EditMode::Add, noClass, nullptr); }), u"<nothing thrown>");
    EXPECT_EQ(list.Find(u"Beton"), nullptr);
    EXPECT_EQ(list.Count(), 2u);
}

TEST_F(ApplyEdit, AddAndCopyMakeNewMaterialsCopyTakingTheProfiles) {
    MaterialExchangeRecord added = FieldsNamed(u"Litina");
    added.manufacturer = u"Slévárna";
    added.medium = 4;
    const ApplyResult add = ApplyMaterialEdit(list, EditMode::Add, added, nullptr);
    ASSERT_EQ(add.outcome, ApplyOutcome::Applied);
    EXPECT_EQ(add.material, list.Find(u"Litina"));
    EXPECT_EQ(add.material->Manufacturer(), u"Slévárna");
    EXPECT_EQ(add.material->Medium(), 4);
    EXPECT_EQ(add.material->Placement(), 3);
    EXPECT_FALSE(list.IsUnchanged());

    const ApplyResult copy = ApplyMaterialEdit(list, EditMode::Copy, FieldsNamed(u"PE kopie", &pe), &pe);
    ASSERT_EQ(copy.outcome, ApplyOutcome::Applied);
    ASSERT_NE(copy.material, &pe);
    EXPECT_EQ(copy.material->Profiles().size(), 2u);
    EXPECT_NE(copy.material->FindProfile(11), pe.FindProfile(11));
    EXPECT_EQ(pe.Profiles().size(), 2u);
}

TEST_F(ApplyEdit, EditRenamesAndAcceptsItsOwnName) {
    const ApplyResult same = ApplyMaterialEdit(list, EditMode::Edit, FieldsNamed(u"PE", &pe), &pe);
    EXPECT_EQ(same.outcome, ApplyOutcome::Applied);
    EXPECT_FALSE(list.IsUnchanged());

    MaterialExchangeRecord renamed = FieldsNamed(u"PE-HD", &pe);
    renamed.shape = ProfileShape::Rectangle;
    const ApplyResult rename = ApplyMaterialEdit(list, EditMode::Edit, renamed, &pe);
    EXPECT_EQ(rename.material, &pe);
    EXPECT_EQ(list.Find(u"PE-HD"), &pe);
    EXPECT_EQ(list.Find(u"PE"), nullptr);
    EXPECT_EQ(pe.Shape(), ProfileShape::Rectangle);

    EXPECT_EQ(
        ThrownText([&] { ApplyMaterialEdit(list, EditMode::Edit, FieldsNamed(u"123456789012345678901", &pe), &pe); }),
        MaterialError(u"Příliš dlouhý název", 202));
    EXPECT_EQ(
        ThrownText([&] { ApplyMaterialEdit(list, EditMode::Edit, FieldsNamed(u"12345678901234567890", &pe), &pe); }),
        u"<nothing thrown>");
}

TEST_F(ApplyEdit, HandingBackPointsTheUsersAtTheCallersNewRecords) {
    CQvxMaterial* usedMaterial = nullptr;
    CQvxProfil* usedProfile = nullptr;
    CQvxSezMaterialu callers;
    AddMaterial(callers, u"PE");
    pe.Users().Register(&usedMaterial);
    pe.FindProfile(11)->Users().Register(&usedProfile);

    HandBackToCaller(list, callers);
    ASSERT_NE(callers.Find(u"PE"), nullptr);
    EXPECT_EQ(usedMaterial, callers.Find(u"PE"));
    EXPECT_EQ(usedProfile, callers.Find(u"PE")->FindProfile(11));
    EXPECT_TRUE(pe.Users().IsEmpty());  // the working copy no longer counts as used
    EXPECT_EQ(callers.Count(), 2u);
    callers.ClearUsage();
}

}  // namespace
