#pragma once

#include <windows.h>

#include "Dialogs/CQxAcDialog.h"

// "Výběr rozsahu DN": two positions in the DN table, from the lower DN to the upper one, both
// inclusive. The owner sets them, runs the dialog and reads them back after OK.
class CQxDlgGetDN : public CQxAcDialog {
public:
    explicit CQxDlgGetDN(HWND parent);

    int fromIndex = 0;
    int toIndex = 0;

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
};
