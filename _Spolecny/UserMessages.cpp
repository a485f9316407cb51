#include "UserMessages.h"

#include <cstdio>
#include <string>

#include "TextCodec.h"

namespace {

// Writes each message to the error stream in UTF-8: for command-line tools and for a program
// that has not installed its window-system messages yet. Questions get no answer.
class CConsoleUserMessages final : public CUserMessages {
public:
    void ShowExceptionBox(std::string_view textWindows1250) override {
        Write(Captions::kException, FromWindows1250(textWindows1250));
    }
    void ShowFileErrorBox(std::u16string_view text) override { Write(Captions::kUnexpectedException, text); }
    void ShowTaskDialog(std::u16string_view mainInstruction, std::u16string_view content) override {
        Write(Captions::kProgram, std::u16string(mainInstruction) + u"\n" + std::u16string(content));
    }
    // Nobody can answer here: the question counts as not shown, which keeps the list's material.
    unsigned AskOverwrite(std::u16string_view) override { return 0; }
    bool AskSaveUpdated() override { return false; }
    bool AskOverwriteChangedFile() override { return false; }

private:
    static void Write(std::u16string_view caption, std::u16string_view text) {
        std::fprintf(stderr, "%s: %s\n", ToUtf8(caption).c_str(), ToUtf8(text).c_str());
    }
};

CConsoleUserMessages g_consoleMessages;
CUserMessages* g_installed = nullptr;

}  // namespace

CUserMessages& UserMessages() { return g_installed ? *g_installed : g_consoleMessages; }

CUserMessages* SetUserMessages(CUserMessages* messages) {
    CUserMessages* previous = g_installed;
    g_installed = messages;
    return previous;
}
