#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "Dialogs/CCheckedEdit.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/MaterialEditRules.h"
#include "_Velmora/QxDlgMatVyber.h"

// "Editace materiálů": the selection dialog made into the catalogue's editor. It works on a copy of
// the caller's list: materials are added, copied, edited, renamed and deleted there, and only OK
// hands the copy back (after saving it to the user's catalogue when it changed).
class CQxDlgMatEdituj : public CQxDlgMatVyber {
public:
    explicit CQxDlgMatEdituj(HWND parent);
    ~CQxDlgMatEdituj() override;

    // Shows the editor modally over a copy of `list`, listing what `filter` selects once a filter
    // radio is clicked (every material at first).
    INT_PTR EditMaterials(CQvxSezMaterialu& list, UsageFilter filter);
    // What EditMaterials does before showing the dialog: for an owner that shows it modeless.
    void PrepareEditing(CQvxSezMaterialu& list, UsageFilter filter);

    // Enter applies an open material edit and Escape reverts it; otherwise the tooltips see the
    // message and the dialog handles it.
    bool PreTranslateMessage(MSG& message) override;

    // Where "Načíst ze souboru..." gets its file: the shell's dialog unless replaced.
    using FilePicker = std::function<std::optional<std::u16string>(HWND owner)>;
    void SetFilePicker(FilePicker picker) { pickFile_ = std::move(picker); }

    // The buttons of the question of "Načíst standardní...".
    static constexpr int kClearAndLoadButton = 1001;
    static constexpr int kAddMaterialsButton = 1002;
    static constexpr int kCancelLoadingButton = 1003;

    EditMode Mode() const { return mode_; }
    CQvxSezMaterialu& WorkingList() { return working_; }
    CQvxMaterial* EditedMaterial() const { return edited_; }

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void DoDataExchange(CDataExchange& exchange) override;
    void FillList(UsageFilter filter) override;
    bool OnCommand(WORD id, WORD code, HWND control) override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnMaterialDoubleClick(int row) override;
    void SetupProfileColumns() override;
    HTREEITEM InsertProfileRow(CQvxProfil& profile) override;
    void SetProfileColumns(const CQvxMaterial& material) override;
    void SelectMaterial(int row) override;
    bool OnNotify(NMHDR& header, LRESULT& result) override;

private:
    void OnAddMaterial();
    void OnDeleteMaterial();
    void OnCopyMaterial();
    void OnEditMaterial();
    bool OnApplyMaterial();
    void OnRevertMaterial();
    void OnUsageBox(int id);
    void OnCustomLabel();
    void OnNameLostFocus();

    // Reading other catalogues into the working list.
    void OnLoadFromFile();
    void OnLoadStandard();
    void ClearWorkingList();

    // The profile pane.
    void OnAddProfile();
    void OnDeleteProfile();
    void OnDeleteAllProfiles();
    void OnGenerateProfiles();
    void OnProfileSelected(CQvxProfil* profile);
    // The price-list codes typed for the selected profile go into it.
    void StoreProfileCodes();
    void ShowProfileCodes(const CQvxProfil* profile) const;
    LRESULT OnValidateProfileEdit(const NMTVEDITW& edit);
    void OnProfileCellChanged(const NMTVDISPINFOCW& change);
    // The material of the current row; none throws with `line`.
    CQvxMaterial& CurrentMaterial(std::u16string_view failure, int line) const;
    CQvxProfil* ProfileOfRow(HTREEITEM row) const;
    void SortProfileRows() const;
    void EnterMode(EditMode mode);
    void ApplyLayout() const;
    // The profile pane, its commands and the code edits: usable while browsing a shown material
    // (the code edits only with a profile selected).
    void UpdateProfileControls() const;
    // The material list takes the focus, on its current row, as a material edit ends.
    void FocusMaterialList() const;
    void SetButtonIcons() const;
    void AddToolTips();

    CQvxSezMaterialu working_;
    CQvxSezMaterialu* callersList_ = nullptr;
    EditMode mode_ = EditMode::Browse;
    CQvxMaterial* edited_ = nullptr;
    CCheckedEdit name_;
    CCheckedEdit displayName_;
    CCheckedEdit manufacturer_;
    CCheckedEdit roughness_;
    CCheckedEdit ursInstallCode_;
    CCheckedEdit ursMaterialCode_;
    FilePicker pickFile_;
    CQvxProfil* selectedProfile_ = nullptr;  // whose URS codes the two edits show
    ProfileShape shownShape_ = ProfileShape::Circle;
};
