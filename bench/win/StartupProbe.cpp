// How long the editor takes to show compared with its own window alone, in one run on one prefix:
//   startup_probe <Velmora.exe> <Potrubi_std.qxp> <work folder>
// times, each once to warm up and then five times (taking turns), from starting a process until
// its dialog is visible:
//   the floor: the editor's dialog template, loaded from Velmora.exe and shown by a procedure that
//              does nothing (this program again, with --template);
//   the editor: Velmora.exe on the standard catalogue (the user's catalogue a copy of it).
// The editor should show within 1.4 times the floor.

#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <string>
#include <vector>

#include "ProgramLaunch.h"
#include "_Velmora/MaterialDialogResources.h"

namespace {

constexpr int kRuns = 5;

INT_PTR CALLBACK DoNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

// The floor's process: the same common controls as the program, the editor's template, no code.
int ShowTemplate(const wchar_t* program) {
    INITCOMMONCONTROLSEX controls{sizeof(controls), 0xFF};
    InitCommonControlsEx(&controls);
    const HMODULE resources = LoadLibraryExW(program, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    const HWND dialog = CreateDialogParamW(resources, MAKEINTRESOURCEW(IDD_MAT_EDITUJ), nullptr, DoNothing, 0);
    if (dialog == nullptr) return 1;
    ShowWindow(dialog, SW_SHOW);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!IsDialogMessageW(dialog, &message)) DispatchMessageW(&message);
    }
    return 0;
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

// Prints the runs' figures; returns the median of their visible times.
double Print(const char* what, const std::vector<StartTimes>& runs) {
    std::vector<double> visible;
    std::vector<double> answering;
    std::printf("%-10s", what);
    for (const StartTimes& run : runs) {
        std::printf(" %6.3f", run.visible);
        visible.push_back(run.visible);
        answering.push_back(run.answering);
    }
    std::printf("   median %.3f s (answering %.3f s)\n", Median(visible), Median(answering));
    return Median(visible);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc == 3 && std::wstring(argv[1]) == L"--template") return ShowTemplate(argv[2]);
    if (argc != 4) {
        std::fputs("startup_probe <Velmora.exe> <Potrubi_std.qxp> <work folder>\n", stderr);
        return 2;
    }
    const std::wstring program = argv[1];
    const std::wstring folder = argv[3];
    CreateDirectoryW(folder.c_str(), nullptr);
    CreateDirectoryW((folder + L"\\Velmora").c_str(), nullptr);
    if (!CopyWholeFile(argv[2], folder + L"\\Velmora\\Potrubi_std.qxp") ||
        !CopyWholeFile(argv[2], folder + L"\\Velmora\\Potrubi.qxp")) {
        std::fputs("cannot copy the standard catalogue\n", stderr);
        return 1;
    }
    SetCatalogueFolders(folder);

    const std::wstring floorCommand = Quoted(argv[0]) + L" --template " + Quoted(program);
    const std::wstring editorCommand = Quoted(program);
    TimeStart(floorCommand);
    TimeStart(editorCommand);
    std::vector<StartTimes> floor;
    std::vector<StartTimes> editor;
    for (int run = 0; run < kRuns; ++run) {
        floor.push_back(TimeStart(floorCommand));
        editor.push_back(TimeStart(editorCommand));
    }
    std::puts("Seconds from start to visible window:");
    const double floorMedian = Print("template", floor);
    const double editorMedian = Print("editor", editor);
    std::printf("editor / template: %.2f (at most 1.4)\n", editorMedian / floorMedian);
    return 0;
}
