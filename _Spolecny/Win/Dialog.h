#pragma once

#include <windows.h>

#include <unordered_map>
#include <vector>

#include "Win/Window.h"

class CDataExchange;

// A dialog made from a resource template, modal (DoModal) or modeless (Create).
//
// Every message goes through HandleMessage. Before that, notifications of child controls are
// offered to the control objects that subclass them (ReflectToChild), so a control class can
// handle its own notifications. The base handles WM_INITDIALOG (OnInitDialog), OK and Cancel
// (OnOK, OnCancel), other commands (OnCommand) and WM_NOTIFY (OnNotify); a derived dialog
// overrides what it needs and calls the base for the rest.
//
// DoModal runs its own message loop so that PreTranslateMessage sees every message for the
// dialog and its controls before the dialog manager does; a modeless dialog's owner calls
// ProcessMessage from its loop for the same effect.
class CDialog : public CWindow {
public:
    CDialog(UINT templateId, HWND parent);
    ~CDialog() override;
    CDialog(const CDialog&) = delete;
    CDialog& operator=(const CDialog&) = delete;

    // Shows the dialog and returns when it ends: the value given to EndDialog, or -1 when the
    // dialog could not be created.
    INT_PTR DoModal();
    // Creates the dialog modeless; it shows itself if its template says so.
    bool Create();
    void DestroyWindow();

    // Ends a modal dialog with `result`; a modeless one is hidden and keeps the result.
    void EndDialog(INT_PTR result);
    bool HasEnded() const { return ended_; }
    INT_PTR Result() const { return result_; }

    // Moves data between the controls and the members (DoDataExchange); false when a value was
    // refused, after the user has been told and the control focused.
    bool UpdateData(bool saveAndValidate);

    // Gives the dialog the first look at a message of its thread; true when it was consumed.
    virtual bool PreTranslateMessage(MSG& message);
    // Pre-translation, the dialog manager's keyboard handling, then dispatch.
    void ProcessMessage(MSG& message);

    // The dialog's control `id`, found once and then kept: under Wine each search of the dialog's
    // children is a round trip to the window server, and the dialogs ask for their controls at
    // every change of state and every control colour.
    HWND Item(int id) const;
    // Whether check box or radio button `id` is checked.
    bool IsChecked(int id) const { return SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    // The radio buttons of the group that starts with control `firstId` and ends before the next
    // control with WS_GROUP, in their order; found once, like Item.
    const std::vector<HWND>& RadioGroup(int firstId) const;

    UINT TemplateId() const { return templateId_; }
    HWND ParentWindow() const { return parent_; }

protected:
    virtual BOOL OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    virtual void DoDataExchange(CDataExchange&) {}
    // A command of a control or menu other than OK and Cancel; true when handled.
    virtual bool OnCommand(WORD id, WORD code, HWND control);
    virtual bool OnNotify(NMHDR& header, LRESULT& result);
    // Every message of the dialog; true when handled, its answer in `result`.
    virtual bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

private:
    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Answer(UINT message, bool handled, LRESULT result);

    UINT templateId_;
    HWND parent_;
    mutable std::unordered_map<int, HWND> items_;
    mutable std::unordered_map<int, std::vector<HWND>> radioGroups_;
    bool modal_ = false;
    bool ended_ = false;
    INT_PTR result_ = 0;
};
