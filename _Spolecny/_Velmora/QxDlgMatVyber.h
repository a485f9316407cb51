#pragma once

#include <windows.h>

#include <vector>

#include "Dialogs/CQxAcDialog.h"
#include "Dialogs/DialogResizer.h"
#include "Dialogs/TreeListCtrl.h"
#include "Win/Controls.h"
#include "_Velmora/MaterialExchangeRecord.h"
#include "_Velmora/MaterialFilter.h"

class CQvxMaterial;
class CQvxProfil;
class CQvxSezMaterialu;

// "Materiály pro potrubí": the user picks a material of a catalogue, filtered by usage, and when
// asked one of its profiles. The list shows the materials sorted by name, the fields below it the
// chosen material's data (read only), the pane on the right its profiles. It is also the base of
// the material editor, which makes the fields editable; what only selection does is switched off
// by the editor flag.
class CQxDlgMatVyber : public CQxAcDialog {
public:
    explicit CQxDlgMatVyber(HWND parent);
    ~CQxDlgMatVyber() override;

    // Shows the dialog modally over `list`; IDOK when a material (and with `selectProfile` a
    // profile) was chosen.
    INT_PTR Run(CQvxSezMaterialu& list, UsageFilter filter, bool selectProfile);
    // What Run does before showing the dialog: for an owner that shows it modeless (Create).
    void Prepare(CQvxSezMaterialu& list, UsageFilter filter, bool selectProfile);

    CQvxMaterial* ChosenMaterial() const { return chosenMaterial_; }
    CQvxProfil* ChosenProfile() const { return chosenProfile_; }

    // What the dialog shows, for its owner and for tests.
    int CurrentIndex() const { return currentIndex_; }
    const CListView& MaterialList() const { return materialList_; }
    const CTreeListCtrl& ProfilePane() const { return profilePane_; }
    const MaterialExchangeRecord& Fields() const { return fields_; }
    CQvxMaterial* RowMaterial(int row) const;

protected:
    // For the editor: its own template and heading.
    CQxDlgMatVyber(UINT templateId, HWND parent, std::u16string heading, bool editorMode);

    // The steps the editor overrides, in this order.
    virtual void SetupProfileColumns();
    virtual HTREEITEM InsertProfileRow(CQvxProfil& profile);
    // Fits the pane's columns to the material's shape (the editor's columns depend on it).
    virtual void SetProfileColumns(const CQvxMaterial&) {}
    virtual void FillList(UsageFilter filter);
    virtual void SelectMaterial(int row);

    // Fills the field buffer from `material` (none: a new material with `descriptionMode`), shows it
    // and puts the focus on "Název:".
    void LoadFields(const CQvxMaterial* material, DescriptionMode descriptionMode);
    // Sorts the rows by name for display.
    void SortRows();
    // Appends a row for `material` and returns its index.
    int AppendRow(CQvxMaterial& material);
    void DeleteRow(int row);
    void DeleteAllRows();
    // Selects and focuses `row` of the material list.
    void SelectRow(int row) const;
    // Makes `row` the only selected and marked row and shows its material; -1: none is shown.
    void SelectOnly(int row);
    // The row that shows `material`; -1 when none does.
    int RowOf(const CQvxMaterial& material) const;
    // Lets the last column of the profile pane take every change of the pane's width.
    void LetLastProfileColumnGrow() const;
    int MarkedRow() const;
    void EmptyProfilePane() const;
    // Makes the tree-list over the placeholder with the dialogs' styles and `extendedStyle`.
    void CreateProfilePane(DWORD extendedStyle);
    // Moves one bit of `mask` between the member and check box `id`; other bits stay.
    static void ExchangeBit(CDataExchange& exchange, int id, int32_t& mask, int32_t bit);
    // The material's fields with their labels.
    static const std::vector<int>& FieldControls();

    BOOL OnInitDialog() override;
    void OnOK() override;
    void DoDataExchange(CDataExchange& exchange) override;
    bool OnCommand(WORD id, WORD code, HWND control) override;
    bool OnNotify(NMHDR& header, LRESULT& result) override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    // Double click on a material row.
    virtual void OnMaterialDoubleClick(int row);

    CQvxSezMaterialu* materials_ = nullptr;  // the list shown: the caller's, or the editor's working copy
    UsageFilter filter_;                      // the caller's filter, shown by the radios
    bool selectProfile_ = false;
    const bool editorMode_;
    int currentIndex_ = -1;
    MaterialExchangeRecord fields_;
    // The material of each row of the list, which holds no data of its own (it asks for its texts).
    std::vector<CQvxMaterial*> rows_;
    CListView materialList_;
    CTreeListCtrl profilePane_;
    CDialogResizer resizer_;

private:
    void OnFilterRadio();
    void OnEditMaterials();
    void OnProfileDoubleClick();
    void FillClassLists() const;
    void SetFilterRadios() const;
    void AnchorControls();
    LRESULT HeadingColours(HDC dc, HWND control) const;

    CQvxMaterial* chosenMaterial_ = nullptr;
    CQvxProfil* chosenProfile_ = nullptr;
};

// Opens the online help in the user's browser.
void OpenOnlineHelp(HWND owner);
