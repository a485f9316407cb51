#include "win/TreeListDialog.h"

#include "Dialogs/CCheckedEdit.h"
#include "Dialogs/TreeListEditRules.h"
#include "Win/WideText.h"
#include "win/DemoResources.h"

const wchar_t* const TreeListDialog::kDnLabels[] = {
    L"DN 8",   L"DN 10",  L"DN 12",  L"DN 15",  L"DN 20",  L"DN 25",  L"DN 32",   L"DN 40",   L"DN 50",  L"DN 65",
    L"DN 80",  L"DN 100", L"DN 125", L"DN 150", L"DN 200", L"DN 225", L"DN 250",  L"DN 300",  L"DN 350", L"DN 400",
    L"DN 450", L"DN 500", L"DN 600", L"DN 700", L"DN 800", L"DN 900", L"DN 1000", L"DN 1200", nullptr};

TreeListDialog::TreeListDialog(DWORD extendedStyle, DWORD style)
    : CQxAcDialog(IDD_TREELIST, nullptr, u"Profily"), extendedStyle(extendedStyle), style(style) {}

BOOL TreeListDialog::OnInitDialog() {
    CQxAcDialog::OnInitDialog();
    tree.Create(
        TVS_HASBUTTONS | TVS_EDITLABELS | TVS_SHOWSELALWAYS | TVS_FULLROWSELECT | WS_BORDER | WS_TABSTOP | style,
        Handle());
    tree.SetExtendedStyle(0, extendedStyle);
    // Column widths are pixels: the dialog scales them for the monitor, as its heading is.
    auto scaled = [this](int pixels) { return static_cast<int>(pixels * Scale()); };
    tree.InsertColumn(kProfile, u"Profil", scaled(80));
    tree.InsertColumn(kOuter, u"OD", scaled(60), LVCFMT_RIGHT);
    tree.InsertColumn(kWall, u"Stěna", scaled(60), LVCFMT_RIGHT);
    tree.InsertColumn(kInner, u"ID", scaled(60), LVCFMT_RIGHT);
    tree.InsertColumn(kDn, u"DN", scaled(60));
    const RECT client = tree.ClientRect();
    tree.InsertColumn(kNote, u"Pozn.", std::max(static_cast<int>(client.right) - scaled(320), scaled(40)));
    tree.SetColumnAutoEdit(kOuter, 1);
    tree.SetColumnCheck(kOuter, InputKind::kWholeNumber, 5);
    tree.SetColumnAutoEdit(kWall, 1);
    tree.SetColumnCheck(kWall, InputKind::kDecimalNumber);
    tree.SetColumnAutoEdit(kInner, 1);
    tree.SetColumnCheck(kInner, InputKind::kDecimalNumber);
    tree.SetColumnAutoEdit(kDn, 3, 0, kDnLabels);
    tree.SetColumnAutoEdit(kNote, 1);
    tree.SetColumnCheck(kNote, InputKind::kPlainText | InputKind::kEmptyAllowed);
    return TRUE;
}

HTREEITEM TreeListDialog::AddProfile(const wchar_t* label, const wchar_t* outer, const wchar_t* wall,
                                     const wchar_t* inner, const wchar_t* dn, LPARAM param) {
    const HTREEITEM item = tree.InsertItem(label, param);
    tree.SetCellText(item, kOuter, outer);
    tree.SetCellText(item, kWall, wall);
    tree.SetCellText(item, kInner, nullptr);  // the owner supplies it
    owned[{item, kInner}] = FromWide(inner);
    tree.SetCellText(item, kDn, dn);
    return item;
}

bool TreeListDialog::OnNotify(NMHDR& header, LRESULT& result) {
    if (header.idFrom != CTreeListCtrl::kControlId) return CQxAcDialog::OnNotify(header, result);
    switch (header.code) {
        case TVN_GETDISPINFOW: {
            auto& request = reinterpret_cast<NMTVDISPINFOCW&>(header);
            const auto found = owned.find({request.item.hItem, request.item.column});
            const std::u16string text = found != owned.end() ? found->second : u"?";
            lstrcpynW(request.item.pszText, Wide(text), request.item.cchTextMax);
            return true;
        }
        case TVN_SETDISPINFOW: {
            auto& store = reinterpret_cast<NMTVDISPINFOCW&>(header);
            storedByOwner.emplace_back(store.item.column, FromWide(store.item.pszText));
            owned[{store.item.hItem, store.item.column}] = FromWide(store.item.pszText);
            return true;
        }
        case TVN_ENDLABELEDITW: {
            auto& end = reinterpret_cast<NMTVEDITW&>(header);
            const bool cancelled = end.item.pszText == nullptr;
            ended.push_back({end.item.column, cancelled ? u"" : FromWide(end.item.pszText), end.item.mask,
                             end.chosenIndex, cancelled});
            result = 0;
            return true;
        }
        case TVN_DELETEITEMW:
            deleted.push_back(reinterpret_cast<NMTREEVIEWW&>(header).itemOld.lParam);
            return true;
        case TVN_SELCHANGEDW:
            ++selectionChanges;
            return true;
        case TVN_COLUMNCHANGED: {
            const auto& change = reinterpret_cast<NMTVCOLUMNW&>(header);
            columnChanges.emplace_back(change.column, change.width);
            return true;
        }
        case TVN_STARTEDIT: {
            auto& request = reinterpret_cast<NMTVSTARTEDITW&>(header);
            startEditEvents.push_back(request.event);
            for (std::size_t i = 0; i < startEditChoices.size(); ++i) request.choices[i] = startEditChoices[i];
            result = startEditAnswer;
            return true;
        }
        default:
            return false;
    }
}

bool TreeListDialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == TVM_VALIDATEEDIT) {
        const auto& record = *reinterpret_cast<const NMTVEDITW*>(lParam);
        const std::u16string text = FromWide(record.item.pszText);
        validated.push_back(text);
        const bool refuse = !refusedValue.empty() && text == refusedValue;
        if (refuse) CTreeListCtrl::InPlaceEdit().ShowBalloon(u"Hodnota nesouhlasí s DN");
        result = refuse ? 1 : 0;
        return true;
    }
    return CQxAcDialog::HandleMessage(message, wParam, lParam, result);
}
