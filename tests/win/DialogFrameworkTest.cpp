#include "Win/Dialog.h"

#include <gtest/gtest.h>

#include "win/DemoDialog.h"
#include "win/GuiHarness.h"
#include "win/MessageBoxWatcher.h"

namespace {

bool IsChecked(const CDialog& dialog, int id) {
    return SendMessageW(dialog.Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

TEST(DataExchange, OpeningFillsTheControlsAndOkReadsThemBack) {
    DemoDialog dialog;
    dialog.nameText = u"Kamenina";
    dialog.water = BST_CHECKED;
    dialog.shape = 1;
    dialog.pressureClass = 2;
    ASSERT_TRUE(dialog.Create());

    EXPECT_EQ(gui::Text(dialog.Item(IDC_DEMO_NAME)), u"Kamenina");
    EXPECT_EQ(SendMessageW(dialog.Item(IDC_DEMO_NAME), EM_GETLIMITTEXT, 0, 0), 20);
    EXPECT_TRUE(IsChecked(dialog, IDC_WATER));
    EXPECT_FALSE(IsChecked(dialog, IDC_CIRCLE));
    EXPECT_TRUE(IsChecked(dialog, IDC_EGG));
    EXPECT_FALSE(IsChecked(dialog, IDC_RECTANGLE));
    EXPECT_EQ(SendMessageW(dialog.Item(IDC_CLASS), CB_GETCURSEL, 0, 0), 2);

    gui::SetText(dialog.Item(IDC_DEMO_NAME), u"Litina tvárná");
    gui::Click(dialog.Item(IDC_WATER));
    gui::Click(dialog.Item(IDC_RECTANGLE));
    SendMessageW(dialog.Item(IDC_CLASS), CB_SETCURSEL, 0, 0);
    gui::Click(dialog.Item(IDOK));

    EXPECT_TRUE(dialog.HasEnded());
    EXPECT_EQ(dialog.Result(), IDOK);
    EXPECT_EQ(dialog.nameText, u"Litina tvárná");
    EXPECT_EQ(dialog.water, BST_UNCHECKED);
    EXPECT_EQ(dialog.shape, 2);
    EXPECT_EQ(dialog.pressureClass, 0);
}

TEST(DataExchange, RadioGroupWithNoneCheckedReadsMinusOne) {
    DemoDialog dialog;
    dialog.shape = -1;
    ASSERT_TRUE(dialog.Create());
    EXPECT_FALSE(IsChecked(dialog, IDC_CIRCLE) || IsChecked(dialog, IDC_EGG) || IsChecked(dialog, IDC_RECTANGLE));
    dialog.shape = 0;
    ASSERT_TRUE(dialog.UpdateData(true));
    EXPECT_EQ(dialog.shape, -1);
}

TEST(DataExchange, TooLongTextIsRefusedOnOkAndTheDialogStays) {
    DemoDialog dialog;
    ASSERT_TRUE(dialog.Create());
    gui::SetText(dialog.Item(IDC_DEMO_NAME), u"Polyetylen vysoké hustoty");  // 25 characters, past the limit
    MessageBoxWatcher watcher(L"Materiály potrubí");

    gui::Click(dialog.Item(IDOK));

    const MessageBoxWatcher::Seen& seen = watcher.Stop();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.text, L"Zadejte nejvýše 20 znaků.");
    EXPECT_EQ(seen.owner, dialog.Handle());
    EXPECT_FALSE(dialog.HasEnded());
    EXPECT_EQ(GetFocus(), dialog.Item(IDC_DEMO_NAME));
}

TEST(Dialog, EscapeThroughTheDialogManagerCancels) {
    DemoDialog dialog;
    ASSERT_TRUE(dialog.Create());
    dialog.Show(SW_SHOW);
    SetFocus(dialog.Item(IDC_DEMO_NAME));
    PostMessageW(dialog.Item(IDC_DEMO_NAME), WM_KEYDOWN, VK_ESCAPE, 1);
    gui::Pump(dialog);
    EXPECT_TRUE(dialog.HasEnded());
    EXPECT_EQ(dialog.Result(), IDCANCEL);
    EXPECT_FALSE(dialog.IsVisible());
}

// Ends itself from its own message loop, noting how its owner looked meanwhile.
class SelfClosingDialog : public DemoDialog {
public:
    using DemoDialog::DemoDialog;
    bool parentEnabledWhileOpen = true;

protected:
    BOOL OnInitDialog() override {
        DemoDialog::OnInitDialog();
        Post(WM_COMMAND, MAKEWPARAM(IDC_ADD, BN_CLICKED), reinterpret_cast<LPARAM>(Item(IDC_ADD)));
        return TRUE;
    }
    bool OnCommand(WORD id, WORD code, HWND control) override {
        if (id != IDC_ADD) return DemoDialog::OnCommand(id, code, control);
        parentEnabledWhileOpen = ParentWindow() != nullptr && IsWindowEnabled(ParentWindow());
        EndDialog(IDOK + 40);
        return true;
    }
};

TEST(Dialog, ModalLoopPreTranslatesAndReturnsTheResult) {
    DemoDialog owner;
    ASSERT_TRUE(owner.Create());
    SelfClosingDialog dialog(u"Modální", owner.Handle());

    EXPECT_EQ(dialog.DoModal(), IDOK + 40);

    EXPECT_GT(dialog.preTranslated, 0);
    EXPECT_FALSE(dialog.parentEnabledWhileOpen);
    EXPECT_TRUE(owner.IsEnabled());
    EXPECT_EQ(dialog.Handle(), nullptr);  // the window is gone
}

TEST(Controls, ListViewRowsCarryTheirDataAndSelection) {
    DemoDialog dialog;
    ASSERT_TRUE(dialog.Create());
    const CListView& list = dialog.list;
    EXPECT_EQ(list.InsertItem(0, L"PE 100", 100), 0);
    EXPECT_EQ(list.InsertItem(1, L"Litina", 200), 1);
    EXPECT_EQ(list.GetItemCount(), 2);
    EXPECT_EQ(list.GetItemData(1), 200);
    EXPECT_EQ(list.GetItemData(7), 0);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), -1);
    list.SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 1);
    EXPECT_TRUE(list.SortItems([](LPARAM a, LPARAM b, LPARAM) { return static_cast<int>(b - a); }, 0));
    EXPECT_EQ(list.GetItemData(0), 200);
    EXPECT_TRUE(list.DeleteAllItems());
    EXPECT_EQ(list.GetItemCount(), 0);
}

}  // namespace
