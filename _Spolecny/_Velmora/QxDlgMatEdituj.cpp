#include "_Velmora/QxDlgMatEdituj.h"

#include <array>

#include "CQvxFunkce.h"
#include "Win/Application.h"
#include "Win/DataExchange.h"
#include "Win/WideText.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/MaterialDialogResources.h"
#include "_Velmora/QxDlgMatPopis.h"

namespace {

constexpr std::u16string_view kCaption = u"Materiály potrubí";
constexpr int kUrsInstallCodeMaxLength = 10;

constexpr std::u16string_view kTooLongTitle = u"Příliš dlouhý název";
constexpr const char16_t* kNameLimit = u"Maximální délka je omezena na 20 znaků";
constexpr const char16_t* kManufacturerLimit = u"Maximální délka je omezena na 25 znaků";

// Controls of each group of the editing and browse layouts.
constexpr int kMaterialCommands[] = {IDC_MATERIAL_ADD, IDC_MATERIAL_DELETE, IDC_MATERIAL_COPY, IDC_MATERIAL_EDIT};
constexpr int kApplyButtons[] = {IDC_MATERIAL_APPLY, IDC_MATERIAL_REVERT};
constexpr int kLoadCommands[] = {IDC_LOAD_FILE, IDC_LOAD_STANDARD};
constexpr int kProfileControls[] = {IDC_PROFILE_ADD, IDC_PROFILE_DELETE, IDC_PROFILE_DELETE_ALL,
                                    IDC_PROFILE_GENERATE, IDC_URS_INSTALL, IDC_URS_MATERIAL};

struct ButtonIcon {
    int button;
    int icon;
};
constexpr ButtonIcon kButtonIcons[] = {{IDC_MATERIAL_ADD, IDI_ADD},       {IDC_MATERIAL_DELETE, IDI_DELETE},
                                       {IDC_MATERIAL_COPY, IDI_COPY},     {IDC_MATERIAL_EDIT, IDI_EDIT},
                                       {IDC_PROFILE_ADD, IDI_ADD},        {IDC_PROFILE_DELETE, IDI_DELETE}};

struct ToolTip {
    int control;
    const char16_t* text;
};
constexpr ToolTip kToolTips[] = {
    {IDC_MATERIAL_LIST, u"Seznam materiálů"},
    {IDC_MATERIAL_ADD, u"Přidej materiál"},
    {IDC_MATERIAL_DELETE, u"Vymaž materiál"},
    {IDC_MATERIAL_COPY, u"Kopíruj materiál"},
    {IDC_MATERIAL_EDIT, u"Edituj materiál"},
    {IDC_SCOPE_ZTI, u"Zobrazit materály vhodné pro vnitřní a venkovní instalace ZTI"},
    {IDC_SCOPE_NETWORKS, u"Zobrazit materály vhodné pro inženýrské sítě"},
    {IDC_SCOPE_ALL, u"Zobrazit všechny materiály"},
    {IDC_FILTER_SEWAGE, u"Zobrazit materály vhodné pro kanalizaci"},
    {IDC_FILTER_PRESSURE_SEWAGE, u"Zobrazit materály vhodné pro tlakovou kanalizaci"},
    {IDC_FILTER_WATER, u"Zobrazit materály vhodné pro vodovod"},
    {IDC_FILTER_GAS, u"Zobrazit materiály vhodné pro plynovod"},
    {IDC_FILTER_HEATING, u"Zobrazit materály vhodné pro tepelné sítě / vytápění"},
    {IDC_FILTER_ALL, u"Zobrazit všechny materiály"},
    {IDC_MATERIAL_APPLY, u"Uložit provedené změny"},
    {IDC_MATERIAL_REVERT, u"Zrušit provedené změny"},
    {IDC_NAME, u"Unikátní název materiálu (max. 20 znaků) - pro evidenci"},
    {IDC_DISPLAY_NAME, u"Název materiálu, který se bude zobrazovat ve výkrese (max. 20 znaků) - nemusí být unikátní"},
    {IDC_MANUFACTURER, u"Výrobce / distributor materiálu (max. 25 znaků)"},
    {IDC_DESCRIPTION, u"Podrobný název (popis) materiálu"},
    {IDC_USE_ZTI, u"Materiál je vhodný pro vnitřní systémy - potrubí uvnitř objektu"},
    {IDC_USE_NETWORKS, u"Materiál je vhodný pro inženýrské sítě, přípojky a rozvody v zemi"},
    {IDC_USE_SEWAGE, u"Materiál je vhodný pro kanalizační systémy"},
    {IDC_USE_PRESSURE_SEWAGE, u"Materiál je vhodný pro systémy tlakové (a podtlakové) kanalizace"},
    {IDC_USE_WATER, u"Materiál je vhodný pro vodovodní systémy"},
    {IDC_USE_GAS, u"Materiál je vhodný pro plynovodní systémy"},
    {IDC_USE_HEATING, u"Materiál vhodný pro tepelné systémy"},
    {IDC_PN, u"Tlaková řada"},
    {IDC_SDR, u"Charakterisktika profilu OD/s - SDr"},
    {IDC_ROUGHNESS, u"Zadej desetinné číslo od 0.01 do 3.01"},
    {IDC_LABEL_DN, u"Materiál bude popisován DN"},
    {IDC_LABEL_DXT, u"Materiál bude popisován jako Dxt (vnější x stěna)"},
    {IDC_LABEL_CUSTOM, u"Materiál bude popisován uživatelsky nadefinovaným popisem"},
    {IDC_SHAPE_CIRCLE, u"Standardní kruhový profil"},
    {IDC_SHAPE_EGG, u"Vejčitá stoka Vídeňského normálu"},
    {IDC_SHAPE_EGG_PRAGUE, u"Vejčitá stoka Pražského normálu"},
    {IDC_SHAPE_MOUTH, u"Tlamový profil"},
    {IDC_SHAPE_RECTANGLE, u"Obdélníkový profil (např. kolektor, apod.)"},
    {IDC_PROFILE_ADD, u"Přidej profil"},
    {IDC_PROFILE_DELETE, u"Vymaž profil"},
    {IDC_PROFILE_DELETE_ALL, u"Vymaž všechny profily"},
    {IDC_PROFILE_GENERATE, u"Generovat automaticky řadu profilů"},
    // The two code tooltips are crosswise, as they have always been.
    {IDC_URS_INSTALL, u"Kód položky v ceníku URS pro materiál (volitelně)"},
    {IDC_URS_MATERIAL, u"Kód položky v ceníku URS pro montáž (volitelně)"},
    {IDC_LOAD_FILE, u"Načte materiály z externího souboru"},
    {IDC_LOAD_STANDARD, u"Načte standardní materiály ze vestavěného souboru programu"},
    {IDC_HELP_BUTTON, u"Spustí online help"},
    {IDOK, u"Opustí dialog s uložením provedených změn, bez výběru"},
    {IDCANCEL, u"Opustí dialog bez uložení provedených změn"},
};

struct UsageGroup {
    std::array<int, 5> boxes;  // 0: no box
};
constexpr UsageGroup kPlacementBoxes{{IDC_USE_ZTI, IDC_USE_NETWORKS, 0, 0, 0}};
constexpr UsageGroup kMediumBoxes{
    {IDC_USE_SEWAGE, IDC_USE_PRESSURE_SEWAGE, IDC_USE_WATER, IDC_USE_GAS, IDC_USE_HEATING}};

}  // namespace

CQxDlgMatEdituj::CQxDlgMatEdituj(HWND parent)
    : CQxDlgMatVyber(IDD_MAT_EDITUJ, parent, u"Dialog pro zadání materiálů", true),
      name_(nullptr, nullptr, kNameLimit, kTooLongTitle.data(), 20),
      displayName_(nullptr, nullptr, kNameLimit, kTooLongTitle.data(), 20),
      manufacturer_(nullptr, nullptr, kManufacturerLimit, kTooLongTitle.data(), 25),
      roughness_(IsRoughnessText, IsDecimalPrefix, u"Hydraulická drsnost potrubí [mm]\nod 0.01 do 3.0",
                 u"Zadání mimo rozsah") {
    displayName_.Rules().emptyAllowed = true;
    manufacturer_.Rules().emptyAllowed = true;
    roughness_.Rules().filter = CommaToPoint;
    AddToolTips();
}

CQxDlgMatEdituj::~CQxDlgMatEdituj() {
    DestroyWindow();  // before the checked edits go
}

void CQxDlgMatEdituj::AddToolTips() {
    for (const ToolTip& tip : kToolTips) AddToolTip(tip.control, tip.text);
}

INT_PTR CQxDlgMatEdituj::EditMaterials(CQvxSezMaterialu& list, UsageFilter filter) {
    PrepareEditing(list, filter);
    return DoModal();
}

void CQxDlgMatEdituj::PrepareEditing(CQvxSezMaterialu& list, UsageFilter filter) {
    working_.AssignFrom(list);
    callersList_ = &list;
    materials_ = &working_;
    filter_ = filter;
    mode_ = EditMode::Browse;
    edited_ = nullptr;
}

BOOL CQxDlgMatEdituj::OnInitDialog() {
    const BOOL result = CQxDlgMatVyber::OnInitDialog();
    ApplyLayout();
    SetButtonIcons();
    return result;
}

void CQxDlgMatEdituj::SetButtonIcons() const {
    const int size = static_cast<int>(16 * Scale());
    for (const ButtonIcon& entry : kButtonIcons) {
        const auto icon = static_cast<HICON>(LoadImageW(ResourceModule(), MAKEINTRESOURCEW(entry.icon),
                                                        IMAGE_ICON, size, size, LR_SHARED));
        CButton(Item(entry.button)).SetIcon(icon);
    }
}

void CQxDlgMatEdituj::DoDataExchange(CDataExchange& exchange) {
    exchange.Control(IDC_NAME, name_);
    exchange.Control(IDC_DISPLAY_NAME, displayName_);
    exchange.Control(IDC_MANUFACTURER, manufacturer_);
    exchange.Control(IDC_ROUGHNESS, roughness_);
    ExchangeBit(exchange, IDC_USE_ZTI, fields_.placement, kPlacementIndoor);
    ExchangeBit(exchange, IDC_USE_NETWORKS, fields_.placement, kPlacementNetworks);
    exchange.Text(IDC_URS_INSTALL, ursInstallCode_);
    exchange.MaxChars(IDC_URS_INSTALL, ursInstallCode_, kUrsInstallCodeMaxLength);
    exchange.Text(IDC_URS_MATERIAL, ursMaterialCode_);
    CQxDlgMatVyber::DoDataExchange(exchange);
}

void CQxDlgMatEdituj::ApplyLayout() const {
    const auto set = [this](const int* ids, std::size_t count, EditorGroup group) {
        const GroupState state = LayoutOf(group, mode_);
        for (std::size_t i = 0; i < count; ++i) {
            const HWND control = Item(ids[i]);
            EnableWindow(control, state.enabled);
            ShowWindow(control, state.visible ? SW_SHOW : SW_HIDE);
        }
    };
    const std::vector<int>& fields = FieldControls();
    set(fields.data(), fields.size(), EditorGroup::MaterialFields);
    set(kApplyButtons, std::size(kApplyButtons), EditorGroup::ApplyButtons);
    const int list[] = {IDC_MATERIAL_LIST};
    set(list, 1, EditorGroup::MaterialList);
    set(kMaterialCommands, std::size(kMaterialCommands), EditorGroup::MaterialCommands);
    const int radios[] = {IDC_SCOPE_ZTI,   IDC_SCOPE_NETWORKS, IDC_SCOPE_ALL,    IDC_FILTER_SEWAGE, IDC_FILTER_PRESSURE_SEWAGE,
                          IDC_FILTER_WATER, IDC_FILTER_GAS,    IDC_FILTER_HEATING, IDC_FILTER_ALL};
    set(radios, std::size(radios), EditorGroup::FilterRadios);
    set(kLoadCommands, std::size(kLoadCommands), EditorGroup::LoadCommands);
    set(kProfileControls, std::size(kProfileControls), EditorGroup::ProfilePane);
    profilePane_.Enable(LayoutOf(EditorGroup::ProfilePane, mode_).enabled);
}

void CQxDlgMatEdituj::EnterMode(EditMode mode) {
    mode_ = mode;
    ApplyLayout();
}

void CQxDlgMatEdituj::FillList(UsageFilter filter) {
    if (edited_ != nullptr) {  // a copy or edit in progress is abandoned
        mode_ = NextEditMode(mode_, EditEvent::ListRefilled, true);
        LoadFields(edited_, fields_.descriptionMode);
        edited_ = nullptr;
        ApplyLayout();
    }
    CQxDlgMatVyber::FillList(filter);
}

void CQxDlgMatEdituj::OnAddMaterial() {
    EnterMode(NextEditMode(mode_, EditEvent::AddPressed, false));
    currentIndex_ = -1;
    const CQvxMaterial* marked = RowMaterial(MarkedRow());
    LoadFields(nullptr, marked != nullptr ? marked->GetDescriptionMode() : DescriptionMode::DxT);
}

void CQxDlgMatEdituj::OnDeleteMaterial() {
    const int marked = MarkedRow();
    if (IsEditing(mode_) || RowMaterial(marked) == nullptr) return;
    const std::u16string name = RowMaterial(marked)->UniqueName();
    // A used material is simply not removed, without a word.
    if (materials_->RemoveMaterial(name)) DeleteRow(marked);
    currentIndex_ = MarkedRow();
    materialList_.Focus();
    SelectRow(currentIndex_);
    if (materials_->Count() == 0) {
        EmptyProfilePane();
        for (const int id : kProfileControls) EnableWindow(Item(id), FALSE);
    }
}

void CQxDlgMatEdituj::OnCopyMaterial() {
    edited_ = RowMaterial(MarkedRow());
    if (edited_ == nullptr) return;
    EnterMode(NextEditMode(mode_, EditEvent::CopyPressed, true));
    currentIndex_ = -1;
    LoadFields(edited_, fields_.descriptionMode);
}

void CQxDlgMatEdituj::OnEditMaterial() {
    edited_ = RowMaterial(MarkedRow());
    if (edited_ == nullptr) return;
    EnterMode(NextEditMode(mode_, EditEvent::EditPressed, true));
    LoadFields(edited_, fields_.descriptionMode);
}

void CQxDlgMatEdituj::OnMaterialDoubleClick(int) {
    OnEditMaterial();
}

void CQxDlgMatEdituj::OnRevertMaterial() {
    mode_ = NextEditMode(mode_, EditEvent::RevertPressed, false);
    LoadFields(edited_, DescriptionMode::DxT);
    edited_ = nullptr;
    ApplyLayout();
}

bool CQxDlgMatEdituj::OnApplyMaterial() {
    if (!IsEditing(mode_)) return true;
    if (!UpdateData(true)) return false;

    ApplyResult applied{ApplyOutcome::EmptyName, nullptr};
    if (!RunUserAction([&] { applied = ApplyMaterialEdit(*materials_, mode_, fields_, edited_); })) return false;
    if (applied.outcome != ApplyOutcome::Applied) {
        // A name taken by a rename is told without an icon, unlike the other refusals.
        ShowMessage(ApplyRefusalText(applied.outcome),
                    applied.outcome == ApplyOutcome::NameTakenOnRename ? 0 : MB_ICONEXCLAMATION);
        return false;
    }

    if (mode_ == EditMode::Edit) {
        mode_ = NextEditMode(mode_, EditEvent::ApplyAccepted, true);
        materialList_.Send(LVM_REDRAWITEMS, static_cast<WPARAM>(currentIndex_), currentIndex_);
        SortRows();
    } else {
        mode_ = NextEditMode(mode_, EditEvent::ApplyAccepted, false);
        // The new material is listed whatever the filters say, until the list is filled again.
        currentIndex_ = AppendRow(*applied.material);
        SortRows();
        // The selection goes to the row now at the index where the new one was appended.
        materialList_.Focus();
        SelectRow(currentIndex_);
        materialList_.Send(LVM_REDRAWITEMS, static_cast<WPARAM>(currentIndex_), currentIndex_);
    }
    edited_ = nullptr;
    ApplyLayout();
    return true;
}

void CQxDlgMatEdituj::OnUsageBox(int id) {
    if (IsDlgButtonChecked(Handle(), id) == BST_CHECKED) return;
    const UsageGroup& group = id == IDC_USE_ZTI || id == IDC_USE_NETWORKS ? kPlacementBoxes : kMediumBoxes;
    int32_t checked = 0;
    for (std::size_t i = 0; i < group.boxes.size(); ++i) {
        if (group.boxes[i] != 0 && IsDlgButtonChecked(Handle(), group.boxes[i]) == BST_CHECKED) checked |= 1 << i;
    }
    if (!MustRecheckUsageBox(checked)) return;
    CheckDlgButton(Handle(), id, BST_CHECKED);
    // The balloon stands on "Název:", not on the box.
    const std::u16string title = name_.Title();
    name_.SetTitle(u"Označte alesoň jednu možnost");
    name_.ShowBalloon(u"Pro něco ten materiál určen být musí");
    name_.SetTitle(title);
}

void CQxDlgMatEdituj::OnCustomLabel() {
    CQxDlgMatPopis description(Handle());
    description.prefix = fields_.prefix;
    description.suffix = fields_.suffix;
    description.onInnerDiameter = fields_.onInnerDiameter ? 1 : 0;
    if (description.DoModal() != IDOK) return;  // "Jiný" stays checked, the affixes as they were
    fields_.descriptionMode = DescriptionMode::Custom;
    fields_.prefix = description.prefix;
    fields_.suffix = description.suffix;
    fields_.onInnerDiameter = description.onInnerDiameter != 0;
}

void CQxDlgMatEdituj::OnNameLostFocus() {
    if (!IsEditing(mode_)) return;
    UpdateData(true);
    if (TakeDisplayNameFromUniqueName(fields_)) UpdateData(false);
}

bool CQxDlgMatEdituj::OnCommand(WORD id, WORD code, HWND control) {
    if (code == BN_CLICKED) {
        switch (id) {
            case IDC_MATERIAL_ADD:
                OnAddMaterial();
                return true;
            case IDC_MATERIAL_DELETE:
                OnDeleteMaterial();
                return true;
            case IDC_MATERIAL_COPY:
                OnCopyMaterial();
                return true;
            case IDC_MATERIAL_EDIT:
                OnEditMaterial();
                return true;
            case IDC_MATERIAL_APPLY:
                OnApplyMaterial();
                return true;
            case IDC_MATERIAL_REVERT:
                OnRevertMaterial();
                return true;
            case IDC_LABEL_CUSTOM:
                OnCustomLabel();
                return true;
            case IDC_USE_ZTI:
            case IDC_USE_NETWORKS:
            case IDC_USE_SEWAGE:
            case IDC_USE_PRESSURE_SEWAGE:
            case IDC_USE_WATER:
            case IDC_USE_GAS:
            case IDC_USE_HEATING:
                OnUsageBox(id);
                return true;
            default:
                break;
        }
    }
    return CQxDlgMatVyber::OnCommand(id, code, control);
}

bool CQxDlgMatEdituj::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_CHECKEDEDIT_KILLFOCUS && reinterpret_cast<HWND>(wParam) == name_.Handle()) {
        OnNameLostFocus();
        result = 0;
        return true;
    }
    return CQxDlgMatVyber::HandleMessage(message, wParam, lParam, result);
}

bool CQxDlgMatEdituj::PreTranslateMessage(MSG& message) {
    if (message.message == WM_KEYDOWN && IsEditing(mode_)) {
        if (message.wParam == VK_RETURN) {
            OnApplyMaterial();
            return true;
        }
        if (message.wParam == VK_ESCAPE) {
            OnRevertMaterial();
            return true;
        }
    }
    return CQxDlgMatVyber::PreTranslateMessage(message);
}

void CQxDlgMatEdituj::OnOK() {
    // An open material edit is dropped: only Enter applies it.
    if (!working_.IsUnchanged()) working_.SaveCatalogue();
    HandBackToCaller(working_, *callersList_);
    EndDialog(IDOK);
}

void CQxDlgMatEdituj::OnCancel() {
    if (!working_.IsUnchanged()) {
        const std::u16string question = u"Uložit provedené změny do souboru?";
        const std::u16string caption(kCaption);
        const int answer = MessageBoxW(Handle(), Wide(question), Wide(caption), MB_YESNOCANCEL);
        if (answer == IDCANCEL) return;
        if (answer == IDYES) working_.SaveCatalogue();
    }
    working_.ClearUsage();
    EndDialog(IDCANCEL);
}
