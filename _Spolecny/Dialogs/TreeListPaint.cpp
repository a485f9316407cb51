// Layout and painting of the tree-list: a header control with the column captions above rows of
// cells, expand buttons, grid lines, row or cell selection. Themed where UxTheme is there, plain
// otherwise, and always through a buffer so that nothing flickers.
#include <vssym32.h>

#include <algorithm>

#include "Dialogs/TreeListResources.h"
#include "Dialogs/TreeListWindow.h"
#include "Win/WideText.h"

struct TreeListWindow::RowPaint {
    TreeItem item;
    RECT rect;
    bool selected;
    bool hasButton;
    bool expanded;
    int indent;
    std::vector<std::u16string> texts;
};

namespace {

COLORREF Mix(COLORREF a, COLORREF b, int partsOfB, int parts) {
    auto channel = [&](int shift) {
        const int first = (a >> shift) & 0xFF;
        const int second = (b >> shift) & 0xFF;
        return (first * (parts - partsOfB) + second * partsOfB) / parts;
    };
    return RGB(channel(0), channel(8), channel(16));
}

void Fill(HDC dc, const RECT& rect, COLORREF colour) {
    SetBkColor(dc, colour);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

UINT Alignment(int format) {
    if (format == LVCFMT_RIGHT) return DT_RIGHT;
    if (format == LVCFMT_CENTER) return DT_CENTER;
    return DT_LEFT;
}

}  // namespace

int TreeListWindow::Scaled(int pixels) const {
    return MulDiv(pixels, dpi_, 96);
}

void TreeListWindow::OpenTheme() {
    const ThemeFunctions& theme = TreeListResources::Theme();
    if (treeTheme_ != nullptr && theme.closeThemeData != nullptr) theme.closeThemeData(treeTheme_);
    treeTheme_ = theme.openThemeData != nullptr ? theme.openThemeData(window_, L"TREEVIEW") : nullptr;
}

void TreeListWindow::UpdateFont(HFONT font) {
    font_ = font != nullptr ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(header_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    const HDC dc = GetDC(window_);
    const HGDIOBJ previous = SelectObject(dc, font_);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    SelectObject(dc, previous);
    ReleaseDC(window_, dc);
    rowHeight_ = std::max(static_cast<int>(metrics.tmHeight) + Scaled(4), Scaled(16)) + 1;
    Layout();
}

int TreeListWindow::HeaderHeight() const {
    if (header_ == nullptr || model_.ColumnCount() == 0) return 0;
    RECT rect{};
    GetWindowRect(header_, &rect);
    return rect.bottom - rect.top;
}

int TreeListWindow::VisibleRowCount() const {
    RECT client{};
    GetClientRect(window_, &client);
    return std::max(static_cast<int>(client.bottom - HeaderHeight()) / rowHeight_, 0);
}

int TreeListWindow::ColumnLeft(int column) const {
    int left = 0;
    for (int i = 0; i < column && i < model_.ColumnCount(); ++i) left += model_.Column(i).width;
    return left;
}

RECT TreeListWindow::RowRect(int visibleIndex) const {
    RECT client{};
    GetClientRect(window_, &client);
    const int top = HeaderHeight() + (visibleIndex - topRow_) * rowHeight_;
    const int right = std::max(static_cast<int>(client.right), model_.TotalColumnWidth() - scrollX_);
    return {-scrollX_, top, right, top + rowHeight_};
}

RECT TreeListWindow::CellRect(int visibleIndex, int column) const {
    RECT rect = RowRect(visibleIndex);
    if (model_.ColumnCount() == 0) return rect;
    rect.left = ColumnLeft(column) - scrollX_;
    rect.right = rect.left + (model_.HasColumn(column) ? model_.Column(column).width : 0);
    return rect;
}

int TreeListWindow::TextIndent(TreeItem item) const {
    const LONG style = GetWindowLongW(window_, GWL_STYLE);
    const int levels = model_.Level(item) + ((style & TVS_LINESATROOT) != 0 ? 1 : 0);
    return levels * Scaled(19) + Scaled(4);
}

RECT TreeListWindow::ButtonRect(TreeItem item, const RECT& row) const {
    const LONG style = GetWindowLongW(window_, GWL_STYLE);
    const int levels = model_.Level(item) + ((style & TVS_LINESATROOT) != 0 ? 1 : 0);
    if ((style & TVS_HASBUTTONS) == 0 || levels == 0 || !model_.HasChildren(item)) return {};
    const int size = Scaled(9) | 1;  // odd, so the plus sits in the middle
    const int centreX = row.left + levels * Scaled(19) - Scaled(19) / 2;
    const int centreY = (row.top + row.bottom - 1) / 2;
    return {centreX - size / 2, centreY - size / 2, centreX - size / 2 + size, centreY - size / 2 + size};
}

// Whether the header's item `column` already shows `wanted`: each item set repaints the header,
// and a column's change sets every item.
bool TreeListWindow::HeaderShows(int column, const HDITEMW& wanted) const {
    wchar_t caption[256] = {};
    HDITEMW shown{};
    shown.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
    shown.pszText = caption;
    shown.cchTextMax = static_cast<int>(std::size(caption));
    return SendMessageW(header_, HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&shown)) != 0 &&
           shown.cxy == wanted.cxy && shown.fmt == wanted.fmt && lstrcmpW(caption, wanted.pszText) == 0;
}

void TreeListWindow::SetRedraw(bool redraw) {
    redraw_ = redraw;
    if (!redraw_) return;
    UpdateHeader();
    Layout();
}

void TreeListWindow::UpdateHeader() {
    if (!redraw_) return;
    const int columns = model_.ColumnCount();
    while (SendMessageW(header_, HDM_GETITEMCOUNT, 0, 0) > columns) SendMessageW(header_, HDM_DELETEITEM, columns, 0);
    for (int column = 0; column < columns; ++column) {
        const TreeListColumn& stored = model_.Column(column);
        std::u16string caption = stored.caption;
        HDITEMW item{};
        item.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
        item.cxy = stored.width;
        item.pszText = const_cast<wchar_t*>(Wide(caption));
        item.fmt = HDF_STRING | (stored.format == LVCFMT_RIGHT    ? HDF_RIGHT
                                 : stored.format == LVCFMT_CENTER ? HDF_CENTER
                                                                  : HDF_LEFT);
        if (HeaderShows(column, item)) continue;
        if (column >= SendMessageW(header_, HDM_GETITEMCOUNT, 0, 0)) {
            SendMessageW(header_, HDM_INSERTITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
        } else {
            SendMessageW(header_, HDM_SETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
        }
    }
}

void TreeListWindow::Layout() {
    if (!redraw_) return;
    RECT client{};
    GetClientRect(window_, &client);

    // The header: its own height, shifted with the horizontal scroll.
    if (model_.ColumnCount() > 0) {
        RECT available{0, 0, client.right + scrollX_, client.bottom};
        WINDOWPOS position{};
        HDLAYOUT layout{&available, &position};
        SendMessageW(header_, HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout));
        const int width = std::max(model_.TotalColumnWidth(), static_cast<int>(client.right) + scrollX_);
        const RECT place{-scrollX_, 0, width - scrollX_, position.cy};
        if (!EqualRect(&place, &headerPlace_)) {
            SetWindowPos(header_, nullptr, place.left, place.top, width, position.cy,
                         SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
            headerPlace_ = place;
        }
    } else {
        ShowWindow(header_, SW_HIDE);
        headerPlace_ = {};
    }

    const int rows = static_cast<int>(model_.VisibleItems().size());
    const int page = VisibleRowCount();
    topRow_ = std::clamp(topRow_, 0, std::max(rows - page, 0));
    SCROLLINFO vertical{sizeof(vertical),
                        SIF_RANGE | SIF_PAGE | SIF_POS,
                        0,
                        std::max(rows - 1, 0),
                        static_cast<UINT>(page),
                        topRow_,
                        0};
    bool barsChanged = SetScrollBar(SB_VERT, vertical);

    // A vertical bar shown or hidden resized the client area, and the control has been laid out for
    // the new width meanwhile (WM_SIZE): the horizontal bar is measured against that width.
    GetClientRect(window_, &client);
    const int total = model_.TotalColumnWidth();
    scrollX_ = std::clamp(scrollX_, 0, std::max(total - static_cast<int>(client.right), 0));
    SCROLLINFO horizontal{sizeof(horizontal),
                          SIF_RANGE | SIF_PAGE | SIF_POS,
                          0,
                          std::max(total - 1, 0),
                          static_cast<UINT>(std::max(static_cast<int>(client.right), 0)),
                          scrollX_,
                          0};
    barsChanged = SetScrollBar(SB_HORZ, horizontal) || barsChanged;
    // One invalidation stands until the control is painted, and one of the frame, where the scroll
    // bars are, until the frame is painted.
    if (barsChanged && !framePending_) {
        RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
        framePending_ = true;
        paintPending_ = true;
    } else if (!paintPending_) {
        InvalidateRect(window_, nullptr, FALSE);
        paintPending_ = true;
    }
}

// Each row added lays the control out again: what did not change is not set again, as the header
// would repaint, and a scroll bar is drawn with the frame rather than at once (each row added to a
// long list changes its range).
bool TreeListWindow::SetScrollBar(int bar, const SCROLLINFO& info) {
    SCROLLINFO& last = bar == SB_VERT ? verticalBar_ : horizontalBar_;
    if (last.cbSize != 0 && last.nMin == info.nMin && last.nMax == info.nMax && last.nPage == info.nPage &&
        last.nPos == info.nPos) {
        return false;
    }
    SetScrollInfo(window_, bar, &info, FALSE);
    last = info;
    return true;
}

std::vector<TreeListWindow::RowPaint> TreeListWindow::CollectRows() {
    std::vector<RowPaint> rows;
    const std::vector<TreeItem> visible = model_.VisibleItems();
    const int last = std::min(static_cast<int>(visible.size()), topRow_ + VisibleRowCount() + 1);
    for (int index = topRow_; index < last; ++index) {
        const TreeItem item = visible[static_cast<std::size_t>(index)];
        if (!model_.Exists(item)) continue;  // the owner changed the control while it was asked
        RowPaint row{item, RowRect(index), item == model_.Current(), false, model_.IsExpanded(item), TextIndent(item),
                     {}};
        const RECT button = ButtonRect(item, row.rect);
        row.hasButton = IsRectEmpty(&button) == FALSE;
        const int columns = std::max(model_.ColumnCount(), 1);
        for (int column = 0; column < columns; ++column) row.texts.push_back(CellText(item, column));
        rows.push_back(std::move(row));
    }
    return rows;
}

void TreeListWindow::PaintButton(HDC dc, const RECT& box, bool expanded) {
    const ThemeFunctions& theme = TreeListResources::Theme();
    if (treeTheme_ != nullptr && theme.drawThemeBackground != nullptr) {
        SIZE size{box.right - box.left, box.bottom - box.top};
        if (theme.getThemePartSize != nullptr) {
            theme.getThemePartSize(treeTheme_, dc, TVP_GLYPH, GLPS_CLOSED, nullptr, TS_DRAW, &size);
        }
        const int x = (box.left + box.right - size.cx) / 2;
        const int y = (box.top + box.bottom - size.cy) / 2;
        const RECT glyph{x, y, x + size.cx, y + size.cy};
        theme.drawThemeBackground(treeTheme_, dc, TVP_GLYPH, expanded ? GLPS_OPENED : GLPS_CLOSED, &glyph, nullptr);
        return;
    }
    Fill(dc, box, GetSysColor(COLOR_WINDOW));
    const HBRUSH frame = GetSysColorBrush(COLOR_BTNSHADOW);
    FrameRect(dc, &box, frame);
    const int middleY = (box.top + box.bottom) / 2;
    const int middleX = (box.left + box.right) / 2;
    const int inset = std::max(Scaled(2), 2);
    const COLORREF mark = GetSysColor(COLOR_WINDOWTEXT);
    Fill(dc, {box.left + inset, middleY, box.right - inset, middleY + 1}, mark);
    if (!expanded) Fill(dc, {middleX, box.top + inset, middleX + 1, box.bottom - inset}, mark);
}

void TreeListWindow::PaintRow(HDC dc, const RowPaint& row, bool focused) {
    const LONG style = GetWindowLongW(window_, GWL_STYLE);
    const bool cellSelection = (model_.ExtendedStyle() & kCellSelection) != 0;
    const bool enabled = IsWindowEnabled(window_) != FALSE;
    const int columns = static_cast<int>(row.texts.size());
    const bool showSelection = row.selected && (focused || (style & TVS_SHOWSELALWAYS) != 0);
    const int index = model_.VisibleIndex(row.item);
    const LONG rowEnd = model_.ColumnCount() > 0 ? model_.TotalColumnWidth() - scrollX_ : row.rect.right;

    // Where the selection shows: the current cell (on a tinted row), the whole row, or the
    // item's own text. Selections keep the system's colours, as the list view's grid does.
    RECT selection{};
    if (showSelection) {
        if (cellSelection) {
            RECT wholeRow{row.rect.left, row.rect.top, rowEnd, row.rect.bottom - 1};
            Fill(dc, wholeRow, Mix(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_HIGHLIGHT), 1, 8));
            selection = CellRect(index, model_.CurrentColumn());
        } else if ((style & TVS_FULLROWSELECT) != 0 || columns > 1) {
            selection = {row.rect.left, row.rect.top, rowEnd, row.rect.bottom};
        } else {
            selection = row.rect;
            selection.left += row.indent - Scaled(2);
        }
        selection.bottom -= 1;  // the grid line stays
        Fill(dc, selection, GetSysColor(focused ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
    }

    for (int column = 0; column < columns; ++column) {
        const RECT cell = model_.ColumnCount() == 0 ? row.rect : CellRect(index, column);
        if (column == 0 && row.hasButton) PaintButton(dc, ButtonRect(row.item, row.rect), row.expanded);

        RECT text = cell;
        text.left += column == 0 ? row.indent : Scaled(4);
        text.right -= Scaled(4);
        text.bottom -= 1;
        RECT overlap{};
        const bool selected = showSelection && IntersectRect(&overlap, &cell, &selection) != FALSE;
        COLORREF colour = GetSysColor(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
        if (selected && focused && enabled) colour = GetSysColor(COLOR_HIGHLIGHTTEXT);
        SetTextColor(dc, colour);
        SetBkMode(dc, TRANSPARENT);
        const UINT format = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS |
                            (column == 0 ? DT_LEFT : Alignment(model_.Column(column).format));
        DrawTextW(dc, Wide(row.texts[static_cast<std::size_t>(column)]), -1, &text, format);
    }

    if (showSelection && focused) DrawFocusRect(dc, &selection);
}

void TreeListWindow::Paint(HDC target, const RECT& area) {
    RECT client{};
    GetClientRect(window_, &client);
    if (client.right <= 0 || client.bottom <= 0) return;

    const ThemeFunctions& theme = TreeListResources::Theme();
    HDC dc = nullptr;
    HPAINTBUFFER buffer = nullptr;
    HBITMAP bitmap = nullptr;
    HGDIOBJ previousBitmap = nullptr;
    if (theme.beginBufferedPaint != nullptr && theme.endBufferedPaint != nullptr) {
        buffer = theme.beginBufferedPaint(target, &client, BPBF_COMPATIBLEBITMAP, nullptr, &dc);
    }
    if (buffer == nullptr) {
        dc = CreateCompatibleDC(target);
        bitmap = CreateCompatibleBitmap(target, client.right, client.bottom);
        previousBitmap = SelectObject(dc, bitmap);
    }

    const bool enabled = IsWindowEnabled(window_) != FALSE;
    const COLORREF background = GetSysColor(enabled ? COLOR_WINDOW : COLOR_BTNFACE);
    Fill(dc, client, background);
    const HGDIOBJ previousFont = SelectObject(dc, font_);

    const bool focused = GetFocus() == window_ || (editor_ != nullptr && IsChild(window_, GetFocus()));
    const std::vector<RowPaint> rows = CollectRows();
    for (const RowPaint& row : rows) PaintRow(dc, row, focused);

    if ((model_.ExtendedStyle() & kGridLines) != 0 && model_.ColumnCount() > 0) {
        const COLORREF line = Mix(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_BTNSHADOW), 1, 3);
        const int top = HeaderHeight();
        const int bottom = rows.empty() ? top : static_cast<int>(rows.back().rect.bottom);
        const int right = model_.TotalColumnWidth() - scrollX_;
        for (const RowPaint& row : rows) Fill(dc, {row.rect.left, row.rect.bottom - 1, right, row.rect.bottom}, line);
        for (int column = 0, x = -scrollX_; column < model_.ColumnCount(); ++column) {
            x += model_.Column(column).width;
            Fill(dc, {x - 1, top, x, bottom}, line);
        }
    }
    SelectObject(dc, previousFont);

    if (buffer != nullptr) {
        theme.endBufferedPaint(buffer, TRUE);
    } else {
        BitBlt(target, area.left, area.top, area.right - area.left, area.bottom - area.top, dc, area.left, area.top,
               SRCCOPY);
        SelectObject(dc, previousBitmap);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
}
