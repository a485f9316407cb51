#include "_Velmora/QxDlgMatVyber.h"

#include <shellapi.h>

#include <algorithm>
#include <vector>

#include "UserMessages.h"
#include "Win/DataExchange.h"
#include "Win/LateBound.h"
#include "Win/WideText.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/MaterialDialogResources.h"
#include "_Velmora/MaterialEditRules.h"
#include "_Velmora/QxDlgMatEdituj.h"

namespace {

constexpr COLORREF kChooseFromColour = RGB(255, 0, 0);
constexpr DWORD kSelectionPaneStyle = 0x400B0000;

// The medium boxes and their bits.
struct MaskBox {
    int id;
    int32_t bit;
};
constexpr MaskBox kMediumBoxes[] = {{IDC_USE_SEWAGE, kMediumSewage},
                                    {IDC_USE_PRESSURE_SEWAGE, kMediumPressureSewage},
                                    {IDC_USE_WATER, kMediumWater},
                                    {IDC_USE_GAS, kMediumGas},
                                    {IDC_USE_HEATING, kMediumHeating}};

// The material's fields with their labels: read only here, editable in the editor.
const std::vector<int> kFieldControls = {
    IDC_USE_ZTI,          IDC_USE_NETWORKS,      IDC_USE_SEWAGE,        IDC_USE_PRESSURE_SEWAGE, IDC_USE_WATER,
    IDC_USE_GAS,          IDC_USE_HEATING,       IDC_NAME_LABEL,        IDC_NAME,                IDC_DISPLAY_NAME_LABEL,
    IDC_DISPLAY_NAME,     IDC_MANUFACTURER_LABEL, IDC_MANUFACTURER,     IDC_DESCRIPTION_LABEL,   IDC_DESCRIPTION,
    IDC_PN_LABEL,         IDC_PN,                IDC_SDR_LABEL,         IDC_SDR,                 IDC_ROUGHNESS_LABEL,
    IDC_ROUGHNESS,        IDC_LABEL_MODE_LABEL,  IDC_LABEL_DN,          IDC_LABEL_DXT,           IDC_LABEL_CUSTOM,
    IDC_SHAPE_CIRCLE,     IDC_SHAPE_EGG,         IDC_SHAPE_EGG_PRAGUE,  IDC_SHAPE_MOUTH,         IDC_SHAPE_RECTANGLE};

}  // namespace

void CQxDlgMatVyber::ExchangeBit(CDataExchange& exchange, int id, int32_t& mask, int32_t bit) {
    int checked = (mask & bit) != 0 ? BST_CHECKED : BST_UNCHECKED;
    exchange.Check(id, checked);
    if (exchange.Saving()) mask = checked == BST_CHECKED ? (mask | bit) : (mask & ~bit);
}

const std::vector<int>& CQxDlgMatVyber::FieldControls() {
    return kFieldControls;
}

void OpenOnlineHelp(HWND owner) {
    static const auto open = LateBound<decltype(ShellExecuteW)>(L"shell32.dll", "ShellExecuteW");
    if (open != nullptr) open(owner, nullptr, L"https://www.quorvex.cz/torbel/help/", nullptr, nullptr, SW_SHOWNORMAL);
}

CQxDlgMatVyber::CQxDlgMatVyber(HWND parent) : CQxDlgMatVyber(IDD_MAT_VYBER, parent, u"", false) {}

CQxDlgMatVyber::CQxDlgMatVyber(UINT templateId, HWND parent, std::u16string heading, bool editorMode)
    : CQxAcDialog(templateId, parent, std::move(heading), IDI_VELMORA), editorMode_(editorMode) {}

CQxDlgMatVyber::~CQxDlgMatVyber() {
    DestroyWindow();  // while the members the controls refer to still exist
}

INT_PTR CQxDlgMatVyber::Run(CQvxSezMaterialu& list, UsageFilter filter, bool selectProfile) {
    Prepare(list, filter, selectProfile);
    return DoModal();
}

void CQxDlgMatVyber::Prepare(CQvxSezMaterialu& list, UsageFilter filter, bool selectProfile) {
    materials_ = &list;
    filter_ = filter;
    selectProfile_ = selectProfile;
    chosenMaterial_ = nullptr;
    chosenProfile_ = nullptr;
}

BOOL CQxDlgMatVyber::OnInitDialog() {
    CQxAcDialog::OnInitDialog();
    CWindow materialsHeading(Item(IDC_MATERIALS_HEADING));
    CWindow profilesHeading(Item(IDC_PROFILES_HEADING));
    materialsHeading.SetFont(BoldFont());
    profilesHeading.SetFont(BoldFont());
    if (!editorMode_) {
        if (selectProfile_) {
            profilesHeading.SetText(u"Vyber profil potrubí");
        } else {
            materialsHeading.SetText(u"Vyber materiál potrubí");
        }
    }
    SetText(Captions::kProgram);

    materialList_.Subclass(Item(IDC_MATERIAL_LIST));
    materialList_.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_ONECLICKACTIVATE | LVS_EX_INFOTIP);
    const auto scaled = [this](int pixels) { return static_cast<int>(static_cast<float>(pixels) * Scale()); };
    materialList_.InsertColumn(0, u"Zkrác. název", scaled(95));
    materialList_.InsertColumn(1, u"Plný název / popis", scaled(170));
    materialList_.InsertColumn(2, u"Výrobce", materialList_.ClientRect().right - scaled(285));
    SetupProfileColumns();

    // Every material is listed at first, whatever the radios show: they take effect on a click.
    FillList({fields_.placement, fields_.medium});
    FillClassLists();
    SetFilterRadios();
    profilePane_.Enable(selectProfile_);
    if (!editorMode_) {
        for (const int id : kFieldControls) EnableWindow(Item(id), FALSE);
    }
    AnchorControls();
    // The dialog manager gives the focus to its first control once the dialog shows: the list it
    // is, when it has rows.
    if (!rows_.empty()) Post(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(materialList_.Handle()), TRUE);
    return FALSE;
}

void CQxDlgMatVyber::CreateProfilePane(DWORD extendedStyle) {
    profilePane_.Create(TVS_HASBUTTONS | TVS_EDITLABELS | TVS_SHOWSELALWAYS | TVS_FULLROWSELECT | WS_BORDER | WS_TABSTOP,
                        Handle());
    profilePane_.SetExtendedStyle(0, extendedStyle);
}

void CQxDlgMatVyber::SetupProfileColumns() {
    CreateProfilePane(kSelectionPaneStyle);
    const int profileWidth = static_cast<int>(80 * Scale());
    profilePane_.InsertColumn(0, u"Profil", profileWidth);
    const int dnWidth = profilePane_.ClientRect().right - static_cast<int>(100 * Scale());
    profilePane_.InsertColumn(1, u"DN", dnWidth < 0 ? -dnWidth : dnWidth, dnWidth < 0 ? LVCFMT_RIGHT : LVCFMT_LEFT);
    LetLastProfileColumnGrow();
}

void CQxDlgMatVyber::LetLastProfileColumnGrow() const {
    TVCOLUMNW fixed{};
    fixed.mask = TVCF_FIXED;
    const auto count = static_cast<int>(profilePane_.Send(TVM_GETCOLUMNCOUNT));
    for (int column = 0; column + 1 < count; ++column) {
        profilePane_.Send(TVM_SETCOLUMN, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&fixed));
    }
}

HTREEITEM CQxDlgMatVyber::InsertProfileRow(CQvxProfil& profile) {
    const std::u16string label(profile.Label());
    const HTREEITEM row = profilePane_.InsertItem(Wide(label), reinterpret_cast<LPARAM>(&profile));
    const DnRow* dn = FindDnRow(profile.DnIndex());
    const std::u16string dnText = dn != nullptr ? std::u16string(dn->label) : std::u16string();
    profilePane_.SetCellText(row, 1, Wide(dnText));
    return row;
}

void CQxDlgMatVyber::FillList(UsageFilter filter) {
    materialList_.ClearSelection();
    rows_ = ListedMaterials(*materials_, filter);
    SortForDisplay(rows_);
    materialList_.Send(LVM_SETITEMCOUNT, rows_.size());
    materialList_.Redraw();

    // Nothing listed: no material's fields or profiles stay shown.
    if (rows_.empty()) SelectMaterial(-1);
    if (materials_->Count() == 0) {
        currentIndex_ = -1;
        return;
    }
    // Row 0 is current even when the filter left no row.
    currentIndex_ = 0;
    // An opening dialog is not focused yet: the list gets the focus once the dialog shows.
    if (IsWindowVisible(Handle())) materialList_.Focus();
    SelectRow(0);
}

void CQxDlgMatVyber::SortRows() {
    SortForDisplay(rows_);
    materialList_.Redraw();
}

int CQxDlgMatVyber::AppendRow(CQvxMaterial& material) {
    rows_.push_back(&material);
    materialList_.Send(LVM_SETITEMCOUNT, rows_.size(), LVSICF_NOSCROLL);
    return static_cast<int>(rows_.size()) - 1;
}

void CQxDlgMatVyber::DeleteRow(int row) {
    materialList_.SetItemState(row, 0, LVIS_SELECTED | LVIS_FOCUSED);
    rows_.erase(rows_.begin() + row);
    materialList_.Send(LVM_DELETEITEM, static_cast<WPARAM>(row));
}

void CQxDlgMatVyber::DeleteAllRows() {
    rows_.clear();
    materialList_.Send(LVM_SETITEMCOUNT, 0);
    materialList_.Redraw();
}

int CQxDlgMatVyber::RowOf(const CQvxMaterial& material) const {
    const auto found = std::find(rows_.begin(), rows_.end(), &material);
    return found != rows_.end() ? static_cast<int>(found - rows_.begin()) : -1;
}

void CQxDlgMatVyber::SelectOnly(int row) {
    materialList_.ClearSelection();
    materialList_.Send(LVM_SETSELECTIONMARK, 0, row);
    if (row >= 0) {
        SelectRow(row);  // the row's material is shown as it becomes selected
    } else {
        SelectMaterial(-1);
    }
}

void CQxDlgMatVyber::SelectRow(int row) const {
    if (row < 0 || row >= static_cast<int>(rows_.size())) return;
    materialList_.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    materialList_.Send(LVM_SETSELECTIONMARK, 0, row);
    materialList_.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

int CQxDlgMatVyber::MarkedRow() const {
    return static_cast<int>(materialList_.Send(LVM_GETSELECTIONMARK));
}

CQvxMaterial* CQxDlgMatVyber::RowMaterial(int row) const {
    if (row < 0 || row >= static_cast<int>(rows_.size())) return nullptr;
    return rows_[static_cast<std::size_t>(row)];
}

void CQxDlgMatVyber::EmptyProfilePane() const {
    profilePane_.DeleteItem(TVI_ROOT);
}

void CQxDlgMatVyber::SelectMaterial(int row) {
    currentIndex_ = row;
    CQvxMaterial* material = RowMaterial(row);
    LoadFields(material, DescriptionMode::DxT);
    // The pane is emptied and filled again as one change.
    profilePane_.Send(WM_SETREDRAW, FALSE);
    EmptyProfilePane();
    if (material != nullptr) {
        SetProfileColumns(*material);
        HTREEITEM first = nullptr;
        for (const auto& [dnIndex, profile] : material->Profiles()) {
            const HTREEITEM added = InsertProfileRow(*profile);
            if (first == nullptr) first = added;
        }
        if (first != nullptr) profilePane_.SelectCell(first, 0);
    }
    profilePane_.Send(WM_SETREDRAW, TRUE);
    if (material != nullptr) profilePane_.Redraw();
}

void CQxDlgMatVyber::LoadFields(const CQvxMaterial* material, DescriptionMode descriptionMode) {
    fields_ = material != nullptr ? FieldsOf(*material) : NewMaterialFields(descriptionMode);
    UpdateData(false);
    const HWND name = Item(IDC_NAME);
    if (IsWindowEnabled(name)) SetFocus(name);
}

void CQxDlgMatVyber::DoDataExchange(CDataExchange& exchange) {
    exchange.Text(IDC_ROUGHNESS, fields_.roughnessText);
    exchange.Text(IDC_NAME, fields_.uniqueName);
    exchange.Text(IDC_DESCRIPTION, fields_.description);
    exchange.Text(IDC_DISPLAY_NAME, fields_.displayName);
    exchange.Text(IDC_MANUFACTURER, fields_.manufacturer);
    for (const MaskBox& box : kMediumBoxes) ExchangeBit(exchange, box.id, fields_.medium, box.bit);
    int pn = fields_.pnIndex;
    int sdr = fields_.sdrIndex;
    int mode = static_cast<int>(fields_.descriptionMode);
    int shape = static_cast<int>(fields_.shape);
    exchange.ComboIndex(IDC_PN, pn);
    exchange.ComboIndex(IDC_SDR, sdr);
    exchange.Radio(IDC_LABEL_DN, mode);
    exchange.Radio(IDC_SHAPE_CIRCLE, shape);
    if (exchange.Saving()) {
        fields_.pnIndex = pn;
        fields_.sdrIndex = sdr;
        if (mode >= 0) fields_.descriptionMode = static_cast<DescriptionMode>(mode);
        if (shape >= 0) fields_.shape = static_cast<ProfileShape>(shape);
    }
}

void CQxDlgMatVyber::OnOK() {
    const int row = static_cast<int>(materialList_.GetNextItem(-1, LVNI_SELECTED));
    if (row < 0) {
        ShowMessage(u"Není vybrána žádný materiál", MB_ICONEXCLAMATION);
        return;
    }
    chosenMaterial_ = RowMaterial(row);
    if (selectProfile_) {
        const HTREEITEM profile = profilePane_.GetSelection();
        if (profile == nullptr) {
            ShowMessage(u"Není vybrána žádný profil", MB_ICONEXCLAMATION);
            return;
        }
        chosenProfile_ = reinterpret_cast<CQvxProfil*>(profilePane_.GetItemParam(profile));
    }
    EndDialog(IDOK);
}

bool CQxDlgMatVyber::OnCommand(WORD id, WORD code, HWND control) {
    if (code == BN_CLICKED) {
        if (id >= IDC_SCOPE_ZTI && id <= IDC_FILTER_ALL) {
            OnFilterRadio();
            return true;
        }
        if (id == IDC_EDIT_MATERIALS) {
            OnEditMaterials();
            return true;
        }
        if (id == IDC_HELP_BUTTON) {
            OpenOnlineHelp(Handle());
            return true;
        }
    }
    return CQxAcDialog::OnCommand(id, code, control);
}

void CQxDlgMatVyber::OnFilterRadio() {
    int medium = -1;
    for (int id = IDC_FILTER_SEWAGE; id <= IDC_FILTER_ALL; ++id) {
        if (IsChecked(id)) medium = id - IDC_FILTER_SEWAGE;
    }
    int placement = -1;
    for (int id = IDC_SCOPE_ZTI; id <= IDC_SCOPE_ALL; ++id) {
        if (IsChecked(id)) placement = id - IDC_SCOPE_ZTI;
    }
    FillList({PlacementMaskForRadio(placement), MediumMaskForRadio(medium)});
}

void CQxDlgMatVyber::SetFilterRadios() const {
    const auto check = [this](int first, int last, int checked) {
        for (int id = first; id <= last; ++id) SetButtonCheck(Item(id), id == checked ? BST_CHECKED : BST_UNCHECKED);
    };
    check(IDC_FILTER_SEWAGE, IDC_FILTER_ALL, IDC_FILTER_SEWAGE + MediumRadioForMask(filter_.medium));
    check(IDC_SCOPE_ZTI, IDC_SCOPE_ALL, IDC_SCOPE_ZTI + PlacementRadioForMask(filter_.placement));
}

void CQxDlgMatVyber::FillClassLists() const {
    const CComboBox pn(Item(IDC_PN));
    const CComboBox sdr(Item(IDC_SDR));
    pn.ResetContent();
    sdr.ResetContent();
    for (const PnRow& row : PnTable()) pn.AddString(row.label);
    for (const SdrRow& row : SdrTable()) sdr.AddString(row.label);
    pn.SetCurSel(fields_.pnIndex);
    sdr.SetCurSel(fields_.sdrIndex);
}

void CQxDlgMatVyber::OnEditMaterials() {
    CQxDlgMatEdituj editor(Handle());
    const INT_PTR result = editor.EditMaterials(*materials_, filter_);
    if (result == -1) {
        ShowMessage(u"Nelze otevřít dialog editace materiálů - neznámá chyba", MB_ICONERROR);
        return;
    }
    // The editor may have replaced every material: list them all again, whatever the radios show.
    if (result == IDOK) {
        EmptyProfilePane();
        FillList({kPlacementAll, kMediumAll});
    }
}

void CQxDlgMatVyber::OnMaterialDoubleClick(int row) {
    if (selectProfile_) {
        ShowMessage(u"Je třeba vybrat profil z vedlejšího seznamu", MB_ICONEXCLAMATION);
        return;
    }
    if (RowMaterial(row) != nullptr) OnOK();
}

void CQxDlgMatVyber::OnProfileDoubleClick() {
    if (!editorMode_ && profilePane_.GetSelection() != nullptr) OnOK();
}

bool CQxDlgMatVyber::OnNotify(NMHDR& header, LRESULT& result) {
    if (header.idFrom == IDC_MATERIAL_LIST) {
        switch (header.code) {
            case LVN_GETDISPINFOW: {
                auto& request = reinterpret_cast<NMLVDISPINFOW&>(header);
                if ((request.item.mask & LVIF_TEXT) == 0 || request.item.cchTextMax <= 0) return true;
                const CQvxMaterial* material = RowMaterial(request.item.iItem);
                const std::u16string* text = nullptr;
                if (material != nullptr) {
                    text = request.item.iSubItem == 0   ? &material->UniqueName()
                           : request.item.iSubItem == 1 ? &material->Description()
                                                        : &material->Manufacturer();
                }
                // A text longer than the control's buffer is cut, never refused.
                lstrcpynW(request.item.pszText, text != nullptr ? Wide(*text) : L"", request.item.cchTextMax);
                return true;
            }
            case LVN_ITEMCHANGED: {
                const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
                const bool nowSelected = (change.uChanged & LVIF_STATE) != 0 &&
                                         (change.uNewState & LVIS_SELECTED) != 0 &&
                                         (change.uOldState & LVIS_SELECTED) == 0;
                if (nowSelected && change.iItem >= 0) SelectMaterial(change.iItem);
                return true;
            }
            case LVN_ODFINDITEMW: {
                // Typing in the list: the first row from the start row on whose name begins with
                // the typed letters.
                const auto& find = reinterpret_cast<const NMLVFINDITEMW&>(header);
                result = -1;
                if ((find.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) != 0 && find.lvfi.psz != nullptr) {
                    result = FindRowStartingWith(rows_, FromWide(find.lvfi.psz), find.iStart,
                                                 (find.lvfi.flags & LVFI_WRAP) != 0);
                }
                return true;
            }
            case NM_DBLCLK: {
                const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(header);
                if (click.iItem >= 0) OnMaterialDoubleClick(click.iItem);
                return true;
            }
            default:
                break;
        }
    }
    if (header.idFrom == CTreeListCtrl::kControlId && header.code == NM_DBLCLK) {
        OnProfileDoubleClick();
        return true;
    }
    return CQxAcDialog::OnNotify(header, result);
}

LRESULT CQxDlgMatVyber::HeadingColours(HDC dc, HWND control) const {
    const bool materialsHeading = control == Item(IDC_MATERIALS_HEADING);
    // In selection the heading of the pane to choose from is red.
    const bool chooseFrom = !editorMode_ && (materialsHeading ? !selectProfile_ : selectProfile_);
    return HeadingControlColours(dc, chooseFrom ? kChooseFromColour : HeadingColour());
}

bool CQxDlgMatVyber::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_CTLCOLORSTATIC: {
            const auto control = reinterpret_cast<HWND>(lParam);
            if (control == Item(IDC_MATERIALS_HEADING) || control == Item(IDC_PROFILES_HEADING)) {
                result = HeadingColours(reinterpret_cast<HDC>(wParam), control);
                return true;
            }
            break;
        }
        case WM_SIZE:
            resizer_.Resize();
            break;
        default:
            break;
    }
    return CQxAcDialog::HandleMessage(message, wParam, lParam, result);
}

void CQxDlgMatVyber::AnchorControls() {
    // The list grows with the left half, the profile pane with the right half, the last column of
    // each taking the width; the fields below the list go down with it, the long texts widening with
    // it; the buttons keep to their corners.
    constexpr ResizeAnchor kFixed{0, 0, 0, 0};
    constexpr ResizeAnchor kDown{0, 1, 0, 1};
    constexpr ResizeAnchor kDownGrowingWithTheList{0, 1, 0.5f, 1};
    constexpr ResizeAnchor kLeftHalfGrows{0, 0, 0.5f, 1};
    constexpr ResizeAnchor kRightHalfGrows{0.5f, 0, 1, 1};
    constexpr ResizeAnchor kRightHalfTop{0.5f, 0, 0.5f, 0};
    constexpr ResizeAnchor kRightHalfDown{0.5f, 1, 0.5f, 1};
    constexpr ResizeAnchor kLowerRight{1, 1, 1, 1};
    constexpr ResizeAnchor kBesideTheList{0.5f, 0, 0.5f, 0};

    resizer_.Start(Handle());
    resizer_.Add(Item(IDC_FILTER_GROUP), kFixed);
    resizer_.Add(materialList_.Handle(), kLeftHalfGrows);
    resizer_.AddFillingColumn(materialList_.Handle());
    for (const int id : kFieldControls) {
        const bool longText = id == IDC_DISPLAY_NAME || id == IDC_MANUFACTURER || id == IDC_DESCRIPTION;
        resizer_.Add(Item(id), longText ? kDownGrowingWithTheList : kDown);
    }
    for (const int id : {IDC_MATERIAL_APPLY, IDC_MATERIAL_REVERT}) resizer_.Add(Item(id), kDown);
    for (const int id : {IDC_MATERIAL_ADD, IDC_MATERIAL_DELETE, IDC_MATERIAL_COPY, IDC_MATERIAL_EDIT}) {
        resizer_.Add(Item(id), kBesideTheList);
    }
    resizer_.Add(Item(IDC_PROFILES_HEADING), kRightHalfTop);
    resizer_.Add(profilePane_.Handle(), kRightHalfGrows);
    for (const int id : {IDC_PROFILE_ADD, IDC_PROFILE_DELETE, IDC_PROFILE_DELETE_ALL, IDC_PROFILE_GENERATE,
                         IDC_URS_INSTALL_LABEL, IDC_URS_INSTALL, IDC_URS_MATERIAL_LABEL, IDC_URS_MATERIAL,
                         IDC_LOAD_FILE, IDC_LOAD_STANDARD, IDC_EDIT_MATERIALS}) {
        resizer_.Add(Item(id), kRightHalfDown);
    }
    // "?" stands beside "Editace materiálů..." in selection, beside "OK" in the editor.
    resizer_.Add(Item(IDC_HELP_BUTTON), editorMode_ ? kLowerRight : kRightHalfDown);
    for (const int id : {IDOK, IDCANCEL}) resizer_.Add(Item(id), kLowerRight);
}
