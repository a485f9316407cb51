#pragma once

#include <string>
#include <vector>

#include "Dialogs/CCheckedEdit.h"
#include "Dialogs/CQxAcDialog.h"
#include "Win/DataExchange.h"
#include "win/DemoResources.h"

// The suite's demonstration dialog: one checked field of each kind, the other controls of the
// data exchange, and a record of what reaches the dialog from its fields.
class DemoDialog : public CQxAcDialog {
public:
    explicit DemoDialog(std::u16string heading = u"Kontrolovaná pole", HWND parent = nullptr);

    CCheckedEdit whole{IsInteger, IsIntegerPrefix, u"Zadejte celé číslo"};
    CCheckedEdit decimal{IsDecimal, IsDecimalPrefix, u"Zadejte desetinné číslo"};
    CCheckedEdit name{nullptr, nullptr, u"Název může mít nejvýše 20 znaků", nullptr, 20};
    CCheckedEdit email{IsEmail, nullptr, u"Zadejte platný email"};
    CCheckedEdit file{IsFileName, IsFileName, u"Zadejte název bez '<>*:\\?'(platný název souboru Windows)"};
    CListView list;
    CButton add;
    CButton remove;

    // Exchanged with the controls.
    std::u16string nameText;
    int water = BST_CHECKED;
    int shape = 1;
    int pressureClass = 2;

    // What the dialog received from its fields.
    struct KillFocus {
        HWND edit;
        std::u16string text;
    };
    std::vector<KillFocus> killFocus;
    std::vector<int> changes;  // control ids of EN_CHANGE notifications
    int preTranslated = 0;

    bool PreTranslateMessage(MSG& message) override;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;
    bool OnCommand(WORD id, WORD code, HWND control) override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
};
