#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

// Waits on a second thread (up to ten seconds) for a visible dialog of this process with the given
// title and hands it to `answer`, which reads what it shows and closes it: tests can show real
// boxes and task dialogs without a person. `ignored` is a dialog of the same title that is not
// the one awaited (the dialog under test, say); `accepts`, when given, picks the awaited one among
// several of the title.
class DialogWatcher {
public:
    DialogWatcher(std::wstring title, std::function<void(HWND)> answer, HWND ignored = nullptr,
                  std::function<bool(HWND)> accepts = nullptr)
        : title_(std::move(title)), answer_(std::move(answer)), ignored_(ignored), accepts_(std::move(accepts)) {
        thread_ = std::thread([this] { Watch(); });
    }
    ~DialogWatcher() { Stop(); }

    // Waits until a dialog was answered or the ten seconds are over; true when one was answered.
    bool Wait() {
        if (thread_.joinable()) thread_.join();
        return found_;
    }

    // Stops watching (a dialog shown later is not answered); true when one was answered.
    bool Stop() {
        stop_ = true;
        if (thread_.joinable()) thread_.join();
        return found_;
    }

private:
    void Watch() {
        for (int attempt = 0; attempt < 500 && !stop_; ++attempt) {
            for (HWND dialog = FindWindowExW(nullptr, nullptr, L"#32770", title_.c_str()); dialog != nullptr;
                 dialog = FindWindowExW(nullptr, dialog, L"#32770", title_.c_str())) {
                if (dialog != ignored_ && IsWindowVisible(dialog) &&
                    GetWindowThreadProcessId(dialog, nullptr) != GetCurrentThreadId() &&
                    (!accepts_ || accepts_(dialog))) {
                    answer_(dialog);
                    found_ = true;
                    return;
                }
            }
            Sleep(20);
        }
    }

    std::wstring title_;
    std::function<void(HWND)> answer_;
    HWND ignored_;
    std::function<bool(HWND)> accepts_;
    std::atomic<bool> stop_{false};
    std::atomic<bool> found_{false};
    std::thread thread_;
};
