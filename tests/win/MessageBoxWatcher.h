#pragma once

#include <windows.h>

#include <atomic>
#include <string>
#include <thread>

// Waits on a second thread for a message box of this process with the given caption, records
// what it shows and closes it with `answer` (OK unless told), so that tests can show real boxes
// without a person.
class MessageBoxWatcher {
public:
    struct Seen {
        bool found = false;
        std::wstring text;
        HICON icon = nullptr;
        HWND owner = nullptr;
    };

    explicit MessageBoxWatcher(std::wstring caption, WPARAM answer = IDOK)
        : caption_(std::move(caption)), answer_(answer) {
        thread_ = std::thread([this] { Watch(); });
    }
    ~MessageBoxWatcher() { Stop(); }

    // Stops watching (a box shown later is not answered) and returns what was seen.
    const Seen& Stop() {
        stop_ = true;
        if (thread_.joinable()) thread_.join();
        return seen_;
    }

private:
    void Watch() {
        for (int attempt = 0; attempt < 500 && !stop_; ++attempt) {
            HWND box = FindWindowW(L"#32770", caption_.c_str());
            if (box != nullptr && GetWindowThreadProcessId(box, nullptr) != GetCurrentThreadId()) {
                wchar_t text[1024] = {};
                GetDlgItemTextW(box, 0xFFFF, text, 1024);  // the box's text control
                seen_.text = text;
                seen_.icon = reinterpret_cast<HICON>(SendDlgItemMessageW(box, 0x440, STM_GETICON, 0, 0));
                seen_.owner = GetWindow(box, GW_OWNER);
                seen_.found = true;
                PostMessageW(box, WM_COMMAND, answer_, 0);
                return;
            }
            Sleep(20);
        }
    }

    std::wstring caption_;
    WPARAM answer_;
    Seen seen_;
    std::atomic<bool> stop_{false};
    std::thread thread_;
};
