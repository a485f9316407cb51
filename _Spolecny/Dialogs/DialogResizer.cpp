#include "Dialogs/DialogResizer.h"

#include <algorithm>

void CDialogResizer::Start(HWND dialog) {
    dialog_ = dialog;
    RECT client{};
    GetClientRect(dialog, &client);
    initialClient_ = {client.right, client.bottom};
    entries_.clear();
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
    InvalidateRect(dialog_, nullptr, TRUE);  // the heading's rule spans the client width
}
