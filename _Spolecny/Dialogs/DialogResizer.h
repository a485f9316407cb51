#pragma once

#include <windows.h>

#include <vector>

#include "Dialogs/DialogMetrics.h"

// Keeps a dialog's controls in place as the dialog is enlarged: each control registered with an
// anchor moves and grows by its share of the growth of the client area since Start.
class CDialogResizer {
public:
    // Records the dialog's client size; call once its controls are in their first places.
    void Start(HWND dialog);
    // Records where `control` is now and how it follows the growth.
    void Add(HWND control, ResizeAnchor anchor);
    // Lets the last column of list view `list` take the list's growth, keeping the room that the
    // columns leave free now (for a scroll bar).
    void AddFillingColumn(HWND list);
    // Moves every registered control for the dialog's present client size (on WM_SIZE).
    void Resize() const;

private:
    struct Entry {
        HWND control;
        PixelRect initial;
        ResizeAnchor anchor;
    };

    struct FillingColumn {
        HWND list;
        int spare;
    };
    void FillLastColumn(const FillingColumn& filling) const;

    HWND dialog_ = nullptr;
    std::vector<FillingColumn> fillingColumns_;
    SIZE initialClient_{};
    std::vector<Entry> entries_;
};
