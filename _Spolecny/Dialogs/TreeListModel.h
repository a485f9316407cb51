#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// The data of a tree-list control, apart from its window: items numbered from 1 in a tree, their
// first-column texts, one cell per item in every further column, the columns, the current item
// and column, and the extended style. Item number 0 means no item.
using TreeItem = std::uint32_t;

// Where an item goes among its siblings (the tree view's TVI_FIRST, TVI_LAST, TVI_SORT), or after
// a given sibling.
enum class InsertPlace { First, Last, Sorted, After };

// Relations of TVM_GETNEXTITEM.
enum class TreeRelation : unsigned {
    Root = 0,
    Next = 1,
    Previous = 2,
    Parent = 3,
    Child = 4,
    FirstVisible = 5,
    NextVisible = 6,
    PreviousVisible = 7,
    DropHighlight = 8,
    Caret = 9,
    LastVisible = 10,
};

// Extended style bits of the control.
inline constexpr std::uint32_t kReportColumnChanges = 0x800;       // TVN_COLUMNCHANGED to the owner
inline constexpr std::uint32_t kArrowsLeaveEditor = 0x4000;        // arrow keys at the text's ends commit
inline constexpr std::uint32_t kGridLines = 0x10000;               // lines between rows and columns
inline constexpr std::uint32_t kCellSelection = 0x40000;           // the current cell has a column
inline constexpr std::uint32_t kMouseEditSelectsAll = 0x80000000;  // a click starts an edit with all selected

// State bits as the tree view has them.
inline constexpr std::uint32_t kItemSelected = 0x0002;
inline constexpr std::uint32_t kItemExpanded = 0x0020;

// The text of an item or a cell.
struct TreeListText {
    std::u16string text;
    bool fromOwner = false;  // supplied by the owner on request (text callback)
    std::uint32_t state = 0;
    int chosenIndex = -1;  // the list position chosen when a combo box edited it
};

struct TreeListColumn {
    std::u16string caption;
    int format = 0;  // alignment: 0 left, 1 right, 2 centre
    int width = 0;
    int minWidth = 10;
    int weight = 1;  // share of the control's width changes; 0 keeps the width
    // In-place editing.
    std::uint8_t editMode = 0;  // 0 none, 1 edit field, 2 editable combo box, 3 drop-down list, 4-7 the same plus 4
    std::uint8_t editFlags = 0;
    std::uint8_t editParam1 = 0;
    std::uint8_t editParam2 = 0;    // 7 bits; not 0: replaces 1024 as a combo box's text capacity
    const void* choices = nullptr;  // the owner's choice list for combo boxes (not owned)
    std::uint8_t inputKind = 0;
    std::int16_t maxLength = -1;
    int cachedValue = -1;
};

class TreeListModel {
public:
    // Items.
    TreeItem InsertItem(TreeItem parent, InsertPlace place, TreeItem after, TreeListText text, std::int64_t param,
                        bool hasChildren = false);
    // Deletes an item with everything below it; returns the deleted numbers, children first.
    std::vector<TreeItem> DeleteItem(TreeItem item);
    // An item with everything below it, children first: what DeleteItem would take.
    std::vector<TreeItem> Subtree(TreeItem item) const;
    // Deletes every item; numbering starts again at 1.
    std::vector<TreeItem> DeleteAll();
    bool Exists(TreeItem item) const;
    std::size_t Count() const { return count_; }
    TreeItem HighestItem() const { return static_cast<TreeItem>(items_.size()) - 1; }

    std::int64_t Param(TreeItem item) const;  // 0 for no such item
    bool SetParam(TreeItem item, std::int64_t param);

    // The text of column 0 (the item's own) or of a cell; none for no such item or column.
    TreeListText* Text(TreeItem item, int column);
    const TreeListText* Text(TreeItem item, int column) const;

    std::uint32_t State(TreeItem item) const;
    void SetState(TreeItem item, std::uint32_t state, std::uint32_t mask);
    bool HasChildren(TreeItem item) const;  // children, or the owner said it has some
    void SetHasChildren(TreeItem item, bool hasChildren);
    bool IsExpanded(TreeItem item) const { return (State(item) & kItemExpanded) != 0; }
    int Level(TreeItem item) const;

    TreeItem Parent(TreeItem item) const;
    const std::vector<TreeItem>& Children(TreeItem parent) const;  // parent 0: the top level
    TreeItem Next(TreeRelation relation, TreeItem item) const;

    // Items that show: top-level items and the children of expanded items, in display order.
    const std::vector<TreeItem>& VisibleItems() const;
    int VisibleIndex(TreeItem item) const;  // -1 when it does not show

    // Orders the children of `parent` (0: the top level) by `compare` of their owner values. Any
    // compare function is safe, even one that is not a consistent order.
    void SortChildren(TreeItem parent, const std::function<int(std::int64_t, std::int64_t)>& compare);

    // Current item (the caret, selected) and current column; the column stays 0 without cell
    // selection.
    TreeItem Current() const { return current_; }
    int CurrentColumn() const { return currentColumn_; }
    void SetCurrent(TreeItem item, int column);

    // Columns. Column 0 holds the items' own texts; every further column one cell per item.
    int InsertColumn(int position, TreeListColumn column);
    bool HasColumn(int column) const { return column >= 0 && column < ColumnCount(); }
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    TreeListColumn& Column(int column) { return columns_[static_cast<std::size_t>(column)]; }
    const TreeListColumn& Column(int column) const { return columns_[static_cast<std::size_t>(column)]; }
    int TotalColumnWidth() const;
    // The control's width changed by `change` pixels: see ShareOutWidthChange.
    std::vector<int> ResizeColumns(int change);

    // Changes only the bits in `mask` (0: all bits); returns the style before.
    std::uint32_t SetExtendedStyle(std::uint32_t mask, std::uint32_t bits);
    std::uint32_t ExtendedStyle() const { return extendedStyle_; }

private:
    struct Item {
        TreeListText own;
        std::int64_t param = 0;
        TreeItem parent = 0;
        std::vector<TreeItem> children;
        bool ownerSaysChildren = false;
    };

    Item* Find(TreeItem item);
    const Item* Find(TreeItem item) const;
    std::vector<TreeItem>& SiblingsOf(TreeItem parent);
    void Collect(TreeItem item, std::vector<TreeItem>& deleted) const;
    void Forget(TreeItem item);
    void VisibleFrom(const std::vector<TreeItem>& level) const;

    std::vector<std::optional<Item>> items_{std::nullopt};  // index 0 stays empty
    std::vector<TreeItem> topLevel_;
    std::size_t count_ = 0;
    std::vector<TreeListColumn> columns_;
    std::vector<std::vector<TreeListText>> cells_;  // [column - 1][item]
    TreeItem current_ = 0;
    int currentColumn_ = 0;
    std::uint32_t extendedStyle_ = 0;
    mutable std::vector<TreeItem> visible_;
    mutable bool visibleValid_ = false;
};

// Spreads a change of the control's width over the columns of non-zero weight in proportion to
// their weights; a column never gets narrower than its minimum. The remainder of the division goes
// one pixel at a time to the columns from the left. Returns the columns whose width changed.
std::vector<int> ShareOutWidthChange(std::vector<TreeListColumn>& columns, int change);
