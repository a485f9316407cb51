#pragma once

#include <windows.h>

#include <string>

class CDialog;
class CSubclassedWindow;

// Moves values between a dialog's controls and its members, in one direction per run: towards
// the members when saving (OK), towards the controls otherwise (opening). A refused value ends
// the run: the user is told, the control gets the focus, and later calls do nothing.
class CDataExchange {
public:
    CDataExchange(CDialog& dialog, bool saveAndValidate) : dialog_(dialog), saving_(saveAndValidate) {}

    bool Saving() const { return saving_; }
    bool Failed() const { return failed_; }

    // Attaches `control` to the dialog's control `id` (subclassing it) the first time.
    void Control(int id, CSubclassedWindow& control);
    // Text of an edit or any other window.
    void Text(int id, std::u16string& value);
    // Limits an edit to `maxChars` when opening; refuses a longer text when saving.
    void MaxChars(int id, const std::u16string& value, int maxChars);
    // Check box state: BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
    void Check(int id, int& value);
    // Radio group from its first button to the next button with WS_GROUP: the position of the
    // checked one, -1 when none is checked.
    void Radio(int firstId, int& index);
    // Selected position in a combo box, -1 for none.
    void ComboIndex(int id, int& index);

    // Refuses the value of control `id` with `message`.
    void Fail(int id, const std::u16string& message);

private:
    HWND Item(int id) const;

    CDialog& dialog_;
    bool saving_;
    bool failed_ = false;
};
