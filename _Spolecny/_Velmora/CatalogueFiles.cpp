// The list's two files: the user's catalogue in the common data folder and the standard catalogue
// in the common install folder, each in the program's sub-folder.

#include <string>

#include "CQvxFunkce.h"
#include "CQvxRegistry.h"
#include "Framework/CArchive.h"
#include "Framework/CFile.h"
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

    CFile file;
    if (file.Open(path, CFile::modeRead)) {
        CArchive archive(file, CArchive::load);
        Serialize(archive, false);
        archive.Close();
        file.Close();
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

    CFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeWrite)) {
        UserMessages().ShowTaskDialog(CannotOpen(path), u"Nelze uložit provedené změny");
        return false;
    }
    CArchive archive(file, CArchive::store);
    Serialize(archive, false);
    archive.Close();
    file.Close();
    unchanged_ = true;
    return true;
}
