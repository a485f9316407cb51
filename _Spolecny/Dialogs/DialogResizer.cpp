#include "Dialogs/DialogResizer.h"

#include <commctrl.h>

#include <algorithm>

void CDialogResizer::Start(HWND dialog) {
    dialog_ = dialog;
    RECT client{};
    GetClientRect(dialog, &client);
    initialClient_ = {client.right, client.bottom};
    entries_.clear();
    fillingColumns_.clear();
}

namespace {

int ColumnCount(HWND list) {
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    return header != nullptr ? static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
}

int ColumnsWidth(HWND list, int count) {
    int width = 0;
    for (int column = 0; column < count; ++column) {
        width += static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    return width;
}

int ClientWidth(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return client.right;
}

}  // namespace

void CDialogResizer::AddFillingColumn(HWND list) {
    const int count = ColumnCount(list);
    if (count == 0) return;
    fillingColumns_.push_back({list, ClientWidth(list) - ColumnsWidth(list, count)});
}

void CDialogResizer::FillLastColumn(const FillingColumn& filling) const {
    const int count = ColumnCount(filling.list);
    if (count == 0) return;
    const int width = ClientWidth(filling.list) - ColumnsWidth(filling.list, count - 1) - filling.spare;
    SendMessageW(filling.list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(count - 1), std::max(width, 0));
}

void CDialogResizer::Add(HWND control, ResizeAnchor anchor) {
    if (control == nullptr) return;
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&place), 2);
    entries_.push_back({control, {place.left, place.top, place.right, place.bottom}, anchor});
}

void CDialogResizer::Resize() const {
    if (dialog_ == nullptr || entries_.empty()) return;
    RECT client{};
    GetClientRect(dialog_, &client);
    if (client.right == 0 && client.bottom == 0) return;  // minimised
    const int grownX = std::max(0, static_cast<int>(client.right - initialClient_.cx));
    const int grownY = std::max(0, static_cast<int>(client.bottom - initialClient_.cy));

    HDWP moves = BeginDeferWindowPos(static_cast<int>(entries_.size()));
    for (const Entry& entry : entries_) {
        const PixelRect place = AnchoredRect(entry.initial, entry.anchor, grownX, grownY);
        if (moves != nullptr) {
            moves = DeferWindowPos(moves, entry.control, nullptr, place.left, place.top, place.right - place.left,
                                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        }
    }
    if (moves != nullptr) EndDeferWindowPos(moves);
    for (const FillingColumn& filling : fillingColumns_) FillLastColumn(filling);
    InvalidateRect(dialog_, nullptr, TRUE);  // the heading's rule spans the client width
}
