#include "CatalogueMerge.h"

#include "CatalogueFile.h"
#include "TaskDialogButtons.h"
#include "TextCodec.h"
#include "UserMessages.h"
#include "_Velmora/CQvxSezMaterialu.h"

namespace {

// The program's questions during a read, answered as the command line said; its other messages,
// which a read of a file does not show, go to the error stream.
class MergeAnswers final : public CUserMessages {
public:
    MergeAnswers(bool overwrite, MergeReport& report, std::ostream& err)
        : overwrite_(overwrite), report_(report), err_(err) {}

    void ShowExceptionBox(std::string_view textWindows1250) override {
        err_ << ToUtf8(FromWindows1250(textWindows1250)) << '\n';
    }
    void ShowFileErrorBox(std::u16string_view text) override { err_ << ToUtf8(text) << '\n'; }
    void ShowTaskDialog(std::u16string_view mainInstruction, std::u16string_view content) override {
        err_ << ToUtf8(mainInstruction) << ' ' << ToUtf8(content) << '\n';
    }

    // Answered one material at a time (never "for all"), so that every conflict is reported.
    unsigned AskOverwrite(std::u16string_view materialName) override {
        (overwrite_ ? report_.overwritten : report_.kept).emplace_back(materialName);
        return overwrite_ ? TaskDialogButtons::kYes : TaskDialogButtons::kNo;
    }

    // The tool writes the result where the command line says, never to the user's catalogue.
    bool AskSaveUpdated() override { return false; }
    bool AskOverwriteChangedFile() override { return false; }

private:
    bool overwrite_;
    MergeReport& report_;
    std::ostream& err_;
};

}  // namespace

MergeReport MergeCatalogueFile(const std::filesystem::path& path, CQvxSezMaterialu& list, bool overwrite,
                               std::ostream& err) {
    MergeReport report;
    MergeAnswers answers(overwrite, report, err);
    const CUserMessagesScope installed(answers);
    const std::size_t before = list.Count();
    ReadCatalogueFile(path, list);
    report.added = list.Count() - before;
    return report;
}
