// The editor on large catalogues under Wine: 1,000 and 10,000 generated materials of 28 profiles.
//   gui_benchmark <Velmora.exe> <work folder>
// For each size the catalogue is written as the user's catalogue in a folder of its own, and the
// program's folder values point there. Start-up is Velmora.exe started from here until its window
// is visible; the actions drive the real editor in this process through its controls, each timed
// until every message it caused (painting too) has been handled. Medians of five; OK once.

#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "ProgramLaunch.h"
#include "RandomCatalogue.h"
#include "Win/Win32Services.h"
#include "_Velmora/CatalogueLoading.h"
#include "_Velmora/MaterialDialogResources.h"
#include "_Velmora/QxDlgMatEdituj.h"

namespace {

constexpr int kRuns = 5;
constexpr int kProfilesEach = 28;
constexpr int kSizes[] = {1000, 10000};

const char* const kActions[] = {"start to visible window", "filter click",       "change of row",
                                "\"+\", name, \"Ulož..\"",  "rename moving the row", "\"X\"",
                                "OK with its save"};
constexpr int kActionCount = static_cast<int>(std::size(kActions));

// Handles every message waiting for this thread, painting included.
void Settle(CDialog& dialog) {
    MSG message{};
    for (int pass = 0; pass < 2; ++pass) {
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) dialog.ProcessMessage(message);
        RedrawWindow(dialog.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
}

// Seconds that `action` and what it caused took.
double Timed(CDialog& dialog, const std::function<void()>& action) {
    Settle(dialog);
    const double start = Now();
    action();
    Settle(dialog);
    return Now() - start;
}

class EditorSession {
public:
    explicit EditorSession(CQvxSezMaterialu& list) {
        editor_.PrepareEditing(list, {kPlacementAll, kMediumAll});
        editor_.Create();
        editor_.Show(SW_SHOW);
        Settle(editor_);
    }

    // The action's median over kRuns goes, `action` given the run.
    double Median(const std::function<void(int)>& action) {
        std::vector<double> figures;
        for (int run = 0; run < kRuns; ++run) figures.push_back(Timed(editor_, [&] { action(run); }));
        return ::Median(figures);
    }
    double Once(const std::function<void()>& action) { return Timed(editor_, action); }

    void Click(int id) { SendMessageW(editor_.Item(id), BM_CLICK, 0, 0); }
    void SelectRow(int row) {
        const HWND list = editor_.MaterialList().Handle();
        ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        ListView_SetSelectionMark(list, row);
    }
    int RowCount() const { return editor_.MaterialList().GetItemCount(); }
    // Types a name into "Název:" over what it holds, as the keyboard would.
    void TypeName(const std::u16string& name) {
        const HWND field = editor_.Item(IDC_NAME);
        SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
        for (const char16_t character : name) SendMessageW(field, WM_CHAR, character, 1);
    }
    bool Ended() const { return editor_.HasEnded(); }

private:
    CQxDlgMatEdituj editor_{nullptr};
};

std::u16string Numbered(std::u16string_view text, int number) {
    const std::string digits = std::to_string(number);
    return std::u16string(text) + std::u16string(digits.begin(), digits.end());
}

// The figures of one catalogue size, in the order of kActions.
std::vector<double> Measure(const std::wstring& program, const std::wstring& folder, int materials) {
    CreateDirectoryW(folder.c_str(), nullptr);
    SetCatalogueFolders(folder);
    // An earlier run's catalogue is no file this list has read: saving over it would ask first.
    DeleteFileW((folder + L"\\Velmora\\Potrubi.qxp").c_str());
    {
        CQvxSezMaterialu generated;
        RandomCatalogue(1).Fill(generated, materials, kProfilesEach);
        generated.SaveCatalogue();
    }

    std::vector<double> figures;
    std::vector<double> starts;
    TimeStart(L"\"" + program + L"\"");
    for (int run = 0; run < kRuns; ++run) starts.push_back(TimeStart(L"\"" + program + L"\"").visible);
    figures.push_back(Median(starts));

    CQvxSezMaterialu list;
    LoadCatalogueAtStartup(list);
    EditorSession editor(list);
    // "Voda" and back to "Vše", each click timed.
    std::vector<double> filters;
    for (int run = 0; run < kRuns; ++run) {
        filters.push_back(editor.Once([&] { editor.Click(IDC_FILTER_WATER); }));
        filters.push_back(editor.Once([&] { editor.Click(IDC_FILTER_ALL); }));
    }
    figures.push_back(Median(filters));
    figures.push_back(editor.Median([&](int run) { editor.SelectRow(editor.RowCount() / 2 + run); }));
    figures.push_back(editor.Median([&](int run) {
        editor.Click(IDC_MATERIAL_ADD);
        editor.TypeName(Numbered(u"Nový materiál ", run));
        editor.Click(IDC_MATERIAL_APPLY);
    }));
    // A material near the top renamed to the end of the list.
    figures.push_back(editor.Median([&](int run) {
        editor.SelectRow(run);
        editor.Click(IDC_MATERIAL_EDIT);
        editor.TypeName(Numbered(u"ŽŽ přejmenovaný ", run));
        editor.Click(IDC_MATERIAL_APPLY);
    }));
    figures.push_back(editor.Median([&](int run) {
        editor.SelectRow(editor.RowCount() / 3 + run);
        editor.Click(IDC_MATERIAL_DELETE);
    }));
    figures.push_back(editor.Once([&] { editor.Click(IDOK); }));
    if (!editor.Ended()) std::fputs("the editor did not close on OK\n", stderr);
    return figures;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 3) {
        std::fputs("gui_benchmark <Velmora.exe> <work folder>\n", stderr);
        return 2;
    }
    CWin32Services services;  // as the program has them, the file system included

    const std::wstring work = argv[2];
    CreateDirectoryW(work.c_str(), nullptr);
    std::vector<std::vector<double>> columns;
    for (const int materials : kSizes) {
        columns.push_back(Measure(argv[1], work + L"\\" + std::to_wstring(materials), materials));
    }

    std::printf("%-26s %10s %10s\n", "ms (median of 5)", "1,000", "10,000");
    for (int action = 0; action < kActionCount; ++action) {
        std::printf("%-26s %10.1f %10.1f\n", kActions[action], columns[0][static_cast<std::size_t>(action)] * 1000,
                    columns[1][static_cast<std::size_t>(action)] * 1000);
    }
    return 0;
}
