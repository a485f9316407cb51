// What the dialog base gives the material dialogs under Wine: heading, size limit, tooltips,
// icon and fonts.

#include "Dialogs/CQxAcDialog.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Dialogs/DialogMetrics.h"
#include "Dialogs/TreeListCtrl.h"
#include "resource.h"
#include "win/MaterialEditorHarness.h"

namespace {

using namespace material_dialogs;

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

// The pixels of `window`'s own painting (not its controls') that are not white.
int InkedPixels(const gui::ClientPicture& picture, int skipRow = -1) {
    int inked = 0;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) inked += y != skipRow && picture.Pixel(x, y) != kWhite;
    }
    return inked;
}

TEST_F(MaterialEditor, HeadingAndRuleFollowTheScale) {
    Open();
    const gui::ClientPicture picture(editor.Handle());
    const HeadingLayout layout = HeadingLayoutForScale(editor.Scale());

    // The rule runs from the margin up to, not including, the width less the margin.
    EXPECT_EQ(picture.Pixel(layout.margin, layout.ruleY), kBlack);
    EXPECT_EQ(picture.Pixel(picture.Width() - layout.margin - 1, layout.ruleY), kBlack);
    EXPECT_EQ(picture.Pixel(layout.margin - 1, layout.ruleY), kWhite);
    EXPECT_EQ(picture.Pixel(picture.Width() - layout.margin, layout.ruleY), kWhite);
    EXPECT_EQ(picture.Pixel(picture.Width() / 2, layout.ruleY - 1), kWhite);
    EXPECT_EQ(picture.Pixel(picture.Width() / 2, layout.ruleY + 1), kWhite);

    // The text lies between its start and the rule, beginning at the margin.
    int leftmost = picture.Width();
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            if (y == layout.ruleY || picture.Pixel(x, y) == kWhite) continue;
            leftmost = std::min(leftmost, x);
            EXPECT_GE(y, layout.textY);
            EXPECT_LT(y, layout.ruleY);
        }
    }
    EXPECT_GT(InkedPixels(picture, layout.ruleY), 50);
    EXPECT_GE(leftmost, layout.margin);
    EXPECT_LE(leftmost, layout.margin + 3);
}

TEST_F(MaterialSelection, NoHeadingMeansNoRule) {
    Open(false);
    EXPECT_EQ(InkedPixels(gui::ClientPicture(dialog.Handle())), 0);
}

TEST_F(MaterialEditor, CannotShrinkBelowItsInitialSize) {
    Open();
    const SIZE initial = editor.InitialSize();
    ASSERT_GT(initial.cx, 0);
    for (const auto& [width, height] : {std::pair{initial.cx / 2, initial.cy / 3}, {initial.cx + 40, initial.cy + 30}}) {
        SetWindowPos(editor.Handle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        const RECT window = editor.WindowRect();
        EXPECT_EQ(window.right - window.left, std::max(width, initial.cx));
        EXPECT_EQ(window.bottom - window.top, std::max(height, initial.cy));
    }
}

// The tooltips are balloons that show also over an inactive dialog; the profile pane's, added once
// the dialog is open, is attached at once. A second tooltip for a control keeps the first.
TEST_F(MaterialEditor, TooltipsAreBalloonsAndASecondForAControlKeepsTheFirst) {
    Open();
    const auto shown = [&](int controlId) {
        wchar_t text[256] = {};
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof(tool);
        tool.hwnd = editor.Handle();
        tool.uId = reinterpret_cast<UINT_PTR>(editor.Item(controlId));
        tool.lpszText = text;
        editor.ToolTips().at(controlId).tooltip.Send(TTM_GETTEXTW, 256, reinterpret_cast<LPARAM>(&tool));
        return FromWide(text);
    };
    EXPECT_EQ(shown(CTreeListCtrl::kControlId), u"Seznam profilů");
    const CToolTipCtrl& first = editor.ToolTips().at(IDC_MATERIAL_ADD).tooltip;
    EXPECT_EQ(&editor.AddToolTip(IDC_MATERIAL_ADD, u"Jiný text"), &first);
    EXPECT_EQ(shown(IDC_MATERIAL_ADD), u"Přidej materiál");
    const LONG style = GetWindowLongW(first.Handle(), GWL_STYLE);
    EXPECT_EQ(style & (TTS_BALLOON | TTS_ALWAYSTIP), TTS_BALLOON | TTS_ALWAYSTIP);
    EXPECT_EQ(first.Send(TTM_GETMAXTIPWIDTH), 200);
}

// The picture is for people: set VELMORA_SCREENSHOT_DIR to keep it.
TEST_F(MaterialEditor, HoveringAControlShowsItsTooltipThroughTheRelayBesideARefusal) {
    Open();
    SetWindowPos(editor.Handle(), nullptr, 40, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Click(IDC_MATERIAL_ADD);
    const RECT button = CWindow(Control(IDC_MATERIAL_APPLY)).WindowRect();
    SetCursorPos((button.left + button.right) / 2, (button.top + button.bottom) / 2);
    PostMessageW(Control(IDC_MATERIAL_APPLY), WM_MOUSEMOVE, 0,
                 MAKELPARAM((button.right - button.left) / 2, (button.bottom - button.top) / 2));
    gui::Pump(editor, 1200);
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Uložit provedené změny");

    gui::Type(Control(IDC_NAME), u"123456789012345678901");
    gui::Pump(editor, 300);
    EXPECT_EQ(gui::VisibleBalloons().size(), 2u);  // the refusal's and the tooltip
    gui::SaveScreenshot(L"editor-tooltip-and-refusal");
}

TEST_F(MaterialEditor, IconAndFonts) {
    Open();
    const auto icon = reinterpret_cast<HICON>(editor.Send(WM_GETICON, ICON_BIG));
    EXPECT_EQ(icon, LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_VELMORA)));
    EXPECT_EQ(reinterpret_cast<HICON>(editor.Send(WM_GETICON, ICON_SMALL)), icon);

    LOGFONTW base{};
    LOGFONTW bold{};
    ASSERT_NE(GetObjectW(editor.BaseFont(), sizeof(base), &base), 0);
    ASSERT_NE(GetObjectW(editor.BoldFont(), sizeof(bold), &bold), 0);
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
    // The list headings use the bold font.
    EXPECT_EQ(reinterpret_cast<HFONT>(SendDlgItemMessageW(editor.Handle(), IDC_MATERIALS_HEADING, WM_GETFONT, 0, 0)),
              editor.BoldFont());
}

}  // namespace
