#include "_Velmora/QxDlgGetDN.h"

#include "Win/Controls.h"
#include "Win/WideText.h"
#include "_Velmora/MaterialDialogResources.h"
#include "_Velmora/MaterialTables.h"

CQxDlgGetDN::CQxDlgGetDN(HWND parent) : CQxAcDialog(IDD_GET_DN, parent) {}

BOOL CQxDlgGetDN::OnInitDialog() {
    CQxAcDialog::OnInitDialog();
    CWindow(Item(IDC_DN_HEADING)).SetFont(BoldFont());
    for (const int id : {IDC_DN_FROM, IDC_DN_TO}) {
        const CComboBox list(Item(id));
        for (const DnRow& row : DnTable()) list.AddString(row.label);
    }
    CComboBox(Item(IDC_DN_FROM)).SetCurSel(fromIndex);
    CComboBox(Item(IDC_DN_TO)).SetCurSel(toIndex);
    return TRUE;
}

void CQxDlgGetDN::OnOK() {
    fromIndex = CComboBox(Item(IDC_DN_FROM)).GetCurSel();
    toIndex = CComboBox(Item(IDC_DN_TO)).GetCurSel();
    if (toIndex >= fromIndex) {
        EndDialog(IDOK);
        return;
    }
    ShowMessage(u"DN 'od' musí být menší nebo rovno DN 'do'", MB_ICONEXCLAMATION);
}

bool CQxDlgGetDN::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_CTLCOLORSTATIC && reinterpret_cast<HWND>(lParam) == Item(IDC_DN_HEADING)) {
        result = HeadingControlColours(reinterpret_cast<HDC>(wParam), HeadingColour());
        return true;
    }
    return CQxAcDialog::HandleMessage(message, wParam, lParam, result);
}
