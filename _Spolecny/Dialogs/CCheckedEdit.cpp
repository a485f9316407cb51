#include "Dialogs/CCheckedEdit.h"

#include <algorithm>
#include <cwctype>

#include "Win/WideText.h"

namespace {

constexpr COLORREF kInvalidBackground = RGB(255, 255, 160);
constexpr COLORREF kInvalidText = RGB(255, 0, 0);
constexpr COLORREF kValidBackground = RGB(255, 255, 255);
constexpr UINT_PTR kBalloonTimer = 0x4345;
constexpr UINT kBalloonMilliseconds = 10000;
constexpr int kBalloonWidth = 320;

// The system's large error icon by handle: every tooltip takes a handle for its title, not every
// one knows TTI_ERROR_LARGE.
WPARAM LargeErrorIcon() {
    return reinterpret_cast<WPARAM>(LoadIconW(nullptr, IDI_ERROR));
}

void SystemBeep() {
    MessageBeep(0);
}

RefusalSound refusalSound = SystemBeep;

COLORREF WindowTextColour() {
    static const COLORREF windowText = GetSysColor(COLOR_WINDOWTEXT);
    return windowText;
}

}  // namespace

RefusalSound SetRefusalSound(RefusalSound sound) {
    const RefusalSound previous = refusalSound;
    refusalSound = sound != nullptr ? sound : SystemBeep;
    return previous;
}

CCheckedEdit::CCheckedEdit(TextCheck wholeTextCheck, TextCheck keystrokeCheck, const char16_t* message,
                           const char16_t* title, std::int32_t maxLength)
    : message_(message != nullptr ? message : u""),
      title_(title != nullptr ? title : u"Chybný vstup"),
      invalidBrush_(CreateSolidBrush(kInvalidBackground)),
      validBrush_(CreateSolidBrush(kValidBackground)),
      greyBrush_(CreateSolidBrush(RGB(200, 200, 200))) {
    rules_.wholeTextCheck = wholeTextCheck;
    rules_.keystrokeCheck = keystrokeCheck;
    rules_.maxLength = maxLength;
}

CCheckedEdit::~CCheckedEdit() {
    Unsubclass();
}

bool CCheckedEdit::CheckWholeText() {
    if (rules_.wholeTextCheck == nullptr) {
        valid_ = true;
        return false;
    }
    currentText_ = RightTrimmed(Text());
    const bool valid = IsFinishedTextValid(rules_, currentText_);
    if (valid != valid_) {
        Redraw();
        valid_ = valid;
    }
    return !valid_;
}

void CCheckedEdit::ShowBalloon(const std::u16string& text) {
    if (ShowBalloonTip(title_, text, TTI_ERROR_LARGE)) return;

    if (!fallbackBalloon_) {
        fallbackBalloon_.Create(Handle(), TTS_BALLOON | TTS_NOPREFIX | TTS_ALWAYSTIP);
        fallbackBalloon_.SetMaxTipWidth(kBalloonWidth);  // also lets "\n" break the text
        fallbackBalloon_.AddTrackingTool(text);
    }
    fallbackBalloon_.SetTitle(LargeErrorIcon(), title_);
    fallbackBalloon_.UpdateTrackingText(text);

    // The balloon points at the caret, as the edit control's own one does.
    const RECT client = ClientRect();
    POINT tip{client.left + 8, client.bottom - 2};
    POINT caret{};
    if (GetFocus() == Handle() && GetCaretPos(&caret)) tip.x = std::min<LONG>(std::max<LONG>(caret.x, 0), client.right);
    ClientToScreen(Handle(), &tip);
    fallbackBalloon_.TrackPosition(tip);
    fallbackBalloon_.TrackActivate(true);
    SetTimer(Handle(), kBalloonTimer, kBalloonMilliseconds, nullptr);
}

void CCheckedEdit::HideFallbackBalloon() {
    if (!fallbackBalloon_) return;
    fallbackBalloon_.TrackActivate(false);
    KillTimer(Handle(), kBalloonTimer);
}

void CCheckedEdit::Refuse() {
    refusalSound();
    ShowErrorBalloon();
}

LRESULT CCheckedEdit::OnChar(WPARAM character, LPARAM lParam) {
    const auto typed = static_cast<wchar_t>(character);
    if (!std::iswprint(static_cast<std::wint_t>(typed))) return DefaultProc(WM_CHAR, character, lParam);

    int start = 0;
    int end = 0;
    GetSel(start, end);
    const std::optional<char16_t> accepted = AcceptTypedCharacter(
        rules_, Text(), static_cast<std::size_t>(start), static_cast<std::size_t>(end), static_cast<char16_t>(typed));
    if (!accepted) {
        Refuse();
        return 0;
    }
    return DefaultProc(WM_CHAR, static_cast<WPARAM>(*accepted), lParam);
}

LRESULT CCheckedEdit::Colours(HDC dc) {
    if (!IsEnabled()) return reinterpret_cast<LRESULT>(validBrush_.Get());
    if (!valid_) {
        SetBkColor(dc, kInvalidBackground);
        SetTextColor(dc, kInvalidText);
        return reinterpret_cast<LRESULT>(invalidBrush_.Get());
    }
    SetBkColor(dc, kValidBackground);
    SetTextColor(dc, WindowTextColour());
    return reinterpret_cast<LRESULT>(validBrush_.Get());
}

void CCheckedEdit::OnKillFocus() {
    // Trimmed first, so that the parent reading the field on the notice sees the text it is told.
    const std::u16string trimmed = RightTrimmed(Text());
    if (trimmed != Text()) {
        settingText_ = true;  // the change notification of our own write stays here
        SetText(trimmed);
        settingText_ = false;
    }
    SendMessageW(Parent(), WM_CHECKEDEDIT_KILLFOCUS, reinterpret_cast<WPARAM>(Handle()),
                 reinterpret_cast<LPARAM>(Wide(trimmed)));
}

bool CCheckedEdit::OnReflected(UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
    switch (message) {
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            result = Colours(reinterpret_cast<HDC>(wParam));
            return true;
        case WM_COMMAND:
            if (HIWORD(wParam) == EN_CHANGE) {
                if (settingText_) {
                    settingText_ = false;
                    return true;
                }
                return CheckWholeText();  // an invalid text never reaches the parent as a change
            }
            if (HIWORD(wParam) == EN_KILLFOCUS) OnKillFocus();
            return false;
        default:
            return false;
    }
}

LRESULT CCheckedEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CHAR:
            HideFallbackBalloon();
            return OnChar(wParam, lParam);
        case WM_KEYDOWN:
        case WM_KILLFOCUS:
            HideFallbackBalloon();
            break;
        case WM_SHOWWINDOW:
            if (wParam == FALSE) HideFallbackBalloon();
            break;
        case WM_TIMER:
            if (wParam == kBalloonTimer) {
                HideFallbackBalloon();
                return 0;
            }
            break;
        case WM_PAINT:
            CheckWholeText();
            break;
        case WM_DESTROY:
            KillTimer(Handle(), kBalloonTimer);
            fallbackBalloon_.Destroy();
            break;
        default:
            break;
    }
    return DefaultProc(message, wParam, lParam);
}
