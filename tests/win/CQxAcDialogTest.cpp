#include "Dialogs/CQxAcDialog.h"

#include <gtest/gtest.h>

#include "Dialogs/DialogMetrics.h"
#include "Win/WideText.h"
#include "resource.h"
#include "win/DemoDialog.h"
#include "win/GuiHarness.h"

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

class DialogBase : public ::testing::Test {
protected:
    void Open(DemoDialog& dialog) {
        ASSERT_TRUE(dialog.Create());
        dialog.Show(SW_SHOW);
        gui::Pump(dialog);
    }

    std::u16string ToolText(const CToolTipCtrl& tooltip, HWND dialog, int controlId) {
        wchar_t text[256] = {};
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof(tool);
        tool.hwnd = dialog;
        tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(dialog, controlId));
        tool.lpszText = text;
        tooltip.Send(TTM_GETTEXTW, 256, reinterpret_cast<LPARAM>(&tool));
        return FromWide(text);
    }
};

TEST_F(DialogBase, HeadingAndRuleFollowTheScale) {
    DemoDialog dialog(u"Materiály potrubí");
    Open(dialog);
    const gui::ClientPicture picture(dialog.Handle());
    const HeadingLayout layout = HeadingLayoutForScale(dialog.Scale());

    // The rule runs from the margin up to, not including, the width less the margin.
    EXPECT_EQ(picture.Pixel(layout.margin, layout.ruleY), kBlack);
    EXPECT_EQ(picture.Pixel(picture.Width() - layout.margin - 1, layout.ruleY), kBlack);
    EXPECT_EQ(picture.Pixel(layout.margin - 1, layout.ruleY), kWhite);
    EXPECT_EQ(picture.Pixel(picture.Width() - layout.margin, layout.ruleY), kWhite);
    EXPECT_EQ(picture.Pixel(picture.Width() / 2, layout.ruleY - 1), kWhite);
    EXPECT_EQ(picture.Pixel(picture.Width() / 2, layout.ruleY + 1), kWhite);

    // The text lies between its start and the rule, beginning at the margin.
    int inked = 0;
    int leftmost = picture.Width();
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            if (y == layout.ruleY || picture.Pixel(x, y) == kWhite) continue;
            ++inked;
            leftmost = std::min(leftmost, x);
            EXPECT_GE(y, layout.textY);
            EXPECT_LT(y, layout.ruleY);
        }
    }
    EXPECT_GT(inked, 50);
    EXPECT_GE(leftmost, layout.margin);
    EXPECT_LE(leftmost, layout.margin + 3);
}

TEST_F(DialogBase, NoHeadingMeansNoRule) {
    DemoDialog dialog(u"");
    Open(dialog);
    const gui::ClientPicture picture(dialog.Handle());
    int inked = 0;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) inked += picture.Pixel(x, y) != kWhite;
    }
    EXPECT_EQ(inked, 0);
}

TEST_F(DialogBase, CannotShrinkBelowItsInitialSize) {
    DemoDialog dialog;
    Open(dialog);
    const SIZE initial = dialog.InitialSize();
    ASSERT_GT(initial.cx, 0);

    SetWindowPos(dialog.Handle(), nullptr, 0, 0, initial.cx / 2, initial.cy / 3, SWP_NOMOVE | SWP_NOZORDER);
    RECT window = dialog.WindowRect();
    EXPECT_EQ(window.right - window.left, initial.cx);
    EXPECT_EQ(window.bottom - window.top, initial.cy);

    SetWindowPos(dialog.Handle(), nullptr, 0, 0, initial.cx + 40, initial.cy + 30, SWP_NOMOVE | SWP_NOZORDER);
    window = dialog.WindowRect();
    EXPECT_EQ(window.right - window.left, initial.cx + 40);
    EXPECT_EQ(window.bottom - window.top, initial.cy + 30);
}

TEST_F(DialogBase, ASecondTooltipForTheSameControlKeepsTheFirst) {
    DemoDialog dialog;
    CToolTipCtrl& first = dialog.AddToolTip(IDC_WHOLE, u"Jmenovitý tlak");
    CToolTipCtrl& second = dialog.AddToolTip(IDC_WHOLE, u"Jiný text");
    EXPECT_EQ(&first, &second);
    Open(dialog);

    const CQxAcDialog::ToolTipEntry& entry = dialog.ToolTips().at(IDC_WHOLE);
    EXPECT_EQ(entry.text, u"Jmenovitý tlak");
    EXPECT_EQ(ToolText(first, dialog.Handle(), IDC_WHOLE), u"Jmenovitý tlak");
    const LONG style = GetWindowLongW(first.Handle(), GWL_STYLE);
    EXPECT_EQ(style & (TTS_BALLOON | TTS_ALWAYSTIP), TTS_BALLOON | TTS_ALWAYSTIP);
    EXPECT_EQ(first.Send(TTM_GETMAXTIPWIDTH), 200);

    // Added while open: attached at once; again the first text stays.
    CToolTipCtrl& late = dialog.AddToolTip(IDC_DECIMAL, u"Drsnost v mm");
    dialog.AddToolTip(IDC_DECIMAL, u"Jiný text");
    EXPECT_EQ(ToolText(late, dialog.Handle(), IDC_DECIMAL), u"Drsnost v mm");
}

// The picture is for people: set VELMORA_SCREENSHOT_DIR to keep it.
TEST_F(DialogBase, HoveringAControlShowsItsTooltipThroughTheRelayBesideARefusal) {
    DemoDialog dialog(u"Kontrolovaná pole – ukázka");
    Open(dialog);
    SetWindowPos(dialog.Handle(), nullptr, 40, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    gui::SetText(dialog.Item(IDC_DECIMAL), u"1.");
    gui::SetText(dialog.Item(IDC_EMAIL), u"jan.novak@firma.cz");
    gui::SetText(dialog.Item(IDC_FILE), u"Potrubí.qxp");
    const RECT button = CWindow(dialog.Item(IDC_ADD)).WindowRect();
    SetCursorPos((button.left + button.right) / 2, (button.top + button.bottom) / 2);
    const POINT client{(button.right - button.left) / 2, (button.bottom - button.top) / 2};
    PostMessageW(dialog.Item(IDC_ADD), WM_MOUSEMOVE, 0, MAKELPARAM(client.x, client.y));
    gui::Pump(dialog, 1200);

    const gui::Balloon tooltip = gui::FindVisibleBalloon();
    ASSERT_TRUE(tooltip.visible);
    EXPECT_EQ(tooltip.text, u"Přidej materiál");

    SetFocus(dialog.Item(IDC_WHOLE));
    gui::Type(dialog.Item(IDC_WHOLE), u"12a");
    gui::Pump(dialog, 300);
    EXPECT_EQ(gui::Text(dialog.Item(IDC_WHOLE)), u"12");
    EXPECT_EQ(gui::VisibleBalloons().size(), 2u);  // the refusal's and the tooltip
    gui::SaveScreenshot(L"dialog-base-demo");
}

TEST_F(DialogBase, IconAndFonts) {
    DemoDialog dialog;
    Open(dialog);
    const auto icon = reinterpret_cast<HICON>(dialog.Send(WM_GETICON, ICON_BIG));
    EXPECT_EQ(icon, LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_VELMORA)));
    EXPECT_EQ(reinterpret_cast<HICON>(dialog.Send(WM_GETICON, ICON_SMALL)), icon);

    LOGFONTW base{};
    LOGFONTW bold{};
    ASSERT_NE(GetObjectW(dialog.BaseFont(), sizeof(base), &base), 0);
    ASSERT_NE(GetObjectW(dialog.BoldFont(), sizeof(bold), &bold), 0);
    EXPECT_STREQ(base.lfFaceName, L"Arial");
    EXPECT_STREQ(bold.lfFaceName, L"Arial");
    EXPECT_EQ(bold.lfWeight, FW_BOLD);
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    if (dpi == 96) {
        EXPECT_EQ(base.lfHeight, -17);
        EXPECT_EQ(bold.lfHeight, -12);
    }
}

}  // namespace
