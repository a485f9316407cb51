#pragma once

#include <deque>
#include <string>
#include <vector>

#include "TextCodec.h"
#include "UserMessages.h"

// Records every message the code under test shows, in order, for assertions, and answers the
// questions from scripts. A question without a scripted answer gets what a person cannot give:
// 0 (not shown) for the overwrite question, No for the yes/no questions.
class ScriptedUserMessages final : public CUserMessages {
public:
    struct Shown {
        std::u16string caption;
        std::u16string text;     // a task dialog's main instruction
        std::u16string content;  // a task dialog's content
    };

    void ShowExceptionBox(std::string_view textWindows1250) override {
        shown.push_back({std::u16string(Captions::kException), FromWindows1250(textWindows1250), u""});
    }
    void ShowFileErrorBox(std::u16string_view text) override {
        shown.push_back({std::u16string(Captions::kUnexpectedException), std::u16string(text), u""});
    }
    void ShowTaskDialog(std::u16string_view mainInstruction, std::u16string_view content) override {
        shown.push_back({std::u16string(Captions::kProgram), std::u16string(mainInstruction), std::u16string(content)});
    }
    unsigned AskOverwrite(std::u16string_view materialName) override {
        shown.push_back(
            {std::u16string(Captions::kProgram), std::u16string(Questions::kOverwrite), std::u16string(materialName)});
        return Next(overwriteAnswers, 0u);
    }
    bool AskSaveUpdated() override {
        shown.push_back({std::u16string(Captions::kSaveUpdated), std::u16string(Questions::kSaveUpdated), u""});
        return Next(saveAnswers, false);
    }
    bool AskOverwriteChangedFile() override {
        shown.push_back({std::u16string(Captions::kProgram), std::u16string(Questions::kOverwriteChangedFile), u""});
        return Next(overwriteChangedAnswers, false);
    }

    // How many of the shown messages carry `text`.
    std::size_t CountOf(std::u16string_view text) const {
        std::size_t count = 0;
        for (const Shown& message : shown) count += message.text == text ? 1 : 0;
        return count;
    }

    std::vector<Shown> shown;
    std::deque<unsigned> overwriteAnswers;  // button bits: 2, 4, 16, 32
    std::deque<bool> saveAnswers;
    std::deque<bool> overwriteChangedAnswers;

private:
    template <typename T>
    static T Next(std::deque<T>& answers, T unanswered) {
        if (answers.empty()) return unanswered;
        const T answer = answers.front();
        answers.pop_front();
        return answer;
    }
};
