#pragma once

#include <windows.h>

#include <string>

#include "win/DialogWatcher.h"

// Answers a message box of this process with the given caption with `answer` (OK unless told),
// recording what it shows.
class MessageBoxWatcher {
public:
    struct Seen {
        bool found = false;
        std::wstring text;
        HICON icon = nullptr;
        HWND owner = nullptr;
    };

    explicit MessageBoxWatcher(std::wstring caption, WPARAM answer = IDOK, HWND ignored = nullptr)
        : watcher_(std::move(caption), [this, answer](HWND box) {
              wchar_t text[1024] = {};
              GetDlgItemTextW(box, 0xFFFF, text, 1024);  // the box's text control
              seen_.text = text;
              seen_.icon = reinterpret_cast<HICON>(SendDlgItemMessageW(box, 0x440, STM_GETICON, 0, 0));
              seen_.owner = GetWindow(box, GW_OWNER);
              PostMessageW(box, WM_COMMAND, answer, 0);
          },
                   ignored) {}

    // Stops watching (a box shown later is not answered) and returns what was seen.
    const Seen& Stop() {
        seen_.found = watcher_.Stop();
        return seen_;
    }

private:
    Seen seen_;
    DialogWatcher watcher_;  // last: its thread may fill seen_ at once
};
