#include "_Velmora/QxDlgMatPopis.h"

#include "Win/DataExchange.h"
#include "_Velmora/MaterialDialogResources.h"
#include "_Velmora/MaterialEditRules.h"

namespace {
constexpr int kAffixMaxLength = 4;
}

CQxDlgMatPopis::CQxDlgMatPopis(HWND parent) : CQxAcDialog(IDD_MAT_POPIS, parent) {}

void CQxDlgMatPopis::DoDataExchange(CDataExchange& exchange) {
    exchange.Text(IDC_PREFIX, prefix);
    exchange.Text(IDC_SUFFIX, suffix);
    // The suffix is checked first: a long suffix is reported even when the prefix is long too.
    exchange.MaxChars(IDC_SUFFIX, suffix, kAffixMaxLength);
    exchange.MaxChars(IDC_PREFIX, prefix, kAffixMaxLength);
    int checked = onInnerDiameter;
    exchange.Radio(IDC_OUTER_DIAMETER, checked);
    if (exchange.Saving() && !exchange.Failed()) onInnerDiameter = InnerDiameterFlagForRadio(checked);
}
