// The list's two files: the user's catalogue in the common data folder and the standard catalogue
// in the common install folder, each in the program's sub-folder.

#include <optional>
#include <string>

#include "CQvxFunkce.h"
#include "CQvxRegistry.h"
#include "Framework/CArchive.h"
#include "Framework/CFile.h"
#include "Framework/FileSystem.h"
#include "UserMessages.h"
#include "_Velmora/CQvxSezMaterialu.h"

namespace {

constexpr std::u16string_view kUserCatalogue = u"Potrubi.qxp";
constexpr std::u16string_view kStandardCatalogue = u"Potrubi_std.qxp";

std::u16string CannotOpen(const std::u16string& path) {
    return u"Nelze otevřít soubor:\n" + path;
}

}  // namespace

bool CQvxSezMaterialu::LoadCatalogue(bool standard) {
    bool read = false;
    return RunUserAction([&] { read = ReadCatalogueFile(standard); }, FileFailureText::kReading) && read;
}

bool CQvxSezMaterialu::SaveCatalogue() {
    bool saved = false;
    return RunUserAction([&] { saved = WriteCatalogueFile(); }, FileFailureText::kWriting) && saved;
}

bool CQvxSezMaterialu::ReadCatalogueFile(bool standard) {
    const std::u16string path =
        CQvxRegistry::ProgramFolder(standard ? CQvxRegistry::kCommonInstallPath : CQvxRegistry::kCommonDataPath,
                                    false) +
        std::u16string(standard ? kStandardCatalogue : kUserCatalogue);

    std::optional<CFileSystem::Content> content;
    try {
        content = FileSystem().Read(path);
    } catch (const CFileException&) {
        // Missing, locked or unreadable: all the same here.
    }
    if (content) {
        // Remembered before the content is read: a malformed or too new file is still the one
        // that a save will replace.
        if (!standard) userFileStamp_ = StampOf(content->bytes, content->lastWriteTime);
        CMemFile file(std::move(content->bytes));
        CArchive archive(file, CArchive::load);
        Serialize(archive, false);
        archive.Close();
        // A list read from the standard catalogue still has to become the user's catalogue.
        unchanged_ = !standard;
        ResetFileIndices();
        return true;
    }

    if (!standard) {
        UserMessages().ShowTaskDialog(CannotOpen(path), u"Bude načten standardní soubor");
        const bool read = LoadCatalogue(true);
        if (read) SaveCatalogue();
        return read;
    }
    // The joined "...programMateriály potrubí" is how this text has always read.
    UserMessages().ShowTaskDialog(CannotOpen(path),
                                  std::u16string(u"\nDoporučujeme přeinstalovat program") + u"Materiály potrubí");
    return false;
}

bool CQvxSezMaterialu::WriteCatalogueFile() {
    if (materials_.empty()) return true;  // an empty catalogue is never written
    const std::u16string path =
        CQvxRegistry::ProgramFolder(CQvxRegistry::kCommonDataPath, true) + std::u16string(kUserCatalogue);

    CMemFile bytes;
    CArchive archive(bytes, CArchive::store);
    Serialize(archive, false);
    archive.Close();
    try {
        if (ChangedSince(path, userFileStamp_) && !UserMessages().AskOverwriteChangedFile()) return false;
        userFileStamp_ = WriteFileAtomically(path, bytes.Bytes(), path + u".bak");
    } catch (const CFileException& failure) {
        UserMessages().ShowTaskDialog(CannotOpen(path), u"Nelze uložit provedené změny\n" + FileFailureCause(failure));
        return false;
    }
    unchanged_ = true;
    return true;
}
