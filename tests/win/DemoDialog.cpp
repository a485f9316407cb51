#include "win/DemoDialog.h"

#include "Win/WideText.h"
#include "resource.h"

namespace {

HICON SmallIcon(WORD id) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON,
                                         GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED));
}

}  // namespace

DemoDialog::DemoDialog(std::u16string heading, HWND parent)
    : CQxAcDialog(IDD_DEMO, parent, std::move(heading), IDI_VELMORA) {
    decimal.Rules().filter = CommaToPoint;
    AddToolTip(IDC_ADD, u"Přidej materiál");
    AddToolTip(IDC_DELETE, u"Vymaž materiál");
    AddToolTip(IDC_DEMO_NAME, u"Zkrácený název materiálu");
}

BOOL DemoDialog::OnInitDialog() {
    const CComboBox pressureClasses(Item(IDC_CLASS));
    for (const char16_t* pressure : {u"---", u"PN 6", u"PN 10", u"PN 16"}) pressureClasses.AddString(pressure);
    CQxAcDialog::OnInitDialog();  // the exchange selects the class in the filled list
    add.SetIcon(SmallIcon(IDI_ADD));
    remove.SetIcon(SmallIcon(IDI_DELETE));
    list.InsertColumn(0, u"Zkrác. název", 95);
    list.InsertColumn(1, u"Výrobce", 170);
    return TRUE;
}

void DemoDialog::DoDataExchange(CDataExchange& exchange) {
    exchange.Control(IDC_WHOLE, whole);
    exchange.Control(IDC_DECIMAL, decimal);
    exchange.Control(IDC_DEMO_NAME, name);
    exchange.Control(IDC_EMAIL, email);
    exchange.Control(IDC_FILE, file);
    exchange.Control(IDC_LIST, list);
    exchange.Control(IDC_ADD, add);
    exchange.Control(IDC_DELETE, remove);
    exchange.Text(IDC_DEMO_NAME, nameText);
    exchange.MaxChars(IDC_DEMO_NAME, nameText, 20);
    exchange.Check(IDC_WATER, water);
    exchange.Radio(IDC_CIRCLE, shape);
    exchange.ComboIndex(IDC_CLASS, pressureClass);
}

bool DemoDialog::OnCommand(WORD id, WORD code, HWND control) {
    if (code == EN_CHANGE) changes.push_back(id);
    return CQxAcDialog::OnCommand(id, code, control);
}

bool DemoDialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_CHECKEDEDIT_KILLFOCUS) {
        killFocus.push_back({reinterpret_cast<HWND>(wParam), FromWide(reinterpret_cast<const wchar_t*>(lParam))});
        return true;
    }
    return CQxAcDialog::HandleMessage(message, wParam, lParam, result);
}

bool DemoDialog::PreTranslateMessage(MSG& message) {
    ++preTranslated;
    return CQxAcDialog::PreTranslateMessage(message);
}
