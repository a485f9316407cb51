#include "_Velmora/CatalogueLoading.h"

#include "CQvxFunkce.h"
#include "CQvxRegistry.h"
#include "Framework/CArchive.h"
#include "Framework/CFile.h"
#include "Framework/Exceptions.h"
#include "TextCodec.h"
#include "UserMessages.h"
#include "_Velmora/CQvxSezMaterialu.h"

namespace {

constexpr std::u16string_view kUserCatalogue = u"Potrubi.qxp";
constexpr std::u16string_view kStandardCatalogue = u"Potrubi_std.qxp";

std::u16string CatalogueInFolder(int folder, std::u16string_view name) {
    return CQvxRegistry::ProgramFolder(folder, false) + std::u16string(name);
}

// The file whose read failed at start-up: the user's catalogue when it opens, otherwise the
// standard one that the first run falls back to.
std::u16string DamagedStartupFile() {
    const std::u16string user = CatalogueInFolder(CQvxRegistry::kCommonDataPath, kUserCatalogue);
    CFile probe;
    if (probe.Open(user, CFile::modeRead)) return user;
    return CatalogueInFolder(CQvxRegistry::kCommonInstallPath, kStandardCatalogue);
}

void ReportDamaged(std::u16string_view path, const CArchiveException& failure, std::u16string_view consequence) {
    UserMessages().ShowFileErrorBox(DamagedCatalogueText(path, failure) + u"\n\n" + std::u16string(consequence));
}

}  // namespace

std::u16string DamagedCatalogueText(std::u16string_view path, const CArchiveException& failure) {
    const std::u16string_view fault = failure.GetCause() == CArchiveException::Cause::EndOfFile
                                          ? u"Soubor katalogu končí předčasně"
                                          : u"Soubor katalogu je poškozen";
    return std::u16string(fault) + u":\n" + std::u16string(path) + u"\nChyba na bajtu " + FromUtf8(std::to_string(failure.Offset())) +
           u".";
}

void LoadCatalogueAtStartup(CQvxSezMaterialu& list) {
    try {
        list.LoadCatalogue(false);
    } catch (const CArchiveException& failure) {
        list.ResetFileIndices();
        list.SetUnchanged(true);
        ReportDamaged(DamagedStartupFile(), failure,
                      u"Editor se otevře s materiály načtenými před chybou. Soubor se přepíše, až uložíte změnu.");
    }
}

bool MergeCatalogueFile(CQvxSezMaterialu& list, std::u16string_view path) {
    const std::u16string cannotOpen = std::u16string(FileFailureText::kCannotOpen) + std::u16string(path);
    try {
        CFile file;
        if (!file.Open(path, CFile::modeRead)) {
            UserMessages().ShowFileErrorBox(cannotOpen);
            return false;
        }
        return RunUserAction([&] {
            CArchive archive(file, CArchive::load);
            list.Serialize(archive, false);
            archive.Close();
            file.Close();
        });
    } catch (const CFileException&) {
        UserMessages().ShowFileErrorBox(cannotOpen);
    } catch (const CArchiveException& failure) {
        ReportDamaged(path, failure, u"Materiály načtené před chybou zůstávají v seznamu.");
    }
    return false;
}

bool MergeStandardCatalogue(CQvxSezMaterialu& list) {
    try {
        return list.LoadCatalogue(true);
    } catch (const CArchiveException& failure) {
        ReportDamaged(CatalogueInFolder(CQvxRegistry::kCommonInstallPath, kStandardCatalogue), failure,
                      u"Materiály načtené před chybou zůstávají v seznamu.");
    }
    return false;
}
