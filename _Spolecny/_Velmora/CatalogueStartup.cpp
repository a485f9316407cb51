#include "_Velmora/CatalogueStartup.h"

#include "CQvxRegistry.h"
#include "Framework/CFile.h"
#include "Framework/Exceptions.h"
#include "UserMessages.h"
#include "_Velmora/CQvxSezMaterialu.h"

namespace {

std::u16string Digits(unsigned long long value) {
    const std::string text = std::to_string(value);
    return std::u16string(text.begin(), text.end());
}

// The file whose read failed: the user's catalogue when it opens, otherwise the standard one that
// the first run falls back to.
std::u16string DamagedFilePath() {
    const std::u16string user =
        CQvxRegistry::ProgramFolder(CQvxRegistry::kCommonDataPath, false) + u"Potrubi.qxp";
    CFile probe;
    if (probe.Open(user, CFile::modeRead)) return user;
    return CQvxRegistry::ProgramFolder(CQvxRegistry::kCommonInstallPath, false) + u"Potrubi_std.qxp";
}

}  // namespace

std::u16string DamagedCatalogueText(std::u16string_view path, const CArchiveException& failure) {
    const std::u16string_view fault = failure.GetCause() == CArchiveException::Cause::EndOfFile
                                          ? u"Soubor katalogu končí předčasně"
                                          : u"Soubor katalogu je poškozen";
    return std::u16string(fault) + u":\n" + std::u16string(path) + u"\nChyba na bajtu " + Digits(failure.Offset()) +
           u".\n\nEditor se otevře s materiály načtenými před chybou. Soubor se přepíše, až uložíte změnu.";
}

void LoadCatalogueAtStartup(CQvxSezMaterialu& list) {
    try {
        list.LoadCatalogue(false);
    } catch (const CArchiveException& failure) {
        list.ResetFileIndices();
        list.SetUnchanged(true);
        UserMessages().ShowFileErrorBox(DamagedCatalogueText(DamagedFilePath(), failure));
    }
}
