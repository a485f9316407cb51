#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

// Waits on a second thread (up to ten seconds) for visible dialogs of this process with the given
// title and hands each to `answer`, which reads what it shows and closes it: tests can show real
// boxes and task dialogs without a person. Up to `count` dialogs are answered, one after the
// other. `ignored` is a dialog of the same title that is not awaited (the dialog under test, say);
// `accepts`, when given, picks the awaited ones among several of the title.
class DialogWatcher {
public:
    DialogWatcher(std::wstring title, std::function<void(HWND)> answer, HWND ignored = nullptr,
                  std::function<bool(HWND)> accepts = nullptr, int count = 1)
        : title_(std::move(title)),
          answer_(std::move(answer)),
          ignored_(ignored),
          accepts_(std::move(accepts)),
          count_(count) {
        thread_ = std::thread([this] { Watch(); });
    }
    ~DialogWatcher() { Stop(); }

    // Waits until `count` dialogs were answered or the ten seconds are over; true when any was.
    bool Wait() {
        if (thread_.joinable()) thread_.join();
        return answered_ > 0;
    }

    // Stops watching (a dialog shown later is not answered); true when any was answered.
    bool Stop() {
        stop_ = true;
        return Wait();
    }

private:
    void Watch() {
        HWND previous = nullptr;
        for (int attempt = 0; attempt < 500 && !stop_ && answered_ < count_; ++attempt) {
            for (HWND dialog = FindWindowExW(nullptr, nullptr, L"#32770", title_.c_str()); dialog != nullptr;
                 dialog = FindWindowExW(nullptr, dialog, L"#32770", title_.c_str())) {
                if (dialog != ignored_ && dialog != previous && IsWindowVisible(dialog) &&
                    (!accepts_ || accepts_(dialog))) {
                    answer_(dialog);
                    previous = dialog;
                    ++answered_;
                    break;
                }
            }
            Sleep(20);
        }
    }

    std::wstring title_;
    std::function<void(HWND)> answer_;
    HWND ignored_;
    std::function<bool(HWND)> accepts_;
    int count_;
    std::atomic<bool> stop_{false};
    std::atomic<int> answered_{0};
    std::thread thread_;  // last: it starts at once
};
