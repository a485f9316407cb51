#pragma once

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

// Waits on a second thread (up to ten seconds) for visible dialogs of this process with the given
// title and hands each to `answer`, which reads what it shows and closes it: tests can show real
// boxes and task dialogs without a person. Up to `count` dialogs are answered, one after the
// other. `ignored` is a dialog of the same title that is not awaited (the dialog under test, say);
// `accepts`, when given, picks the awaited ones among several of the title.
class DialogWatcher {
public:
    DialogWatcher(std::wstring title, std::function<void(HWND)> answer, HWND ignored = nullptr,
                  std::function<bool(HWND)> accepts = nullptr, int count = 1)
        : thread_([=, this] {
              HWND previous = nullptr;
              for (int attempt = 0; attempt < 500 && !stop_ && answered_ < count; ++attempt, Sleep(20)) {
                  for (HWND dialog = FindWindowExW(nullptr, nullptr, L"#32770", title.c_str()); dialog != nullptr;
                       dialog = FindWindowExW(nullptr, dialog, L"#32770", title.c_str())) {
                      if (dialog == ignored || dialog == previous || !IsWindowVisible(dialog)) continue;
                      if (accepts && !accepts(dialog)) continue;
                      answer(dialog);
                      previous = dialog;
                      ++answered_;
                      break;
                  }
              }
          }) {}
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
    std::atomic<bool> stop_{false};
    std::atomic<int> answered_{0};
    std::thread thread_;  // last: it starts at once
};

// Answers the dialogs of this process with the given title one after the other with the given
// buttons, recording what each shows: message boxes (pressed with WM_COMMAND), or task dialogs
// (TDM_CLICK_BUTTON).
class MessageBoxWatcher {
public:
    struct Seen {
        bool found = false;
        std::wstring text;                // a message box's text
        std::vector<std::wstring> texts;  // the texts of its controls
        HICON icon = nullptr;
        HWND owner = nullptr;

        bool Shows(const std::wstring& shown) const {
            return std::find(texts.begin(), texts.end(), shown) != texts.end();
        }
    };

    explicit MessageBoxWatcher(std::wstring title, std::vector<int> buttons = {IDOK}, HWND ignored = nullptr,
                               UINT clickMessage = WM_COMMAND)
        : buttons_(std::move(buttons)),
          watcher_(
              std::move(title),
              [this, clickMessage](HWND dialog) {
                  seen_.push_back(Read(dialog));
                  PostMessageW(dialog, clickMessage, static_cast<WPARAM>(buttons_[seen_.size() - 1]), 0);
              },
              ignored, nullptr, static_cast<int>(buttons_.size())) {}

    // Waits until every dialog was answered or ten seconds passed, or (Stop) stops watching at
    // once; returns what the first showed, with `found` false when none was shown.
    Seen Wait() { return watcher_.Wait() ? seen_.front() : Seen{}; }
    Seen Stop() { return watcher_.Stop() ? seen_.front() : Seen{}; }
    // Stops watching and returns the texts of the message boxes answered, in order.
    std::vector<std::wstring> Texts() {
        watcher_.Stop();
        std::vector<std::wstring> texts;
        for (const Seen& seen : seen_) texts.push_back(seen.text);
        return texts;
    }

private:
    static Seen Read(HWND dialog) {
        Seen seen;
        seen.found = true;
        wchar_t text[1024] = {};
        GetDlgItemTextW(dialog, 0xFFFF, text, 1024);  // a message box's text control
        seen.text = text;
        seen.icon = reinterpret_cast<HICON>(SendDlgItemMessageW(dialog, 0x440, STM_GETICON, 0, 0));
        seen.owner = GetWindow(dialog, GW_OWNER);
        for (HWND control = GetWindow(dialog, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT)) {
            if (GetWindowTextW(control, text, 1024) > 0) seen.texts.push_back(text);
        }
        return seen;
    }

    std::vector<int> buttons_;
    std::vector<Seen> seen_;
    DialogWatcher watcher_;  // last: its thread may fill seen_ at once
};
