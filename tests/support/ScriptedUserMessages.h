#pragma once

#include <string>
#include <vector>

#include "TextCodec.h"
#include "UserMessages.h"

// Records every message the code under test shows, in order, for assertions.
class ScriptedUserMessages final : public CUserMessages {
public:
    struct Shown {
        std::u16string caption;
        std::u16string text;
    };

    void ShowExceptionBox(std::string_view textWindows1250) override {
        shown.push_back({std::u16string(Captions::kException), FromWindows1250(textWindows1250)});
    }
    void ShowFileErrorBox(std::u16string_view text) override {
        shown.push_back({std::u16string(Captions::kUnexpectedException), std::u16string(text)});
    }

    std::vector<Shown> shown;
};
