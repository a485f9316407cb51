#include "Dialogs/CQxAcDialog.h"

#include <shellscalingapi.h>

#include "Dialogs/DialogMetrics.h"
#include "Win/Application.h"
#include "UserMessages.h"
#include "Win/WideText.h"

namespace {

constexpr UINT kMakeToolTipWindow = WM_APP + 1021;

// "Arial" at 13 points on the screen, as a point font is made.
HFONT CreateBaseFont() {
    const HDC screen = GetDC(nullptr);
    LOGFONTW description{};
    description.lfHeight = PointFontHeight(-130, GetDeviceCaps(screen, LOGPIXELSY));
    description.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(description.lfFaceName, L"Arial", LF_FACESIZE);
    ReleaseDC(nullptr, screen);
    return CreateFontIndirectW(&description);
}

HFONT CreateBoldFont(HFONT baseFont) {
    LOGFONTW description{};
    GetObjectW(baseFont, sizeof(description), &description);
    description.lfWeight = FW_BOLD;
    description.lfHeight = BoldFontHeight(description.lfHeight);
    return CreateFontIndirectW(&description);
}

}  // namespace

COLORREF CQxAcDialog::HeadingColour() {
    static const COLORREF hotLight = GetSysColor(COLOR_HOTLIGHT);
    return hotLight;
}

LRESULT CQxAcDialog::HeadingControlColours(HDC dc, COLORREF colour) {
    SetTextColor(dc, colour);
    SetBkMode(dc, TRANSPARENT);
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

int CQxAcDialog::ShowMessage(std::u16string_view text, UINT flags) const {
    const std::u16string body(text);
    const std::u16string caption(Captions::kProgram);
    return MessageBoxW(Handle(), Wide(body), Wide(caption), flags);
}

float ReadMonitorScale(HWND window) {
    const HMONITOR monitor = MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST);
    UINT dpiX = 0;
    UINT dpiY = 0;
    if (FAILED(GetDpiForMonitor(monitor, MDT_EFFECTIVE_DPI, &dpiX, &dpiY))) return 1.0f;
    return ScaleFromDpi(dpiX, dpiY);
}

CQxAcDialog::CQxAcDialog(UINT templateId, HWND parent, std::u16string heading, WORD iconId)
    : CDialog(templateId, parent), heading_(std::move(heading)), iconId_(iconId) {
    scale_ = ReadMonitorScale(parent);
    baseFont_.Reset(CreateBaseFont());
    boldFont_.Reset(CreateBoldFont(baseFont_.Get()));
    if (iconId_ != 0) icon_ = LoadIconW(ResourceModule(), MAKEINTRESOURCEW(iconId_));
}

// The window goes first: its controls may still use the fonts.
CQxAcDialog::~CQxAcDialog() {
    DestroyWindow();
}

CToolTipCtrl& CQxAcDialog::AddToolTip(int controlId, std::u16string_view text) {
    const auto [entry, added] = tooltips_.try_emplace(controlId, text);
    if (added && tooltip_) tooltip_.AddTool(Item(controlId), entry->second);
    return tooltip_;
}

bool CQxAcDialog::PreTranslateMessage(MSG& message) {
    if (tooltip_) tooltip_.RelayEvent(message);
    return CDialog::PreTranslateMessage(message);
}

BOOL CQxAcDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    // The tooltips wait until the dialog has been shown: nobody hovers over a window not yet on
    // the screen, and making them is a good part of a dialog's opening under Wine.
    tooltip_.Destroy();  // an earlier opening's window went with its dialog
    Post(kMakeToolTipWindow);
    if (icon_ != nullptr) {
        Send(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon_));
        Send(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon_));
    }
    const RECT window = WindowRect();
    initialWidth_ = window.right - window.left;
    initialHeight_ = window.bottom - window.top;
    return TRUE;
}

void CQxAcDialog::MakeToolTipWindow() {
    tooltip_.Create(Handle(), TTS_ALWAYSTIP | TTS_BALLOON);
    tooltip_.SetMaxTipWidth(kToolTipMaxWidth);
    for (const auto& [id, text] : tooltips_) tooltip_.AddTool(Item(id), text);
    tooltip_.Activate(true);
}

bool CQxAcDialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case kMakeToolTipWindow:
            MakeToolTipWindow();
            result = 0;
            return true;
        case WM_PAINT: {
            PAINTSTRUCT paint{};
            const HDC dc = BeginPaint(Handle(), &paint);
            scale_ = ReadMonitorScale(Handle());
            Paint(dc);
            EndPaint(Handle(), &paint);
            result = 0;
            return true;
        }
        case WM_PRINTCLIENT:
            Paint(reinterpret_cast<HDC>(wParam));
            result = 0;
            return true;
        case WM_SHOWWINDOW:
            if (wParam != FALSE && tooltip_) tooltip_.Activate(true);
            return false;
        case WM_GETMINMAXINFO:
            if (initialWidth_ > 0) {
                auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
                limits->ptMinTrackSize = {initialWidth_, initialHeight_};
                result = 0;
                return true;
            }
            return false;
        default:
            return CDialog::HandleMessage(message, wParam, lParam, result);
    }
}

void CQxAcDialog::Paint(HDC dc) {
    const RECT client = ClientRect();
    if (IsIconic(Handle())) {
        Send(WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(dc));
        const int iconWidth = GetSystemMetrics(SM_CXICON);
        const int iconHeight = GetSystemMetrics(SM_CYICON);
        if (icon_ != nullptr) {
            DrawIcon(dc, (client.right - iconWidth + 1) / 2, (client.bottom - iconHeight + 1) / 2, icon_);
        }
        return;
    }
    if (heading_.empty()) return;

    const HeadingLayout layout = HeadingLayoutForScale(scale_);
    MoveToEx(dc, layout.margin, layout.ruleY, nullptr);
    LineTo(dc, client.right - layout.margin, layout.ruleY);

    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, HeadingColour());
    const HGDIOBJ previousFont = SelectObject(dc, baseFont_.Get());
    TextOutW(dc, layout.margin, layout.textY, Wide(heading_), static_cast<int>(heading_.size()));
    SelectObject(dc, previousFont);
}
