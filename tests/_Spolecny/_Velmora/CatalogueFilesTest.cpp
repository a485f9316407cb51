// Loading and saving the user's catalogue, with the fallback to the standard one.

#include <gtest/gtest.h>

#include <algorithm>

#include "CQvxRegistry.h"
#include "Framework/FileSystem.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/CatalogueLoading.h"
#include "support/CatalogueBuilding.h"
#include "support/FakeRegistryValues.h"
#include "support/ScriptedUserMessages.h"
#include "support/TempFolder.h"
#include "support/ThrownText.h"

namespace {

namespace fs = std::filesystem;

// The portable file system with one failure put in: the new file's write stops after
// `writtenBefore` bytes, or the replace fails, with `failure`.
class FailingFileSystem final : public CPortableFileSystem {
public:
    enum class Step { None, Write, Replace };

    void WriteNew(std::u16string_view path, std::span<const std::uint8_t> bytes) override {
        if (step != Step::Write) return CPortableFileSystem::WriteNew(path, bytes);
        CPortableFileSystem::WriteNew(path, bytes.first(std::min(writtenBefore, bytes.size())));
        throw FileExceptionOf(failure, path);
    }
    void Replace(std::u16string_view target, std::u16string_view replacement, std::u16string_view backup) override {
        if (step == Step::Replace) throw FileExceptionOf(failure, target);
        CPortableFileSystem::Replace(target, replacement, backup);
    }

    Step step = Step::None;
    std::size_t writtenBefore = 0;
    std::error_code failure;
};

// An installation in a temporary folder: install/ holds the standard catalogue's folder, data/
// the user's; the registry holds both without trailing separators.
class CatalogueFiles : public ::testing::Test {
protected:
    CatalogueFiles() {
        registry.Set(CRegistryValues::Hive::LocalMachine, u"CommonInstallPath", root / u"install");
        registry.Set(CRegistryValues::Hive::CurrentUser, u"CommonDataPath", root / u"data");
        fs::create_directories(root.Path() / "data");
        AddMaterial(standardList, u"PE 100").AddProfile(11);
        AddMaterial(standardList, u"PVC KG").AddProfile(13);
        standardBytes = WriteCatalogue(standardList);
        cut.assign(standardBytes.begin(), standardBytes.end() - 3);
        cutAt = FromUtf8(std::to_string(cut.size() - 1));
    }

    fs::path StandardFile() const { return root.Path() / "install" / "Velmora" / "Potrubi_std.qxp"; }
    fs::path UserFile() const { return root.Path() / "data" / "Velmora" / "Potrubi.qxp"; }
    fs::path Beside(const char* suffix) const { return fs::path(UserFile()) += suffix; }
    std::u16string CannotOpen(const fs::path& path) const { return u"Nelze otevřít soubor:\n" + path.u16string(); }

    TempFolder root;
    FakeRegistryValues registry;
    CRegistryValuesScope installedRegistry{registry};
    ScriptedUserMessages messages;
    CUserMessagesScope installedMessages{messages};
    CQvxSezMaterialu standardList;
    Bytes standardBytes;
    // Cut inside the second material: its last field starts at the last byte and runs past the end.
    Bytes cut;
    std::u16string cutAt;  // the byte the reading fails at
    CQvxSezMaterialu list;
};

TEST_F(CatalogueFiles, FirstRunReadsTheStandardCatalogueAndSavesItAsTheUsers) {
    WriteFileBytes(StandardFile(), standardBytes);
    EXPECT_TRUE(list.LoadCatalogue(false));

    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].caption, u"Materiály potrubí");
    EXPECT_EQ(messages.shown[0].text, CannotOpen(UserFile()));
    EXPECT_EQ(messages.shown[0].content, u"Bude načten standardní soubor");
    EXPECT_EQ(list.Count(), 2u);
    EXPECT_EQ(FileBytes(UserFile()), standardBytes);
    EXPECT_TRUE(list.IsUnchanged());
    EXPECT_EQ(MaterialNamed(list, u"PVC KG").FileIndex(), -2);

    // Later runs read the user's catalogue unchanged; the standard one read in marks a change.
    messages.shown.clear();
    EXPECT_TRUE(list.LoadCatalogue(false));
    EXPECT_TRUE(list.IsUnchanged());
    EXPECT_EQ(MaterialNamed(list, u"PE 100").FileIndex(), -2);
    EXPECT_TRUE(list.LoadCatalogue(true));
    EXPECT_FALSE(list.IsUnchanged());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CatalogueFiles, NeitherCatalogueGivesTwoTaskDialogsAndFalse) {
    EXPECT_FALSE(list.LoadCatalogue(false));
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[0].content, u"Bude načten standardní soubor");
    EXPECT_EQ(messages.shown[1].text, CannotOpen(StandardFile()));
    EXPECT_EQ(messages.shown[1].content, u"\nDoporučujeme přeinstalovat programMateriály potrubí");
    EXPECT_EQ(list.Count(), 0u);
    EXPECT_FALSE(fs::exists(UserFile()));
}

TEST_F(CatalogueFiles, NewerVersionIsReportedWithoutTryingTheStandardOneAndAMalformedOneThrows) {
    WriteFileBytes(UserFile(), Hex("04 FF"));
    WriteFileBytes(StandardFile(), standardBytes);
    EXPECT_FALSE(list.LoadCatalogue(false));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].caption, u"Program vyvolal výjimku");
    EXPECT_EQ(messages.shown[0].text, NewerVersionError(257, u"_Spolecny\\_Velmora\\CQvxSezMaterialu"));
    EXPECT_EQ(list.Count(), 0u);

    // A malformed catalogue reaches the caller; a missing folder value is told.
    WriteFileBytes(UserFile(), Hex("03 05 01"));
    EXPECT_THROW(list.LoadCatalogue(false), CArchiveException);
    EXPECT_EQ(messages.shown.size(), 1u);
    FakeRegistryValues empty;
    CRegistryValuesScope installed(empty);
    EXPECT_FALSE(list.LoadCatalogue(false));
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[1].text, MissingRegistryValueError());
}

// A user catalogue that exists but does not open (a folder where the file should be) is treated
// like a missing one, including the save over it, which then fails with its own task dialog and
// keeps the list changed.
TEST_F(CatalogueFiles, UnopenableUsersCatalogueFallsBackAndItsSaveFails) {
    fs::create_directories(UserFile());
    WriteFileBytes(StandardFile(), standardBytes);
    EXPECT_TRUE(list.LoadCatalogue(false));
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[0].content, u"Bude načten standardní soubor");
    EXPECT_EQ(messages.shown[1].text, CannotOpen(UserFile()));
    EXPECT_TRUE(messages.shown[1].content.starts_with(u"Nelze uložit provedené změny\n"));
    EXPECT_FALSE(list.IsUnchanged());
}

TEST_F(CatalogueFiles, MergeThatOverwritesSavesOnYes) {
    WriteFileBytes(StandardFile(), standardBytes);
    list.AssignFrom(standardList);
    list.Find(u"PE 100")->AddProfile(20);
    messages.overwriteAnswers = {TaskDialogButtons::kYes};
    messages.saveAnswers = {true};
    EXPECT_TRUE(list.LoadCatalogue(true));

    EXPECT_EQ(messages.CountOf(Questions::kSaveUpdated), 1u);
    CQvxSezMaterialu saved;
    ReadCatalogue(saved, FileBytes(UserFile()));
    EXPECT_EQ(MaterialNamed(saved, u"PE 100").Profiles().size(), 2u);
}

// At start-up a malformed catalogue is reported with its path and byte, and the editor gets what
// was read before the fault, unchanged, so the damaged file is not rewritten on its own.
TEST_F(CatalogueFiles, StartupReportsADamagedCatalogueAndKeepsWhatWasRead) {
    for (const bool usersFile : {true, false}) {
        fs::remove_all(root.Path() / "data" / "Velmora");
        messages.shown.clear();
        list.Clear(false);
        const fs::path damaged = usersFile ? UserFile() : StandardFile();
        WriteFileBytes(damaged, cut);

        LoadCatalogueAtStartup(list);

        ASSERT_FALSE(messages.shown.empty());
        EXPECT_EQ(messages.shown.back().caption, u"Neočekávaná výjimka");
        EXPECT_EQ(messages.shown.back().text,
                  u"Soubor katalogu končí předčasně:\n" + damaged.u16string() +
                      u"\nChyba na bajtu " + cutAt +
                      u".\n\nEditor se otevře s materiály načtenými před chybou. Soubor se "
                      u"přepíše, až uložíte změnu.");
        EXPECT_EQ(list.Count(), 1u);
        EXPECT_EQ(list.Materials().begin()->second->FileIndex(), -2);  // as after a whole read
        EXPECT_TRUE(list.IsUnchanged());
        EXPECT_EQ(fs::exists(UserFile().parent_path()), usersFile);  // nothing made, nothing rewritten
        if (usersFile) {
            EXPECT_EQ(FileBytes(UserFile()), cut);
            // A change the user saves replaces it without asking; the backup keeps the damaged file.
            AddMaterial(list, u"Litina");
            EXPECT_TRUE(list.SaveCatalogue());
            EXPECT_EQ(FileBytes(Beside(".bak")), cut);
        }
    }
}

// A save that fails at any step leaves the file byte for byte as it was, removes the new file, says
// why, and keeps the list changed; once the cause is gone the save goes through.
TEST_F(CatalogueFiles, AFailedSaveLeavesTheFileAsItWasAndTellsWhy) {
    using Step = FailingFileSystem::Step;
    const std::error_code otherFailure = std::make_error_code(std::errc::io_error);
    struct Case {
        Step step;
        std::size_t writtenBefore;
        std::error_code failure;
        std::u16string told;
    };
    const Case cases[] = {
        {Step::Write, 40, std::make_error_code(std::errc::no_space_on_device), u"Na disku není dost místa."},
        {Step::Write, 0, std::make_error_code(std::errc::permission_denied), u"Přístup k souboru byl odepřen."},
        {Step::Replace, 0, std::make_error_code(std::errc::device_or_resource_busy), u"Soubor používá jiný program."},
        {Step::Replace, 0, otherFailure, FromUtf8(otherFailure.message())},
    };
    WriteFileBytes(UserFile(), standardBytes);
    EXPECT_TRUE(list.SaveCatalogue());  // an empty list is never written
    EXPECT_EQ(FileBytes(UserFile()), standardBytes);
    ASSERT_TRUE(list.LoadCatalogue(false));
    list.Find(u"PE 100")->AddProfile(20);
    FailingFileSystem files;
    CFileSystemScope installed(files);
    for (const Case& c : cases) {
        messages.shown.clear();
        files.step = c.step;
        files.writtenBefore = c.writtenBefore;
        files.failure = c.failure;

        EXPECT_FALSE(list.SaveCatalogue());
        ASSERT_EQ(messages.shown.size(), 1u);
        EXPECT_EQ(messages.shown[0].text, CannotOpen(UserFile()));
        EXPECT_EQ(messages.shown[0].content, u"Nelze uložit provedené změny\n" + c.told);
        EXPECT_EQ(FileBytes(UserFile()), standardBytes);
        EXPECT_FALSE(fs::exists(Beside(".new")));
        EXPECT_FALSE(list.IsUnchanged());
        EXPECT_EQ(MaterialNamed(list, u"PE 100").Profiles().size(), 2u);
    }

    files.step = Step::None;
    messages.shown.clear();
    EXPECT_TRUE(list.SaveCatalogue());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(FileBytes(UserFile()), WriteCatalogue(list));
    EXPECT_EQ(FileBytes(Beside(".bak")), standardBytes);
    EXPECT_TRUE(list.IsUnchanged());
}

// A file another program wrote after the list's save (another size, or the same size and time with
// other bytes) is replaced only on "Ano"; "Ne" writes nothing. The backup then keeps that file.
TEST_F(CatalogueFiles, AFileChangedByAnotherProgramIsReplacedOnlyOnYes) {
    WriteFileBytes(UserFile(), standardBytes);
    ASSERT_TRUE(list.LoadCatalogue(false));
    AddMaterial(list, u"Litina");
    ASSERT_TRUE(list.SaveCatalogue());
    const Bytes saved = FileBytes(UserFile());
    const fs::file_time_type savedAt = fs::last_write_time(UserFile());
    Bytes sameSize = saved;
    sameSize[sameSize.size() / 2] ^= 1;

    for (const Bytes* outside : {&standardBytes, &sameSize}) {
        WriteFileBytes(UserFile(), *outside);
        if (outside == &sameSize) fs::last_write_time(UserFile(), savedAt);
        messages.shown.clear();
        messages.overwriteChangedAnswers = {false};
        list.MarkChanged();

        EXPECT_FALSE(list.SaveCatalogue());
        ASSERT_EQ(messages.shown.size(), 1u);
        EXPECT_EQ(messages.shown[0].caption, u"Materiály potrubí");
        EXPECT_EQ(messages.shown[0].text,
                  u"Soubor katalogu byl mezitím změněn jiným programem. Přepsat jej provedenými změnami?");
        EXPECT_EQ(FileBytes(UserFile()), *outside);
        EXPECT_FALSE(list.IsUnchanged());
    }

    messages.overwriteChangedAnswers = {true};
    EXPECT_TRUE(list.SaveCatalogue());
    EXPECT_EQ(FileBytes(UserFile()), saved);
    EXPECT_EQ(FileBytes(Beside(".bak")), sameSize);
}

// A picked file cut short is merged up to the fault, which is told with its path and byte; a
// standard catalogue cut short is told too. (A missing picked file and a whole one: the editor's
// loading scenario.)
TEST_F(CatalogueFiles, MergingACatalogueCutShortTellsWhereAndKeepsWhatWasRead) {
    const fs::path picked = root.Path() / "picked.qxp";
    WriteFileBytes(picked, cut);
    AddMaterial(list, u"Vlastní");
    EXPECT_FALSE(MergeCatalogueFile(list, picked.u16string()));
    EXPECT_EQ(list.Count(), 2u);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].caption, u"Neočekávaná výjimka");
    EXPECT_EQ(messages.shown[0].text, u"Soubor katalogu končí předčasně:\n" + picked.u16string() + u"\nChyba na bajtu " +
                                          cutAt + u".\n\nMateriály načtené před chybou zůstávají v seznamu.");
    const std::u16string missing = (root.Path() / "zmizelý.qxp").u16string();
    EXPECT_FALSE(MergeCatalogueFile(list, missing));
    EXPECT_EQ(messages.shown.back().text, u"Nelze otevřít soubor" + missing);

    WriteFileBytes(StandardFile(), cut);
    messages.shown.clear();
    EXPECT_FALSE(MergeStandardCatalogue(list));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text.substr(0, 32), u"Soubor katalogu končí předčasně:");
}

}  // namespace
