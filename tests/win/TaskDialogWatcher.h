#pragma once

#include <commctrl.h>
#include <windows.h>

#include <algorithm>
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
            return std::find(texts.begin(), texts.end(), text) != texts.end();
        }
    };

    TaskDialogWatcher(std::wstring title, int buttonId, HWND ignored = nullptr, std::wstring showing = {})
        : watcher_(
              std::move(title),
              [this, buttonId](HWND dialog) {
                  seen_.texts = Texts(dialog);
                  PostMessageW(dialog, TDM_CLICK_BUTTON, static_cast<WPARAM>(buttonId), 0);
              },
              ignored,
              [showing](HWND dialog) {
                  return showing.empty() || Seen{true, Texts(dialog)}.Shows(showing);
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
    static std::vector<std::wstring> Texts(HWND dialog) {
        std::vector<std::wstring> texts;
        EnumChildWindows(
            dialog,
            [](HWND control, LPARAM found) -> BOOL {
                wchar_t text[1024] = {};
                if (GetWindowTextW(control, text, 1024) > 0)
                    reinterpret_cast<std::vector<std::wstring>*>(found)->push_back(text);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&texts));
        return texts;
    }

    Seen seen_;
    DialogWatcher watcher_;  // last: its thread may fill seen_ at once
};
