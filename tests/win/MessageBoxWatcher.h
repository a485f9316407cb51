#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "win/DialogWatcher.h"

// Answers the message boxes of this process with the given caption, one after the other, each
// with its own answer (one box answered OK unless told), recording what each shows.
class MessageBoxWatcher {
public:
    struct Seen {
        bool found = false;
        std::wstring text;
        HICON icon = nullptr;
        HWND owner = nullptr;
    };

    explicit MessageBoxWatcher(std::wstring caption, std::vector<WPARAM> answers = {IDOK}, HWND ignored = nullptr)
        : answers_(std::move(answers)),
          watcher_(
              std::move(caption),
              [this](HWND box) {
                  wchar_t text[1024] = {};
                  GetDlgItemTextW(box, 0xFFFF, text, 1024);  // the box's text control
                  seen_.push_back({true, text,
                                   reinterpret_cast<HICON>(SendDlgItemMessageW(box, 0x440, STM_GETICON, 0, 0)),
                                   GetWindow(box, GW_OWNER)});
                  PostMessageW(box, WM_COMMAND, answers_[seen_.size() - 1], 0);
              },
              ignored, nullptr, static_cast<int>(answers_.size())) {}

    // Stops watching (a box shown later is not answered) and returns what the first box showed;
    // `found` is false when none was shown.
    Seen Stop() {
        watcher_.Stop();
        return seen_.empty() ? Seen{} : seen_.front();
    }
    // Stops watching and returns the texts of all boxes answered, in order.
    std::vector<std::wstring> Texts() {
        watcher_.Stop();
        std::vector<std::wstring> texts;
        for (const Seen& seen : seen_) texts.push_back(seen.text);
        return texts;
    }

private:
    std::vector<WPARAM> answers_;
    std::vector<Seen> seen_;
    DialogWatcher watcher_;  // last: its thread may fill seen_ at once
};
