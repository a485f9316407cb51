#pragma once

// Shared set-up of the material dialogs' Windows tests: a catalogue, the selection dialog or the
// editor open modeless over it, and helpers that click, select rows and answer what is shown.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "_Velmora/MaterialDialogResources.h"
#include "_Velmora/QxDlgMatEdituj.h"
#include "support/CatalogueBuilding.h"
#include "support/ScriptedUserMessages.h"
#include "win/DialogWatcher.h"
#include "win/GuiHarness.h"

namespace material_dialogs {

inline constexpr wchar_t kCaption[] = L"Materiály potrubí";
using Names = std::vector<std::u16string>;

// Sewer materials "Alfa" and "Beta" (circles), "Vejce", "Praha", "Tlama" and "Rám" (shapes 1 to 4),
// each with DN 80 and DN 100 profiles, every profile with a width and both codes; unchanged.
inline void AddEveryShape(CQvxSezMaterialu& list) {
    const std::u16string_view names[] = {u"Alfa", u"Beta", u"Vejce", u"Praha", u"Tlama", u"Rám"};
    for (int i = 0; i < 6; ++i) {
        CQvxMaterial& material = AddUsedFor(list, names[i], kPlacementAll, kMediumSewage);
        EditMaterial(material, [&](MaterialExchangeRecord& record) { record.shape = ProfileShape(std::max(i - 1, 0)); });
        for (const int dnIndex : {10, 11}) {
            CQvxProfil& profile = *material.AddProfile(dnIndex);
            const std::u16string code = std::u16string(names[i].substr(0, 2)) + (dnIndex == 10 ? u"80" : u"100");
            profile.SetWidth(1000 * i + dnIndex);
            profile.SetUrsMaterialCode(u"M" + code);
            profile.SetUrsInstallCode(u"I" + code);
        }
    }
    list.SetUnchanged(true);
}

// What a dialog's material list shows in its first column, row by row.
inline Names ShownNames(const CQxDlgMatVyber& dialog) {
    return gui::ListTexts(dialog.MaterialList().Handle());
}

// One of the material dialogs, open modeless over `catalogue` once the test calls Show.
template <class Dialog>
class OpenDialog : public ::testing::Test {
protected:
    void Show() {
        ASSERT_TRUE(dialog.Create());
        dialog.Show(SW_SHOW);
        gui::Pump(dialog);
    }
    void TearDown() override { dialog.DestroyWindow(); }

    HWND Control(int id) const { return dialog.Item(id); }
    void Click(int id) {
        gui::Click(Control(id));
        gui::Pump(dialog);
    }
    // Does `action` and answers the message box it shows (with `task`, the task dialog).
    MessageBoxWatcher::Seen Answering(const std::function<void()>& action, int answer = IDOK, bool task = false) {
        MessageBoxWatcher watcher(kCaption, {answer}, dialog.Handle(), task ? TDM_CLICK_BUTTON : WM_COMMAND);
        action();
        return watcher.Stop();
    }
    MessageBoxWatcher::Seen ClickAnswering(int id, int answer = IDOK, bool task = false) {
        return Answering([&] { Click(id); }, answer, task);
    }
    // Clicks `id` and hands the dialog titled `title` that it shows to `answer`, which closes it;
    // false when none was shown.
    bool ClickShowing(int id, const wchar_t* title, std::function<void(HWND)> answer) {
        DialogWatcher watcher(title, std::move(answer), dialog.Handle());
        Click(id);
        return watcher.Stop();
    }
    void SelectRowOf(std::u16string_view name) {
        ASSERT_TRUE(gui::SelectRow(dialog.MaterialList().Handle(), name)) << "no row shows the material";
        gui::Pump(dialog);
    }
    std::u16string Text(int id) const { return gui::Text(Control(id)); }
    // The name of the selected row of the material list; empty when none is selected.
    std::u16string SelectedName() const {
        const int row = dialog.MaterialList().GetNextItem(-1, LVNI_SELECTED);
        return row >= 0 ? dialog.RowMaterial(row)->UniqueName() : u"";
    }
    bool Checked(int id) const { return IsDlgButtonChecked(dialog.Handle(), id) == BST_CHECKED; }

    ScriptedUserMessages messages;
    CUserMessagesScope installedMessages{messages};
    CQvxSezMaterialu catalogue;
    Dialog dialog{nullptr};
};

class MaterialEditor : public OpenDialog<CQxDlgMatEdituj> {
protected:
    void Open() {
        editor.PrepareEditing(catalogue, filter);
        Show();
    }
    // A key pressed in `window`, as the message loop hands it to the editor.
    void PressKey(HWND window, UINT key) {
        MSG message{window, WM_KEYDOWN, key, 0, 0, {}};
        editor.ProcessMessage(message);
        gui::Pump(editor);
    }
    // The title and the width of a column of the profile pane.
    std::pair<std::u16string, int> PaneColumn(int column) const {
        wchar_t title[32] = {};
        TVCOLUMNW read{TVCF_TEXT | TVCF_WIDTH, 0, 0, title, 32, 0, 0};
        editor.ProfilePane().Send(TVM_GETCOLUMN, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&read));
        return {FromWide(title), read.cx};
    }

    UsageFilter filter;
    CQxDlgMatEdituj& editor = dialog;
};

// The selection dialog for gas pipes.
class MaterialSelection : public OpenDialog<CQxDlgMatVyber> {
protected:
    void Open(bool selectProfile) {
        dialog.Prepare(catalogue, {kPlacementAll, kMediumGas}, selectProfile);
        Show();
    }
};

}  // namespace material_dialogs
