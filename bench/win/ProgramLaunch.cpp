#include "ProgramLaunch.h"

#include <algorithm>
#include <cstddef>

namespace {

struct ShownDialog {
    DWORD process;
    HWND window;
};

BOOL CALLBACK FindShownDialog(HWND window, LPARAM search) {
    auto* wanted = reinterpret_cast<ShownDialog*>(search);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != wanted->process || !IsWindowVisible(window)) return TRUE;
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (lstrcmpW(className, L"#32770") != 0) return TRUE;
    wanted->window = window;
    return FALSE;
}

}  // namespace

double Now() {
    static const double frequency = [] {
        LARGE_INTEGER ticks{};
        QueryPerformanceFrequency(&ticks);
        return static_cast<double>(ticks.QuadPart);
    }();
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    return static_cast<double>(ticks.QuadPart) / frequency;
}

double Median(std::vector<double> figures) {
    if (figures.empty()) return 0;
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>((figures.size() - 1) / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

void SetCatalogueFolders(const std::wstring& folder) {
    const auto bytes = static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t));
    for (const wchar_t* value : {L"InstallPath", L"CommonInstallPath", L"DataPath", L"CommonDataPath"}) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"Software\\Quorvex", value, REG_SZ, folder.c_str(), bytes);
    }
}

bool CopyWholeFile(const std::wstring& from, const std::wstring& to) {
    return CopyFileW(from.c_str(), to.c_str(), FALSE) != FALSE;
}

StartTimes TimeStart(const std::wstring& commandLine) {
    // A hidden window of our own keeps Wine's desktop process alive between the programs, which
    // would otherwise now and then start it again for the next one.
    static const HWND keepDesktop =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    (void)keepDesktop;
    std::wstring command = commandLine;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    StartTimes times;
    const double start = Now();
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started)) {
        return times;
    }
    ShownDialog shown{started.dwProcessId, nullptr};
    while (Now() - start < 20) {
        EnumWindows(FindShownDialog, reinterpret_cast<LPARAM>(&shown));
        if (shown.window != nullptr) {
            times.visible = Now() - start;
            DWORD_PTR answer = 0;
            if (SendMessageTimeoutW(shown.window, WM_NULL, 0, 0, SMTO_BLOCK, 10000, &answer) != 0) {
                times.answering = Now() - start;
            }
            break;
        }
        if (WaitForSingleObject(started.hProcess, 1) == WAIT_OBJECT_0) break;  // ended without a dialog
    }
    TerminateProcess(started.hProcess, 0);
    WaitForSingleObject(started.hProcess, 10000);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    Sleep(200);  // lets the window system forget the process before the next one
    return times;
}
