#include "Win/DataExchange.h"

#include "Win/Dialog.h"
#include "Framework/FrameworkTexts.h"
#include "Win/Application.h"
#include "Win/Controls.h"
#include "Win/SubclassedWindow.h"
#include "Win/WideText.h"

HWND CDataExchange::Item(int id) const {
    return dialog_.Item(id);
}

void CDataExchange::Control(int id, CSubclassedWindow& control) {
    if (failed_ || control.IsSubclassed()) return;
    control.Subclass(Item(id));
}

void CDataExchange::Text(int id, std::u16string& value) {
    if (failed_) return;
    CWindow control(Item(id));
    if (saving_) {
        value = control.Text();
    } else if (control.Text() != value) {  // an unchanged text is neither repainted nor notified
        control.SetText(value);
    }
}

void CDataExchange::MaxChars(int id, const std::u16string& value, int maxChars) {
    if (failed_) return;
    if (!saving_) {
        SendMessageW(Item(id), EM_SETLIMITTEXT, static_cast<WPARAM>(maxChars), 0);
    } else if (value.size() > static_cast<std::size_t>(maxChars)) {
        Fail(id, TooManyCharactersMessage(maxChars));
    }
}

void CDataExchange::Check(int id, int& value) {
    if (failed_) return;
    if (saving_) {
        value = static_cast<int>(SendMessageW(Item(id), BM_GETCHECK, 0, 0));
    } else {
        SetButtonCheck(Item(id), value);
    }
}

void CDataExchange::Radio(int firstId, int& index) {
    if (failed_) return;
    if (saving_) index = -1;
    int position = 0;
    for (const HWND control : dialog_.RadioGroup(firstId)) {
        if (saving_) {
            if (SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED) index = position;
        } else {
            SetButtonCheck(control, position == index ? BST_CHECKED : BST_UNCHECKED);
        }
        ++position;
    }
}

void CDataExchange::ComboIndex(int id, int& index) {
    if (failed_) return;
    if (saving_) {
        index = static_cast<int>(SendMessageW(Item(id), CB_GETCURSEL, 0, 0));
    } else if (SendMessageW(Item(id), CB_GETCURSEL, 0, 0) != index) {
        SendMessageW(Item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }
}

void CDataExchange::Fail(int id, const std::u16string& message) {
    failed_ = true;
    const std::u16string caption = ApplicationTitle();
    MessageBoxW(dialog_.Handle(), Wide(message), Wide(caption), MB_OK | MB_ICONEXCLAMATION);
    const HWND control = Item(id);
    if (control == nullptr) return;
    SetFocus(control);
    SendMessageW(control, EM_SETSEL, 0, -1);
}
