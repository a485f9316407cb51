#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "Dialogs/CheckedTextRules.h"
#include "Win/Controls.h"
#include "Win/GdiHandle.h"

// Sent to the parent when a checked edit loses the focus: wParam the edit window, lParam the
// right-trimmed text (const wchar_t*, valid during the call).
inline constexpr UINT WM_CHECKEDEDIT_KILLFOCUS = WM_APP + 1020;

// A single-line edit field that checks what is typed. A printable character that would make the
// text unacceptable is refused with a beep and an error balloon; after every change the whole
// text is judged and the field coloured: yellow with red text when invalid. An invalid text is
// only coloured, never refused: the owner tests IsValid before it takes the value.
//
// The owner attaches it to an edit window (Subclass) and may change its rules, message and title
// between uses. On losing the focus the field trims its trailing blanks without a change
// notification to the parent, then tells the parent the trimmed text (WM_CHECKEDEDIT_KILLFOCUS).
class CCheckedEdit : public CEdit {
public:
    CCheckedEdit(TextCheck wholeTextCheck = nullptr, TextCheck keystrokeCheck = nullptr,
                 const char16_t* message = nullptr, const char16_t* title = nullptr, std::int32_t maxLength = -1);
    ~CCheckedEdit() override;

    CheckedTextRules& Rules() { return rules_; }
    const CheckedTextRules& Rules() const { return rules_; }
    void SetMessage(std::u16string message) { message_ = std::move(message); }
    void SetTitle(std::u16string title) { title_ = std::move(title); }
    const std::u16string& Message() const { return message_; }
    const std::u16string& Title() const { return title_; }

    bool IsValid() const { return valid_; }
    // The text as last judged, without trailing blanks.
    const std::u16string& CurrentText() const { return currentText_; }

    // Judges the whole text and recolours the field when its state changed; true when invalid.
    bool CheckWholeText();
    // The error balloon (title, message, large error icon) over the field.
    void ShowErrorBalloon() { ShowBalloon(message_); }
    // The same balloon with another text, for an owner that refuses the value itself.
    void ShowBalloon(const std::u16string& text);

    bool OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnChar(WPARAM character, LPARAM lParam);
    void Refuse();
    LRESULT Colours(HDC dc);
    void OnKillFocus();
    void HideFallbackBalloon();

    bool valid_ = true;
    bool settingText_ = false;
    std::u16string message_;
    std::u16string title_;
    std::u16string currentText_;
    CheckedTextRules rules_;
    CBrushHandle invalidBrush_;
    CBrushHandle validBrush_;
    CBrushHandle greyBrush_;  // made and freed with the others, never painted with
    // Where the edit control cannot show its own balloon, a tracking balloon tooltip shows it.
    CToolTipCtrl fallbackBalloon_;
};

// Sounds a refused keystroke. Tests install a counter instead of the system's beep; returns the
// sound it replaces.
using RefusalSound = void (*)();
RefusalSound SetRefusalSound(RefusalSound sound);
