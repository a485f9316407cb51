#pragma once

#include <commctrl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "win/DialogWatcher.h"

// Answers a task dialog of this process with the given title by pressing the button of
// `buttonId` (TDM_CLICK_BUTTON), recording the texts of its controls. With `showing`, only the
// dialog that shows that text is answered.
class TaskDialogWatcher {
public:
    struct Seen {
        bool found = false;
        std::vector<std::wstring> texts;

        bool Shows(const std::wstring& text) const {
            for (const std::wstring& shown : texts) {
                if (shown == text) return true;
            }
            return false;
        }
    };

    TaskDialogWatcher(std::wstring title, int buttonId, HWND ignored = nullptr, std::wstring showing = {})
        : watcher_(
              std::move(title),
              [this, buttonId](HWND dialog) {
                  EnumChildWindows(dialog, CollectText, reinterpret_cast<LPARAM>(&seen_.texts));
                  PostMessageW(dialog, TDM_CLICK_BUTTON, static_cast<WPARAM>(buttonId), 0);
              },
              ignored,
              [showing](HWND dialog) {
                  if (showing.empty()) return true;
                  Seen candidate;
                  EnumChildWindows(dialog, CollectText, reinterpret_cast<LPARAM>(&candidate.texts));
                  return candidate.Shows(showing);
              }) {}

    // Waits for the dialog (ten seconds at most) and returns what it showed.
    const Seen& Wait() {
        seen_.found = watcher_.Wait();
        return seen_;
    }

    const Seen& Stop() {
        seen_.found = watcher_.Stop();
        return seen_;
    }

private:
    static BOOL CALLBACK CollectText(HWND control, LPARAM texts) {
        wchar_t text[1024] = {};
        GetWindowTextW(control, text, 1024);
        if (text[0] != L'\0') reinterpret_cast<std::vector<std::wstring>*>(texts)->push_back(text);
        return TRUE;
    }

    Seen seen_;
    DialogWatcher watcher_;  // last: its thread may fill seen_ at once
};
