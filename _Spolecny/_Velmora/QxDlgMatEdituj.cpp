#include "_Velmora/QxDlgMatEdituj.h"

#include <array>
#include <span>

#include "CQvxFunkce.h"
#include "Dialogs/TreeListEditRules.h"
#include "UserMessages.h"
#include "Win/Application.h"
#include "Win/DataExchange.h"
#include "Win/WideText.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CatalogueFilePicker.h"
#include "_Velmora/CatalogueLoading.h"
#include "_Velmora/MaterialDialogResources.h"
#include "_Velmora/ProfileEditRules.h"
#include "_Velmora/QxDlgGetDN.h"
#include "_Velmora/QxDlgMatPopis.h"

namespace {

constexpr int kUrsCodeMaxLength = 9;
constexpr std::u16string_view kCodeTooLongTitle = u"Příliš dlouhý kód";
constexpr const char16_t* kCodeLimit = u"Maximální délka je omezena na 9 znaků";
constexpr DWORD kEditorPaneStyle = 0x400F0000;

// The DN column's choices: the DN table's labels, which are literals and so end in a null, and the
// null that ends the list. The list outlives the control, as the control requires.
const wchar_t* const* DnChoices() {
    static const auto choices = [] {
        std::array<const wchar_t*, kDnCount + 1> labels{};
        for (int index = 0; index < kDnCount; ++index) labels[index] = Wide(DnTable()[index].label.data());
        return labels;
    }();
    return choices.data();
}

int CALLBACK CompareDnIndexes(LPARAM left, LPARAM right, LPARAM) {
    return reinterpret_cast<const CQvxProfil*>(left)->DnIndex() - reinterpret_cast<const CQvxProfil*>(right)->DnIndex();
}

constexpr std::u16string_view kTooLongTitle = u"Příliš dlouhý název";
constexpr const char16_t* kNameLimit = u"Maximální délka je omezena na 20 znaků";
constexpr const char16_t* kManufacturerLimit = u"Maximální délka je omezena na 25 znaků";

// Controls of each group of the editing and browse layouts.
constexpr int kMaterialCommands[] = {IDC_MATERIAL_ADD, IDC_MATERIAL_DELETE, IDC_MATERIAL_COPY, IDC_MATERIAL_EDIT};
constexpr int kApplyButtons[] = {IDC_MATERIAL_APPLY, IDC_MATERIAL_REVERT};
constexpr int kLoadCommands[] = {IDC_LOAD_FILE, IDC_LOAD_STANDARD};
constexpr int kProfileCommands[] = {IDC_PROFILE_ADD, IDC_PROFILE_DELETE, IDC_PROFILE_DELETE_ALL,
                                    IDC_PROFILE_GENERATE};
constexpr int kCodeEdits[] = {IDC_URS_INSTALL, IDC_URS_MATERIAL};

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
                 u"Zadání mimo rozsah"),
      ursInstallCode_(nullptr, nullptr, kCodeLimit, kCodeTooLongTitle.data(), kUrsCodeMaxLength),
      ursMaterialCode_(nullptr, nullptr, kCodeLimit, kCodeTooLongTitle.data(), kUrsCodeMaxLength) {
    displayName_.Rules().emptyAllowed = true;
    manufacturer_.Rules().emptyAllowed = true;
    ursInstallCode_.Rules().emptyAllowed = true;
    ursMaterialCode_.Rules().emptyAllowed = true;
    roughness_.Rules().filter = CommaToPoint;
    pickFile_ = PickCatalogueFile;
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
    // A profile of an earlier run's working copy is gone with it: nothing of it is to be stored.
    selectedProfile_ = nullptr;
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
    // The code edits belong to the selected profile, which shows and stores them itself.
    exchange.Control(IDC_URS_INSTALL, ursInstallCode_);
    exchange.Control(IDC_URS_MATERIAL, ursMaterialCode_);
    CQxDlgMatVyber::DoDataExchange(exchange);
}

void CQxDlgMatEdituj::ApplyLayout() const {
    const auto set = [this](std::span<const int> ids, EditorGroup group) {
        const GroupState state = LayoutOf(group, mode_);
        for (const int id : ids) {
            const CWindow control(Item(id));
            control.SetEnabled(state.enabled);
            control.SetShown(state.visible);
        }
    };
    constexpr int kList[] = {IDC_MATERIAL_LIST};
    constexpr int kRadios[] = {IDC_SCOPE_ZTI,    IDC_SCOPE_NETWORKS, IDC_SCOPE_ALL,      IDC_FILTER_SEWAGE,
                               IDC_FILTER_PRESSURE_SEWAGE, IDC_FILTER_WATER, IDC_FILTER_GAS, IDC_FILTER_HEATING,
                               IDC_FILTER_ALL};
    set(FieldControls(), EditorGroup::MaterialFields);
    set(kApplyButtons, EditorGroup::ApplyButtons);
    set(kList, EditorGroup::MaterialList);
    set(kMaterialCommands, EditorGroup::MaterialCommands);
    set(kRadios, EditorGroup::FilterRadios);
    set(kLoadCommands, EditorGroup::LoadCommands);
    UpdateProfileControls();
}

void CQxDlgMatEdituj::UpdateProfileControls() const {
    const bool enabled = LayoutOf(EditorGroup::ProfilePane, mode_, RowMaterial(currentIndex_) != nullptr).enabled;
    for (const int id : kProfileCommands) CWindow(Item(id)).SetEnabled(enabled);
    for (const int id : kCodeEdits) CWindow(Item(id)).SetEnabled(enabled && selectedProfile_ != nullptr);
    profilePane_.SetEnabled(enabled);
}

void CQxDlgMatEdituj::FocusMaterialList() const {
    Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(materialList_.Handle()), TRUE);
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
    CQvxMaterial& material = *RowMaterial(marked);
    const std::u16string name = material.UniqueName();
    // The pane lets go of the profiles before they go with their material.
    if (material.Users().IsEmpty()) EmptyProfilePane();
    // A used material is simply not removed, without a word.
    if (materials_->RemoveMaterial(name)) DeleteRow(marked);
    currentIndex_ = MarkedRow();
    materialList_.Focus();
    // Selected anew, so that the fields and the pane show the row's material whatever the list did
    // with the selection of the deleted row; with no row left, no material is shown.
    SelectOnly(RowMaterial(currentIndex_) != nullptr ? currentIndex_ : -1);
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
    const bool newMaterial = mode_ == EditMode::Add || mode_ == EditMode::Copy;
    mode_ = NextEditMode(mode_, EditEvent::RevertPressed, false);
    if (newMaterial) {
        // The material that was to be made is no row: none is current, none is shown.
        edited_ = nullptr;
        SelectOnly(-1);
    } else {
        LoadFields(edited_, DescriptionMode::DxT);
        edited_ = nullptr;
    }
    ApplyLayout();
    FocusMaterialList();
}

bool CQxDlgMatEdituj::OnApplyMaterial() {
    if (!IsEditing(mode_)) return true;
    StoreProfileCodes();
    if (!UpdateData(true)) return false;

    ApplyResult applied{ApplyOutcome::EmptyName, nullptr};
    if (!RunUserAction([&] { applied = ApplyMaterialEdit(*materials_, mode_, fields_, edited_); })) return false;
    if (applied.outcome != ApplyOutcome::Applied) {
        // A name taken by a rename is told without an icon, unlike the other refusals.
        ShowMessage(ApplyRefusalText(applied.outcome),
                    applied.outcome == ApplyOutcome::NameTakenOnRename ? 0 : MB_ICONEXCLAMATION);
        return false;
    }

    // The new material is listed whatever the filters say, until the list is filled again.
    if (mode_ != EditMode::Edit) AppendRow(*applied.material);
    mode_ = NextEditMode(mode_, EditEvent::ApplyAccepted, mode_ == EditMode::Edit);
    edited_ = nullptr;
    ApplyLayout();
    // The rows are sorted again and the selection follows the material to its new row, which shows
    // it afresh: fields, profiles and the columns of its shape.
    SortRows();
    SelectOnly(RowOf(*applied.material));
    FocusMaterialList();
    return true;
}

void CQxDlgMatEdituj::OnUsageBox(int id) {
    if (IsChecked(id)) return;
    const UsageGroup& group = id == IDC_USE_ZTI || id == IDC_USE_NETWORKS ? kPlacementBoxes : kMediumBoxes;
    int32_t checked = 0;
    for (std::size_t i = 0; i < group.boxes.size(); ++i) {
        if (group.boxes[i] != 0 && IsChecked(group.boxes[i])) checked |= 1 << i;
    }
    if (!MustRecheckUsageBox(checked)) return;
    SetButtonCheck(Item(id), BST_CHECKED);
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
            case IDC_LOAD_FILE:
                OnLoadFromFile();
                return true;
            case IDC_LOAD_STANDARD:
                OnLoadStandard();
                return true;
            case IDC_PROFILE_ADD:
                RunUserAction([this] { OnAddProfile(); });
                return true;
            case IDC_PROFILE_DELETE:
                OnDeleteProfile();
                return true;
            case IDC_PROFILE_DELETE_ALL:
                RunUserAction([this] { OnDeleteAllProfiles(); });
                return true;
            case IDC_PROFILE_GENERATE:
                RunUserAction([this] { OnGenerateProfiles(); });
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
    if (message == TVM_VALIDATEEDIT) {
        result = OnValidateProfileEdit(*reinterpret_cast<const NMTVEDITW*>(lParam));
        return true;
    }
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
    StoreProfileCodes();
    // An open material edit is dropped: only Enter applies it.
    if (!working_.IsUnchanged() && !working_.SaveCatalogue()) return;  // stays open with the work
    HandBackToCaller(working_, *callersList_);
    EndDialog(IDOK);
}

void CQxDlgMatEdituj::OnCancel() {
    StoreProfileCodes();
    if (!working_.IsUnchanged()) {
        const int answer = ShowMessage(u"Uložit provedené změny do souboru?", MB_YESNOCANCEL);
        if (answer == IDCANCEL) return;
        if (answer == IDYES && !working_.SaveCatalogue()) return;
    }
    working_.ClearUsage();
    EndDialog(IDCANCEL);
}

void CQxDlgMatEdituj::SetupProfileColumns() {
    CreateProfilePane(kEditorPaneStyle);
    AddToolTip(CTreeListCtrl::kControlId, u"Seznam profilů");
    const auto scaled = [this](int pixels) { return static_cast<int>(static_cast<float>(pixels) * Scale()); };
    profilePane_.InsertColumn(kProfileLabelColumn, u"Profil", scaled(80));
    profilePane_.InsertColumn(kOuterColumn, u"OD", scaled(60), LVCFMT_RIGHT);
    profilePane_.InsertColumn(kWallColumn, u"Stěna", scaled(60), LVCFMT_RIGHT);
    profilePane_.InsertColumn(kInnerColumn, u"ID", scaled(60), LVCFMT_RIGHT);
    profilePane_.InsertColumn(kDnColumn, u"DN", scaled(60));
    const int widthColumn = profilePane_.ClientRect().right - scaled(340);
    profilePane_.InsertColumn(kWidthColumn, u"Sirka", widthColumn < 0 ? -widthColumn : widthColumn,
                              widthColumn < 0 ? LVCFMT_LEFT : LVCFMT_RIGHT);
    profilePane_.SetColumnAutoEdit(kOuterColumn, 1);
    profilePane_.SetColumnCheck(kOuterColumn, InputKind::kWholeNumber);
    for (const int column : {kWallColumn, kInnerColumn, kWidthColumn}) {
        profilePane_.SetColumnAutoEdit(column, 1);
        profilePane_.SetColumnCheck(column, InputKind::kDecimalNumber);
    }
    profilePane_.SetColumnAutoEdit(kDnColumn, 3, 0, DnChoices());
    LetLastProfileColumnGrow();
}

HTREEITEM CQxDlgMatEdituj::InsertProfileRow(CQvxProfil& profile) {
    // Every cell's text is asked for when it is drawn (TVN_GETDISPINFOW).
    const HTREEITEM row = profilePane_.InsertItem(nullptr, reinterpret_cast<LPARAM>(&profile));
    for (int column = kOuterColumn; column <= kWidthColumn; ++column) profilePane_.SetCellText(row, column, nullptr);
    return row;
}

void CQxDlgMatEdituj::SetProfileColumns(const CQvxMaterial& material) {
    shownShape_ = material.Shape();
    std::u16string title(InnerColumnTitle(shownShape_));
    TVCOLUMNW column{};
    column.mask = TVCF_TEXT;
    column.pszText = const_cast<wchar_t*>(Wide(title));
    profilePane_.Send(TVM_SETCOLUMN, kInnerColumn, reinterpret_cast<LPARAM>(&column));
    // A circle's width is its inner diameter, shown but not typed.
    profilePane_.SetColumnAutoEdit(kWidthColumn, shownShape_ == ProfileShape::Circle ? 0 : 1);
    profilePane_.Redraw();
}

CQvxProfil* CQxDlgMatEdituj::ProfileOfRow(HTREEITEM row) const {
    return row != nullptr ? reinterpret_cast<CQvxProfil*>(profilePane_.GetItemParam(row)) : nullptr;
}

void CQxDlgMatEdituj::SortProfileRows() const {
    TVSORTCB sort{};
    sort.hParent = TVI_ROOT;
    sort.lpfnCompare = CompareDnIndexes;
    profilePane_.Send(TVM_SORTCHILDRENCB, 0, reinterpret_cast<LPARAM>(&sort));
    profilePane_.Redraw();
}

CQvxMaterial& CQxDlgMatEdituj::CurrentMaterial(std::u16string_view failure, int line) const {
    CQvxMaterial* material = RowMaterial(currentIndex_);
    if (material == nullptr) throw CQvxException(failure, line, SourceModule::kMaterialEditor);
    return *material;
}

void CQxDlgMatEdituj::OnAddProfile() {
    currentIndex_ = MarkedRow();
    if (RowMaterial(currentIndex_) == nullptr) return;  // no material is shown, nothing to add to
    CQvxMaterial& material = CurrentMaterial(u"Nenalezena datová položka materiálu", 351);
    const CQvxProfil* selected = ProfileOfRow(profilePane_.GetSelection());
    int start = selected != nullptr ? selected->DnIndex() : 0;
    std::optional<int> free = FindFreeDnIndex(material, start);
    while (!free) {
        if (start == 0) {
            ShowMessage(u"Nelze přidat již další DN !!", MB_ICONERROR);
            return;
        }
        const int answer = ShowMessage(u"Nelze přidat již další DN, přidat od začátku?", MB_YESNO | MB_ICONQUESTION);
        if (answer != IDYES) return;
        start = 0;
        free = FindFreeDnIndex(material, start);
    }
    CQvxProfil* added = material.AddProfile(*free);
    if (added == nullptr) return;
    InsertProfileRow(*added);
    SortProfileRows();
    profilePane_.Focus();
}

void CQxDlgMatEdituj::OnDeleteProfile() {
    const HTREEITEM row = profilePane_.GetSelection();
    CQvxProfil* profile = ProfileOfRow(row);
    if (IsEditing(mode_) || profile == nullptr) return;
    if (!profile->Users().IsEmpty()) {
        ShowMessage(u"Profil je používán, nelze jej vymazat", MB_ICONEXCLAMATION);
        return;
    }
    // The selection moves on before the row goes, so that the pane never shows a deleted profile.
    const HTREEITEM next = profilePane_.GetNextItem(row, TVGN_NEXTVISIBLE);
    if (next != nullptr) profilePane_.SelectCell(next, profilePane_.GetCurrentColumn());
    profilePane_.DeleteItem(row);
    profile->Owner()->DeleteProfile(profile->DnIndex());
    if (profilePane_.GetSelection() == nullptr) {
        const HTREEITEM last = profilePane_.GetNextItem(nullptr, TVGN_LASTVISIBLE);
        if (last != nullptr) profilePane_.SelectCell(last, profilePane_.GetCurrentColumn());
    }
}

void CQxDlgMatEdituj::OnDeleteAllProfiles() {
    if (RowMaterial(currentIndex_) == nullptr) return;
    const int answer = ShowMessage(u"Opravdu vymazat všechny profily?\ntento krok je nevratný", MB_YESNO | MB_ICONQUESTION);
    if (answer != IDYES) return;
    CQvxMaterial& material = CurrentMaterial(u"Chyba při načítání položky materiálu", 695);
    EmptyProfilePane();
    material.DeleteAllProfiles();
}

void CQxDlgMatEdituj::OnGenerateProfiles() {
    if (RowMaterial(currentIndex_) == nullptr) return;
    CQxDlgGetDN range(Handle());
    range.fromIndex = 0;
    range.toIndex = kDnCount - 1;
    if (range.DoModal() != IDOK) return;
    EmptyProfilePane();
    CQvxMaterial& material = CurrentMaterial(u"Chyba při načítání položky materiálu", 284);
    material.GenerateSeries(range.fromIndex, range.toIndex);
    HTREEITEM first = nullptr;
    for (const auto& [dnIndex, profile] : material.Profiles()) {
        const HTREEITEM row = InsertProfileRow(*profile);
        if (first == nullptr) first = row;
    }
    if (first != nullptr) profilePane_.SelectCell(first, 0);
    profilePane_.Focus();
}

void CQxDlgMatEdituj::SelectMaterial(int row) {
    StoreProfileCodes();
    CQxDlgMatVyber::SelectMaterial(row);
    UpdateProfileControls();
}

void CQxDlgMatEdituj::OnProfileSelected(CQvxProfil* profile) {
    StoreProfileCodes();
    ShowProfileCodes(profile);
    selectedProfile_ = profile;
    UpdateProfileControls();
}

void CQxDlgMatEdituj::StoreProfileCodes() {
    // Codes as they were change nothing, so that browsing the profiles leaves the catalogue
    // unchanged.
    if (selectedProfile_ != nullptr) {
        ::StoreProfileCodes(*selectedProfile_, CWindow(Item(IDC_URS_INSTALL)).Text(),
                            CWindow(Item(IDC_URS_MATERIAL)).Text());
    }
}

void CQxDlgMatEdituj::ShowProfileCodes(const CQvxProfil* profile) const {
    CWindow(Item(IDC_URS_INSTALL)).SetText(profile != nullptr ? profile->UrsInstallCode() : u"");
    CWindow(Item(IDC_URS_MATERIAL)).SetText(profile != nullptr ? profile->UrsMaterialCode() : u"");
}

LRESULT CQxDlgMatEdituj::OnValidateProfileEdit(const NMTVEDITW& edit) {
    CQvxProfil* profile = ProfileOfRow(edit.item.hItem);
    if (profile == nullptr || edit.item.pszText == nullptr) return 0;
    ProfileEdit checked;
    // A text that is no number is reported like any failure of a user's action, and refused.
    if (!RunUserAction([&] { checked = ValidateProfileEdit(*profile, edit.item.column, FromWide(edit.item.pszText)); })) {
        return 1;
    }
    if (!checked.refusal.empty()) {
        CTreeListCtrl::InPlaceEdit().ShowBalloon(checked.refusal);
        return static_cast<LRESULT>(checked.refusal.size());
    }
    if (edit.item.column != kDnColumn) {  // a DN is taken when the cell changes
        profile->SetDimensions(checked.innerDiameter, checked.wall);
        profile->SetWidth(checked.width);
    }
    return 0;
}

void CQxDlgMatEdituj::OnProfileCellChanged(const NMTVDISPINFOCW& change) {
    CQvxProfil* profile = ProfileOfRow(change.item.hItem);
    if (profile == nullptr || change.item.pszText == nullptr) return;
    const std::u16string text = FromWide(change.item.pszText);
    RunUserAction([&] {
        const ProfileEdit stored = StoredProfileEdit(*profile, change.item.column, text);
        if (change.item.column == kDnColumn) {
            // A DN another profile holds is refused by the profile, silently.
            if (profile->SetDN(stored.dnIndex, true)) SortProfileRows();
        } else {
            profile->SetDimensions(stored.innerDiameter, stored.wall);
            profile->SetWidth(stored.width);
        }
        profile->BuildLabels();
    });
    profilePane_.Redraw();
}

bool CQxDlgMatEdituj::OnNotify(NMHDR& header, LRESULT& result) {
    if (header.idFrom == CTreeListCtrl::kControlId) {
        switch (header.code) {
            case TVN_GETDISPINFOW: {
                auto& request = reinterpret_cast<NMTVDISPINFOCW&>(header);
                const CQvxProfil* profile = ProfileOfRow(request.item.hItem);
                if (profile == nullptr || request.item.pszText == nullptr || request.item.cchTextMax <= 0) return true;
                const std::u16string text = ProfileCellText(*profile, shownShape_, request.item.column);
                lstrcpynW(request.item.pszText, Wide(text), request.item.cchTextMax);
                return true;
            }
            case TVN_SETDISPINFOW:
                OnProfileCellChanged(reinterpret_cast<const NMTVDISPINFOCW&>(header));
                return true;
            case TVN_SELCHANGEDW:
                OnProfileSelected(ProfileOfRow(reinterpret_cast<const NMTREEVIEWW&>(header).itemNew.hItem));
                return true;
            case TVN_DELETEITEMW:
                if (reinterpret_cast<const NMTREEVIEWW&>(header).itemOld.lParam ==
                    reinterpret_cast<LPARAM>(selectedProfile_)) {
                    selectedProfile_ = nullptr;
                    ShowProfileCodes(nullptr);
                    UpdateProfileControls();
                }
                return true;
            default:
                break;
        }
    }
    return CQxDlgMatVyber::OnNotify(header, result);
}

void CQxDlgMatEdituj::ClearWorkingList() {
    // The panes let go of the materials and profiles before they go.
    EmptyProfilePane();
    DeleteAllRows();
    working_.Clear(false);  // used materials too, whatever the question said
}

void CQxDlgMatEdituj::OnLoadFromFile() {
    const std::optional<std::u16string> path = pickFile_(Handle());
    if (!path) return;
    int answer = 0;
    TaskDialog(Handle(), nullptr, Wide(Captions::kProgram.data()),
               L"Vymazat před načtením všechny materiály? (používané materiály vymazat nelze)",
               L"Pozor, tento krok je nevratný. \nNE - načtené materiály budou přidány\n a v případě výskytu "
               L"identických názvů budete vyzváni k přepsání",
               TDCBF_YES_BUTTON | TDCBF_NO_BUTTON | TDCBF_CANCEL_BUTTON, TD_WARNING_ICON, &answer);
    if (answer != IDYES && answer != IDNO) return;
    if (answer == IDYES) ClearWorkingList();

    const std::size_t before = working_.Count();
    if (MergeCatalogueFile(working_, *path) || working_.Count() != before) working_.MarkChanged();
    // Every material is listed, whatever the filter radios still show.
    FillList({kPlacementAll, kMediumAll});
}

void CQxDlgMatEdituj::OnLoadStandard() {
    const TASKDIALOG_BUTTON buttons[] = {{kClearAndLoadButton, L"Vymazat stávající"},
                                         {kAddMaterialsButton, L"Přidat materiály"},
                                         {kCancelLoadingButton, L"Zrušit načítání"}};
    TASKDIALOGCONFIG question{};
    question.cbSize = sizeof(question);
    question.hwndParent = Handle();
    question.pszWindowTitle = Wide(Captions::kProgram.data());
    question.pszMainIcon = TD_WARNING_ICON;
    question.pszMainInstruction = L"Vymazat stávající materiály?";
    question.pszContent = L"Vymazat před načtením všechny materiály (používané materiály vymazat nelze)?\nPozor, "
                          L"tento krok je nevratný.\n(V případě výskytu identických názvů budete vyzváni k přepsání)";
    question.cButtons = static_cast<UINT>(std::size(buttons));
    question.pButtons = buttons;
    question.nDefaultButton = kClearAndLoadButton;
    int answer = 0;
    if (FAILED(TaskDialogIndirect(&question, &answer, nullptr, nullptr))) return;
    if (answer != kClearAndLoadButton && answer != kAddMaterialsButton) return;
    if (answer == kClearAndLoadButton) ClearWorkingList();

    MergeStandardCatalogue(working_);
    working_.MarkChanged();
    FillList({kPlacementAll, kMediumAll});
}
