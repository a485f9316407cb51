#pragma once

#include <windows.h>
#include <commctrl.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

// Waits on a second thread for a task dialog of this process with the given title, records the
// texts of its controls and presses the button of `buttonId` with TDM_CLICK_BUTTON.
class TaskDialogWatcher {
public:
    struct Seen {
        bool found = false;
        std::vector<std::wstring> texts;
        HWND owner = nullptr;

        bool Shows(const std::wstring& text) const {
            for (const std::wstring& shown : texts) {
                if (shown == text) return true;
            }
            return false;
        }
    };

    TaskDialogWatcher(std::wstring title, int buttonId) : title_(std::move(title)), buttonId_(buttonId) {
        thread_ = std::thread([this] { Watch(); });
    }
    ~TaskDialogWatcher() { Stop(); }

    const Seen& Stop() {
        stop_ = true;
        if (thread_.joinable()) thread_.join();
        return seen_;
    }

private:
    void Watch() {
        for (int attempt = 0; attempt < 500 && !stop_; ++attempt) {
            HWND dialog = FindWindowW(L"#32770", title_.c_str());
            if (dialog != nullptr && IsWindowVisible(dialog)) {
                EnumChildWindows(dialog, CollectText, reinterpret_cast<LPARAM>(&seen_.texts));
                seen_.owner = GetWindow(dialog, GW_OWNER);
                seen_.found = true;
                PostMessageW(dialog, TDM_CLICK_BUTTON, static_cast<WPARAM>(buttonId_), 0);
                return;
            }
            Sleep(20);
        }
    }

    static BOOL CALLBACK CollectText(HWND control, LPARAM texts) {
        wchar_t text[1024] = {};
        GetWindowTextW(control, text, 1024);
        if (text[0] != L'\0') reinterpret_cast<std::vector<std::wstring>*>(texts)->push_back(text);
        return TRUE;
    }

    std::wstring title_;
    int buttonId_;
    Seen seen_;
    std::atomic<bool> stop_{false};
    std::thread thread_;
};
