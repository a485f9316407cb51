// What the dialog base gives the material dialogs under Wine: heading, size limit, tooltips,
// icon and fonts.

#include "Dialogs/CQxAcDialog.h"

#include <algorithm>
#include <climits>

#include "Dialogs/DialogMetrics.h"
#include "resource.h"
#include "win/MaterialEditorHarness.h"

namespace {

using namespace material_dialogs;

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

// Where a window's own painting (not its controls') left ink off the row `skipRow`.
struct Ink {
    int pixels = 0;
    int left = INT_MAX, top = INT_MAX, bottom = -1;
};
Ink InkOf(HWND window, int skipRow = -1) {
    const gui::ClientPicture picture(window);
    Ink ink;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (y == skipRow || picture.Pixel(x, y) == kWhite) continue;
            ++ink.pixels;
            ink.left = std::min(ink.left, x);
            ink.top = std::min(ink.top, y);
            ink.bottom = y;
        }
    }
    return ink;
}

TEST_F(MaterialSelection, NoHeadingMeansNoRule) {
    Open(false);
    EXPECT_EQ(InkOf(dialog.Handle()).pixels, 0);
}

// Hovering shows a control's balloon through the relay, also beside a refusal's balloon; a
// second tooltip for a control keeps the first. The profile pane's, added once the dialog is
// open, is attached at once. The picture is for people: set VELMORA_SCREENSHOT_DIR to keep it.
TEST_F(MaterialEditor, TooltipsShowOnHoverBesideARefusalAndTheFirstTextStays) {
    Open();
    EXPECT_EQ(editor.ToolTips().at(CTreeListCtrl::kControlId).tooltip.Send(TTM_GETTOOLCOUNT), 1);
    editor.AddToolTip(IDC_MATERIAL_APPLY, u"Jiný text");

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

// The heading and its rule are laid out for the dialog's scale. The dialog cannot shrink below its
// first size; it has the program's icon, and Arial for its text and bold headings.
TEST_F(MaterialEditor, HeadingAndRuleFollowTheScaleLeastSizeIconAndFonts) {
    Open();
    const gui::ClientPicture picture(editor.Handle());
    const HeadingLayout layout = HeadingLayoutForScale(editor.Scale());
    // The rule runs from the margin up to, not including, the width less the margin.
    const int right = picture.width - layout.margin;
    EXPECT_EQ(picture.Pixel(layout.margin, layout.ruleY), kBlack);
    EXPECT_EQ(picture.Pixel(right - 1, layout.ruleY), kBlack);
    EXPECT_EQ(picture.Pixel(layout.margin - 1, layout.ruleY), kWhite);
    EXPECT_EQ(picture.Pixel(right, layout.ruleY), kWhite);
    EXPECT_EQ(picture.Pixel(right - 1, layout.ruleY - 1), kWhite);  // one pixel thick
    // The text lies between its start and the rule, beginning at the margin.
    const Ink text = InkOf(editor.Handle(), layout.ruleY);
    EXPECT_GT(text.pixels, 50);
    EXPECT_GE(text.top, layout.textY);
    EXPECT_LT(text.bottom, layout.ruleY);
    EXPECT_GE(text.left, layout.margin);
    EXPECT_LE(text.left, layout.margin + 3);

    const SIZE initial = editor.InitialSize();
    ASSERT_GT(initial.cx, 0);
    for (const auto& [width, height] :
         {std::pair{initial.cx / 2, initial.cy / 3}, {initial.cx + 40, initial.cy + 30}}) {
        SetWindowPos(editor.Handle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        const RECT window = editor.WindowRect();
        EXPECT_EQ(window.right - window.left, std::max(width, initial.cx));
        EXPECT_EQ(window.bottom - window.top, std::max(height, initial.cy));
    }

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
    if (GetDeviceCaps(screen, LOGPIXELSY) == 96) {
        EXPECT_EQ(base.lfHeight, -17);
        EXPECT_EQ(bold.lfHeight, -12);
    }
    ReleaseDC(nullptr, screen);
    // The list headings use the bold font.
    EXPECT_EQ(reinterpret_cast<HFONT>(SendDlgItemMessageW(editor.Handle(), IDC_MATERIALS_HEADING, WM_GETFONT, 0, 0)),
              editor.BoldFont());
}

}  // namespace
