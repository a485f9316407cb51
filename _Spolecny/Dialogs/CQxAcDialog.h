#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <string_view>

#include "Win/Controls.h"
#include "Win/Dialog.h"
#include "Win/GdiHandle.h"

// The base of the program's dialogs: a heading at the top with a rule under it, the base font
// ("Arial", 13 points) and a smaller bold one, balloon tooltips per control, the dialog icon, a
// minimum size equal to the initial size, and the monitor's scale factor.
//
// The tooltips are tools of one tooltip window per dialog: every window costs milliseconds to make
// under Wine, and the editor has over forty tooltips.
class CQxAcDialog : public CDialog {
public:
    // `heading` empty: no heading and no rule. `iconId` 0: no icon.
    CQxAcDialog(UINT templateId, HWND parent, std::u16string heading = {}, WORD iconId = 0);
    ~CQxAcDialog() override;

    // A balloon tooltip for a control; a second one for the same control keeps the first.
    // Tooltips added while the dialog is open are attached at once. Returns the dialog's tooltip
    // window, which is made just after the dialog opens.
    CToolTipCtrl& AddToolTip(int controlId, std::u16string_view text);
    // The tooltips' texts by control id.
    const std::map<int, std::u16string>& ToolTips() const { return tooltips_; }
    const CToolTipCtrl& ToolTipWindow() const { return tooltip_; }

    // Relays every message to the tooltip window, then lets the dialog handle it.
    bool PreTranslateMessage(MSG& message) override;

    // A message box over the dialog under the program's caption "Materiály potrubí"; `flags` are the
    // message box's buttons and icon. Returns the button pressed.
    int ShowMessage(std::u16string_view text, UINT flags) const;

    // The system hot-light colour of the headings, read once.
    static COLORREF HeadingColour();

    const std::u16string& Heading() const { return heading_; }
    HFONT BaseFont() const { return baseFont_.Get(); }
    HFONT BoldFont() const { return boldFont_.Get(); }
    float Scale() const { return scale_; }
    SIZE InitialSize() const { return {initialWidth_, initialHeight_}; }

protected:
    // Answers WM_CTLCOLORSTATIC for a heading text control: `colour` on the dialog's background.
    static LRESULT HeadingControlColours(HDC dc, COLORREF colour);

    BOOL OnInitDialog() override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void Paint(HDC dc);
    void MakeToolTipWindow();

    static constexpr int kToolTipMaxWidth = 200;  // pixels
    std::map<int, std::u16string> tooltips_;
    CToolTipCtrl tooltip_;  // always shown, balloons, every tool of the dialog
    CFontHandle boldFont_;
    CFontHandle baseFont_;
    std::u16string heading_;
    HICON icon_ = nullptr;
    int initialWidth_ = 0;
    int initialHeight_ = 0;
    WORD iconId_;
    float scale_ = 1.0f;
};

// The pixel density of the monitor nearest to `window` over 96; 1.0 when it cannot be read.
float ReadMonitorScale(HWND window);
