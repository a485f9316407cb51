// The material dialogs' decisions without windows: filters, display order, edit modes, layouts,
// the field buffer and applying an edit to the list.

#include <gtest/gtest.h>

#include <algorithm>
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

// The radios as the dialog reads them (-1: none checked) give the masks that decide the listing,
// and the masks give back the radios that show them (a mixed mask: its lowest bit).
TEST(MaterialFilter, RadiosListTheMaterialsSharingABitWithEachMaskAndShowTheirMasks) {
    CQvxSezMaterialu list;
    AddUsedFor(list, u"Voda a kanál", 2, 1 | 4);
    AddUsedFor(list, u"Plyn ZTI", 1, 8);
    AddUsedFor(list, u"Teplo", 3, 16);
    struct Case {
        int placementRadio;
        int mediumRadio;
        std::vector<std::u16string> listed;
    };
    for (const Case& c :
         {Case{2, 0, {u"Voda a kanál"}}, Case{2, 2, {u"Voda a kanál"}}, Case{-1, 3, {u"Plyn ZTI"}},
          Case{2, 5, {u"Plyn ZTI", u"Teplo", u"Voda a kanál"}}, Case{3, -1, {u"Plyn ZTI", u"Teplo", u"Voda a kanál"}},
          Case{0, 4, {u"Teplo"}}, Case{0, 6, {u"Plyn ZTI", u"Teplo"}}, Case{1, 1, {}}}) {
        const UsageFilter filter{PlacementMaskForRadio(c.placementRadio), MediumMaskForRadio(c.mediumRadio)};
        EXPECT_EQ(NamesOf(ListedMaterials(list, filter)), c.listed) << c.placementRadio << " " << c.mediumRadio;
        if (c.mediumRadio >= 0 && c.mediumRadio < 6) {
            EXPECT_EQ(MediumRadioForMask(filter.medium), c.mediumRadio);
        }
        if (c.placementRadio >= 0 && c.placementRadio < 3) {
            EXPECT_EQ(PlacementRadioForMask(filter.placement), c.placementRadio);
        }
    }
    EXPECT_EQ(MediumRadioForMask(4 | 16), 2);
    EXPECT_EQ(MediumRadioForMask(2 | 8), 1);
}

TEST(DisplayOrder, IgnoresCaseTheCzechWayThenComparesCodes) {
    CQvxSezMaterialu list;
    for (const char16_t* name : {u"Dno", u"Čep", u"abc", u"Abd", u"ABC", u"čas"}) AddMaterial(list, name);
    std::vector<CQvxMaterial*> rows = ListedMaterials(list, {});
    EXPECT_EQ(NamesOf(rows), (std::vector<std::u16string>{u"ABC", u"Abd", u"Dno", u"abc", u"Čep", u"čas"}));
    SortForDisplay(rows);
    EXPECT_EQ(NamesOf(rows), (std::vector<std::u16string>{u"ABC", u"abc", u"Abd", u"Dno", u"čas", u"Čep"}));
    std::reverse(rows.begin(), rows.end());
    SortForDisplay(rows);
    EXPECT_EQ(NamesOf(rows).front(), u"ABC");

    EXPECT_TRUE(DisplayOrderLess(u"abc", u"Abd"));
    EXPECT_TRUE(DisplayOrderLess(u"ABC", u"abc"));  // equal but for case: code units decide
    EXPECT_FALSE(DisplayOrderLess(u"abc", u"ABC"));
    EXPECT_FALSE(DisplayOrderLess(u"Abd", u"abc"));
    EXPECT_FALSE(DisplayOrderLess(u"abc", u"abc"));
    EXPECT_TRUE(DisplayOrderLess(u"zz", u"Čep"));
    EXPECT_EQ(CzechLowered(u"ŽLUŤOUČKÝ KŮŇ Ě Ď Ň Ř Š Ť Ú Ů Ý Á É Í Ó ĹĽŔ ĀĶŊŶŹ ÀÖØÞ × Ÿ İ ΑΩ ЀЏАЯ"),
              u"žluťoučký kůň ě ď ň ř š ť ú ů ý á é í ó ĺľŕ āķŋŷź àöøþ × ÿ i αω ѐџая");
    EXPECT_EQ(CzechLowered(u"ı ĸ ŉ ſ ß 1-[] я"), u"ı ĸ ŉ ſ ß 1-[] я");

    // Typing in the list: from the start row on, case ignored, round to the top only with wrap.
    EXPECT_EQ(FindRowStartingWith(rows, u"AB", 2, false), 2);
    EXPECT_EQ(FindRowStartingWith(rows, u"ab", 3, false), -1);
    EXPECT_EQ(FindRowStartingWith(rows, u"ab", 3, true), 0);
    EXPECT_EQ(FindRowStartingWith(rows, u"Č", 0, false), 4);
    EXPECT_EQ(FindRowStartingWith(rows, u"dno", 0, false), 3);  // the whole name
}

// One session of commands: "%" and "..." need a marked row, the commands are dead while an edit is
// open, a refused apply keeps the edit, refilling the list abandons a copy or edit but not an
// addition. Editing enables the fields and the apply buttons and nothing that would leave the material.
TEST(MaterialEditModes, ASessionOfCommandsWalksTheModesAndTheirLayouts) {
    using E = EditEvent;
    using M = EditMode;
    struct Step {
        E event;
        bool marked;
        M mode;
    };
    M mode = M::Browse;
    for (const Step& step : {Step{E::CopyPressed, false, M::Browse}, Step{E::EditPressed, false, M::Browse},
                             Step{E::AddPressed, false, M::Add}, Step{E::CopyPressed, true, M::Add},
                             Step{E::ApplyRefused, true, M::Add}, Step{E::ListRefilled, false, M::Add},
                             Step{E::ApplyAccepted, false, M::Browse}, Step{E::EditPressed, true, M::Edit},
                             Step{E::AddPressed, true, M::Edit}, Step{E::ListRefilled, true, M::Browse},
                             Step{E::CopyPressed, true, M::Copy}, Step{E::ListRefilled, true, M::Browse},
                             Step{E::EditPressed, true, M::Edit}, Step{E::RevertPressed, true, M::Browse}}) {
        mode = NextEditMode(mode, step.event, step.marked);
        ASSERT_EQ(mode, step.mode) << static_cast<int>(step.event);
        const bool editing = mode != M::Browse;
        EXPECT_EQ(LayoutOf(EditorGroup::MaterialFields, mode).enabled, editing);
        EXPECT_TRUE(LayoutOf(EditorGroup::MaterialFields, mode).visible);
        EXPECT_EQ(LayoutOf(EditorGroup::ApplyButtons, mode).enabled, editing);
        EXPECT_EQ(LayoutOf(EditorGroup::ApplyButtons, mode).visible, editing);
        for (EditorGroup group : {EditorGroup::MaterialList, EditorGroup::MaterialCommands, EditorGroup::FilterRadios,
                                  EditorGroup::LoadCommands, EditorGroup::ProfilePane}) {
            EXPECT_EQ(LayoutOf(group, mode).enabled, !editing);
        }
    }
    EXPECT_FALSE(LayoutOf(EditorGroup::ProfilePane, M::Browse, false).enabled);  // no material shown
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
    // The roughness field takes decimal texts from 0.01 to 3.0.
    const std::pair<const wchar_t*, bool> roughnesses[] = {
        {L"0.01", true}, {L"0.0099", false}, {L"3.0", true}, {L"3.001", false}, {L"1e0", false}};
    for (const auto& [text, valid] : roughnesses) EXPECT_EQ(IsRoughnessText(text), valid) << text;
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

// The refusal texts, adding, copying and renaming are checked through the editor; here what it
// cannot reach: the name's length on a rename, and refusals that leave the list as it was.
TEST_F(ApplyEdit, RenameChecksTheNamesLengthAndRefusalsChangeNothing) {
    EXPECT_EQ(ApplyMaterialEdit(list, EditMode::Edit, FieldsNamed(u"PVC", &pe), &pe).outcome,
              ApplyOutcome::NameTakenOnRename);
    EXPECT_EQ(ApplyMaterialEdit(list, EditMode::Add, FieldsNamed(u"", &pe), nullptr).outcome, ApplyOutcome::EmptyName);
    EXPECT_TRUE(list.IsUnchanged());
    MaterialExchangeRecord noClass = FieldsNamed(u"Beton");
    noClass.pnIndex = -1;  // a drop-down without a choice: the new material's fields are refused
    EXPECT_NE(ThrownText([&] { ApplyMaterialEdit(list, EditMode::Add, noClass, nullptr); }), u"<nothing thrown>");
    EXPECT_EQ(
        ThrownText([&] { ApplyMaterialEdit(list, EditMode::Edit, FieldsNamed(u"123456789012345678901", &pe), &pe); }),
        MaterialError(u"Příliš dlouhý název", 202));
    EXPECT_EQ(list.Count(), 2u);
    EXPECT_EQ(list.Find(u"PE"), &pe);
    EXPECT_EQ(ApplyMaterialEdit(list, EditMode::Edit, FieldsNamed(u"12345678901234567890", &pe), &pe).material, &pe);

    // A copy takes the profiles as its own and marks the list changed; an addition takes none.
    list.SetUnchanged(true);
    const CQvxMaterial* copy = ApplyMaterialEdit(list, EditMode::Copy, FieldsNamed(u"Kopie", &pe), &pe).material;
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->Profiles().size(), 2u);
    EXPECT_NE(copy->FindProfile(11), pe.FindProfile(11));
    EXPECT_FALSE(list.IsUnchanged());
    EXPECT_TRUE(ApplyMaterialEdit(list, EditMode::Add, FieldsNamed(u"Nový"), nullptr).material->Profiles().empty());
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
    EXPECT_EQ(callers.Find(u"PE"), &pe);  // taken over, not copied: the working list is left empty
    EXPECT_EQ(pe.Owner(), &callers);      // later changes mark the caller's list
    EXPECT_EQ(list.Count(), 0u);
    EXPECT_EQ(callers.Count(), 2u);
    EXPECT_TRUE(callers.IsUnchanged());
    callers.ClearUsage();
}

}  // namespace
