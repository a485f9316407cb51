#pragma once

#include "Win/Window.h"

// A window whose messages a C++ object handles before the window's own procedure, which the object's
// procedure replaces. Notifications that the window sends to its parent come back to it
// as reflected messages when the parent calls ReflectToChild, so that a control class can handle
// its own notifications. The subclass ends when the window is destroyed or the object is.
class CSubclassedWindow : public CWindow {
public:
    CSubclassedWindow() = default;
    // Names a window without subclassing it.
    explicit CSubclassedWindow(HWND window) : CWindow(window) {}
    ~CSubclassedWindow() override;
    CSubclassedWindow(const CSubclassedWindow&) = delete;
    CSubclassedWindow& operator=(const CSubclassedWindow&) = delete;

    // Attaches to an existing window and routes its messages through WindowProc.
    bool Subclass(HWND window);
    void Unsubclass();
    bool IsSubclassed() const { return subclassed_; }

    // The object that subclasses `window`, if any.
    static CSubclassedWindow* FromHandle(HWND window);

    // A notification of this window reflected by its parent (WM_COMMAND, WM_NOTIFY or one of the
    // WM_CTLCOLOR messages). Returns true to keep it from the parent; `result` is then the answer.
    virtual bool OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

protected:
    // Every message of the window. The default passes it on to the window's own procedure.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT DefaultProc(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool subclassed_ = false;
};

// Called by a parent window for a message that may come from a child control: hands it to the
// control object that subclasses the child. True when the control kept it, with its `result`.
bool ReflectToChild(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
