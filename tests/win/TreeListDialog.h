#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Dialogs/CQxAcDialog.h"
#include "Dialogs/TreeListCtrl.h"

// A dialog that owns a tree-list laid out as the material editor's profile pane and records what
// the control tells its owner. Columns: 0 "Profil" (the item), 1 "OD" whole number of at most 5
// digits, 2 "Stěna" decimal, 3 "ID" decimal supplied by the owner, 4 "DN" drop-down list of DN
// labels, 5 "Pozn." plain text that may be empty.
class TreeListDialog : public CQxAcDialog {
public:
    enum Column { kProfile, kOuter, kWall, kInner, kDn, kNote };
    static const wchar_t* const kDnLabels[];

    explicit TreeListDialog(DWORD extendedStyle = 0x400F0000, DWORD style = 0);

    CTreeListCtrl tree;
    DWORD extendedStyle;
    DWORD style;

    // What the owner answers.
    std::u16string refusedValue;                                // TVM_VALIDATEEDIT refuses it
    std::map<std::pair<HTREEITEM, int>, std::u16string> owned;  // texts the owner supplies
    UINT startEditAnswer = 0;                                   // to TVN_STARTEDIT
    std::vector<const wchar_t*> startEditChoices;

    // What the owner heard.
    struct EditEnd {
        int column;
        std::u16string text;
        UINT mask;
        int chosenIndex;
        bool cancelled;
    };
    std::vector<EditEnd> ended;
    std::vector<std::u16string> validated;
    std::vector<std::pair<int, std::u16string>> storedByOwner;  // TVN_SETDISPINFOW
    std::vector<LPARAM> deleted;
    std::vector<std::pair<int, int>> columnChanges;
    std::vector<UINT> startEditEvents;
    int selectionChanges = 0;

    HTREEITEM AddProfile(const wchar_t* label, const wchar_t* outer, const wchar_t* wall, const wchar_t* inner,
                         const wchar_t* dn, LPARAM param);

protected:
    BOOL OnInitDialog() override;
    bool OnNotify(NMHDR& header, LRESULT& result) override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
};
