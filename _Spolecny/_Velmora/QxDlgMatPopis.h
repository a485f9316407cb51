#pragma once

#include <windows.h>

#include <string>

#include "Dialogs/CQxAcDialog.h"

// "Zadej formát popisu": the custom label of a material's profiles, a text before and after the
// diameter and which diameter it shows. The owner sets the three fields, runs the dialog and reads
// them back after OK.
class CQxDlgMatPopis : public CQxAcDialog {
public:
    explicit CQxDlgMatPopis(HWND parent);

    std::u16string prefix;
    std::u16string suffix;
    int onInnerDiameter = 0;  // 0: the outer diameter, 1: the inner one

protected:
    void DoDataExchange(CDataExchange& exchange) override;
};
