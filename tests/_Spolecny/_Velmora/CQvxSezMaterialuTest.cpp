#include "_Velmora/CQvxSezMaterialu.h"

#include <gtest/gtest.h>

#include <vector>

#include "_Velmora/CQvxMaterial.h"
#include "support/CatalogueBuilding.h"
#include "support/RecordSummary.h"
#include "support/ScriptedUserMessages.h"

namespace {

std::vector<std::u16string> NamesOf(const CQvxSezMaterialu& list) {
    std::vector<std::u16string> names;
    for (const auto& [name, material] : list.Materials()) names.push_back(name);
    return names;
}

void SetRoughness(CQvxMaterial& material, double roughness) {
    EditMaterial(material, [&](MaterialExchangeRecord& record) { record.roughness = roughness; });
}

TEST(MaterialList, OrdersNamesByCodeUnitsCaseSensitively) {
    CQvxSezMaterialu list;
    for (const char16_t* name : {u"pe", u"Čedič", u"PE", u"Zinek", u"PVC"}) AddMaterial(list, name);
    EXPECT_EQ(NamesOf(list), (std::vector<std::u16string>{u"PE", u"PVC", u"Zinek", u"pe", u"Čedič"}));
    EXPECT_NE(list.Find(u"pe"), list.Find(u"PE"));
    EXPECT_EQ(list.Find(u"Pe"), nullptr);

    for (const char16_t* name : {u"PE", u"Čedič"}) {  // the first name and the last
        auto duplicate = std::make_unique<CQvxMaterial>(&list, name, 0, 0);
        const auto [held, inserted] = list.Insert(name, duplicate);
        EXPECT_FALSE(inserted);
        EXPECT_EQ(held, list.Find(name));
        EXPECT_NE(duplicate, nullptr);  // still the caller's
    }
    EXPECT_EQ(list.Count(), 5u);
}

TEST(MaterialList, ClearKeepingUsedLetsUsedMaterialsLive) {
    CQvxSezMaterialu list;
    CQvxMaterial& used = AddMaterial(list, u"A");
    AddMaterial(list, u"B");
    CQvxMaterial* slot = &used;
    used.Users().Register(&slot);
    list.MarkChanged();

    list.Clear(true);
    EXPECT_EQ(list.Count(), 0u);
    EXPECT_TRUE(list.IsUnchanged());
    ASSERT_EQ(slot, &used);
    used.AddProfile(3);  // no longer reaches the list
    EXPECT_TRUE(list.IsUnchanged());
    delete slot;  // what the last user does
    EXPECT_EQ(slot, nullptr);
}

TEST(MaterialList, AssignFromCopiesDeeplyWithUsersAndTheUnchangedFlag) {
    CQvxSezMaterialu source;
    CQvxMaterial& pe = AddMaterial(source, u"PE");
    EditMaterial(pe, [](MaterialExchangeRecord& record) { record.shape = ProfileShape::Mouth; });
    CQvxProfil& profile = *pe.AddProfile(11);
    profile.SetUrsMaterialCode(u"M1");
    profile.SetUrsInstallCode(u"I1");
    profile.SetWidth(640);
    CQvxMaterial* slot = &pe;
    pe.Users().Register(&slot);
    source.SetUnchanged(true);

    CQvxSezMaterialu copy;
    CQvxMaterial* oldSlot = &AddMaterial(copy, u"Stará");
    oldSlot->Users().Register(&oldSlot);
    copy.AssignFrom(source);
    ASSERT_NE(oldSlot, nullptr);  // in use: let go of, not deleted
    delete oldSlot;
    EXPECT_EQ(NamesOf(copy), std::vector<std::u16string>{u"PE"});
    const CQvxMaterial& copied = MaterialNamed(copy, u"PE");
    EXPECT_NE(&copied, &pe);
    EXPECT_EQ(copied.Owner(), &copy);
    EXPECT_EQ(Summary(copied), Summary(pe));  // every field, the shape, widths and both codes included
    EXPECT_EQ(copied.Users().Count(), 1u);
    EXPECT_TRUE(copy.IsUnchanged());

    copy.AssignFrom(copy);
    EXPECT_EQ(copy.Count(), 1u);
    copy.ClearUsage();  // the slot belongs to the source's material
    pe.Users().Unregister(&slot);
}

TEST(MaterialList, RenameRefusesAnotherMaterialsNameAndCountsOwnNameAsChange) {
    CQvxSezMaterialu list;
    CQvxMaterial& a = AddMaterial(list, u"A");
    AddMaterial(list, u"B");
    list.SetUnchanged(true);

    EXPECT_FALSE(list.RenameMaterial(u"B", a));
    CQvxSezMaterialu other;
    EXPECT_FALSE(list.RenameMaterial(u"D", AddMaterial(other, u"B")));  // not this list's "B"
    EXPECT_EQ(NamesOf(list), (std::vector<std::u16string>{u"A", u"B"}));
    EXPECT_TRUE(list.IsUnchanged());

    EXPECT_TRUE(list.RenameMaterial(u"A", a));
    EXPECT_FALSE(list.IsUnchanged());
    EXPECT_TRUE(list.RenameMaterial(u"C", a));
    EXPECT_EQ(NamesOf(list), (std::vector<std::u16string>{u"B", u"C"}));
    EXPECT_EQ(a.UniqueName(), u"C");
    EXPECT_EQ(list.Find(u"C"), &a);
}

TEST(MaterialList, RemoveRefusesUsedAndUnknownMaterials) {
    CQvxSezMaterialu list;
    CQvxMaterial& used = AddMaterial(list, u"A");
    CQvxProfil* profileSlot = used.AddProfile(2);
    used.FindProfile(2)->Users().Register(&profileSlot);
    CQvxMaterial* slot = &used;
    used.Users().Register(&slot);
    AddMaterial(list, u"B");
    list.SetUnchanged(true);

    EXPECT_FALSE(list.RemoveMaterial(u"A"));
    EXPECT_FALSE(list.RemoveMaterial(u"X"));
    EXPECT_TRUE(list.IsUnchanged());
    EXPECT_TRUE(list.RemoveMaterial(u"B"));
    EXPECT_FALSE(list.IsUnchanged());

    list.ClearUsage();
    EXPECT_TRUE(used.Users().IsEmpty());
    EXPECT_TRUE(used.FindProfile(2)->Users().IsEmpty());
    EXPECT_TRUE(list.RemoveMaterial(u"A"));
}

// Reading a catalogue stream into a list that already holds materials.
class CatalogueMerge : public ::testing::Test {
protected:
    CatalogueMerge() {
        CQvxMaterial& pe = AddMaterial(file, u"PE");
        pe.AddProfile(10)->SetDimensions(70.0f, 10.0f);
        pe.AddProfile(11)->SetDimensions(90.0f, 10.0f);
        AddMaterial(file, u"PVC").AddProfile(12);
        AddMaterial(file, u"Litina").AddProfile(13);
    }

    // `list` holds the file's materials with PE and PVC changed by `change`.
    template <typename Change>
    void ReadFileThenChange(Change&& change) {
        ReadCatalogue(list, WriteCatalogue(file));
        change(*list.Find(u"PE"));
        change(*list.Find(u"PVC"));
    }

    CQvxSezMaterialu file;
    CQvxSezMaterialu list;
    ScriptedUserMessages messages;
    CUserMessagesScope installed{messages};
};

TEST_F(CatalogueMerge, SameFileTwiceAsksNothingAndChangesNothing) {
    const Bytes bytes = WriteCatalogue(file);
    ReadCatalogue(list, bytes);
    ReadCatalogue(list, bytes);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(WriteCatalogue(list), bytes);
    EXPECT_EQ(MaterialNamed(list, u"PVC").FileIndex(), 2);  // position in the file
    EXPECT_TRUE(list.IsUnchanged());
    ASSERT_TRUE(file.RemoveMaterial(u"Litina"));
    ReadCatalogue(list, WriteCatalogue(file));
    EXPECT_EQ(MaterialNamed(list, u"Litina").FileIndex(), -2);  // in no file of the last read
}

TEST_F(CatalogueMerge, DifferenceOnlyInRoughnessOrMasksIsKeptSilently) {
    ReadFileThenChange([](CQvxMaterial& material) { SetRoughness(material, 2.5); });
    ReadCatalogue(list, WriteCatalogue(file));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(MaterialNamed(list, u"PE").Roughness(), 2.5f);
}

// "Ano" takes the file's fields and keeps the existing profiles, "Ne" keeps the fields; both add the
// missing profiles, and only an overwrite offers to save.
TEST_F(CatalogueMerge, AnswersDecideTheFieldsAndMissingProfilesAreAlwaysAdded) {
    ReadFileThenChange([](CQvxMaterial& material) {
        material.FindProfile(material.Profiles().begin()->first)->SetWall(1.0f);
        material.AddProfile(20);
        SetRoughness(material, 1.5);
        EditMaterial(material, [](MaterialExchangeRecord& record) { record.descriptionMode = DescriptionMode::Dn; });
    });
    CQvxMaterial& pe = *list.Find(u"PE");
    messages.overwriteAnswers = {TaskDialogButtons::kYes, TaskDialogButtons::kNo};
    ReadCatalogue(list, WriteCatalogue(file));

    EXPECT_EQ(messages.CountOf(u"Tento materiál již existuje, přepsat standardním?"), 2u);
    EXPECT_EQ(messages.shown[0].content, u"PE");
    EXPECT_EQ(pe.Roughness(), MaterialNamed(file, u"PE").Roughness());  // "Ano"
    EXPECT_EQ(ProfileAt(pe, 10).Wall(), 1.0f);                          // existing profile kept
    EXPECT_EQ(ProfileAt(pe, 10).Label(), u"72x1.0");                    // labelled by the file's rule again
    EXPECT_EQ(pe.Profiles().size(), 3u);                                // 20 kept, 11 added
    const CQvxMaterial& pvc = MaterialNamed(list, u"PVC");
    EXPECT_EQ(pvc.Roughness(), 1.5f);  // "Ne"
    EXPECT_EQ(pvc.Profiles().size(), 2u);
    ASSERT_EQ(messages.shown.size(), 3u);
    EXPECT_EQ(messages.shown[2].caption, u"Uložit materiály?");
    EXPECT_EQ(messages.shown[2].text, u"Hlavní seznam materiálů byl při načítání projektu aktualizován\nULOŽIT?");
    EXPECT_TRUE(list.IsUnchanged());  // not saved: the save question was not answered
}

// "Ano všem" and "Ne všem" hold for the rest of one read only; an unshown question counts as "Ne".
TEST_F(CatalogueMerge, AnswersForAllHoldForOneReadAndAnUnshownQuestionIsNo) {
    ReadFileThenChange([](CQvxMaterial& material) { material.AddProfile(27); });
    messages.overwriteAnswers = {TaskDialogButtons::kYesToAll, TaskDialogButtons::kNoToAll};
    const Bytes bytes = WriteCatalogue(file);
    const auto expectAsked = [&](std::size_t overwrite, std::size_t save) {
        EXPECT_EQ(messages.CountOf(Questions::kOverwrite), overwrite);
        EXPECT_EQ(messages.CountOf(Questions::kSaveUpdated), save);
    };
    ReadCatalogue(list, bytes);
    expectAsked(1, 1);  // "Ano všem" overwrote
    ReadCatalogue(list, bytes);
    expectAsked(2, 1);  // "Ne všem" overwrote nothing
    ReadCatalogue(list, bytes);
    expectAsked(4, 1);  // nothing scripted: asked for each, overwrote nothing
}

TEST_F(CatalogueMerge, ProjectStreamsKeepMaterialsThatCoverTheIncomingOnes) {
    ReadCatalogue(list, WriteCatalogue(file));
    CQvxMaterial& pe = *list.Find(u"PE");
    pe.AddProfile(20);
    // The display name does not take part in the comparison for project streams.
    EditMaterial(pe, [](MaterialExchangeRecord& record) { record.displayName = u"jiný popisek"; });

    ReadCatalogue(list, WriteCatalogue(file), true);
    EXPECT_TRUE(messages.shown.empty());
    ReadCatalogue(list, WriteCatalogue(file), false);  // a catalogue file compares exactly
    EXPECT_EQ(messages.CountOf(Questions::kOverwrite), 1u);
    EditMaterial(pe, [](MaterialExchangeRecord& record) { record.description = u"jiný popis"; });
    ReadCatalogue(list, WriteCatalogue(file), true);  // the description does take part
    EXPECT_EQ(messages.CountOf(Questions::kOverwrite), 2u);
}

}  // namespace
