#pragma once

#include <windows.h>

#include <string>
#include <thread>
#include <vector>

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

// Answers several message boxes of this process with the given caption, one after the other, each
// with its own answer, recording their texts.
class MessageBoxSequence {
public:
    MessageBoxSequence(std::wstring caption, std::vector<WPARAM> answers, HWND ignored = nullptr)
        : caption_(std::move(caption)), answers_(std::move(answers)), ignored_(ignored) {
        thread_ = std::thread([this] { Answer(); });
    }
    ~MessageBoxSequence() { Wait(); }

    // Waits until every box was answered (or ten seconds passed) and returns their texts.
    const std::vector<std::wstring>& Wait() {
        if (thread_.joinable()) thread_.join();
        return texts_;
    }

private:
    void Answer() {
        HWND previous = nullptr;
        for (int attempt = 0; attempt < 500 && texts_.size() < answers_.size(); ++attempt) {
            for (HWND box = FindWindowExW(nullptr, nullptr, L"#32770", caption_.c_str()); box != nullptr;
                 box = FindWindowExW(nullptr, box, L"#32770", caption_.c_str())) {
                if (box == ignored_ || box == previous || !IsWindowVisible(box)) continue;
                wchar_t text[1024] = {};
                GetDlgItemTextW(box, 0xFFFF, text, 1024);
                texts_.push_back(text);
                PostMessageW(box, WM_COMMAND, answers_[texts_.size() - 1], 0);
                previous = box;
                break;
            }
            Sleep(20);
        }
    }

    std::wstring caption_;
    std::vector<WPARAM> answers_;
    HWND ignored_;
    std::vector<std::wstring> texts_;
    std::thread thread_;  // last: it starts at once
};
