#include "Dialogs/TreeListModel.h"

#include <algorithm>
#include <cstdlib>

namespace {

const std::vector<TreeItem> kNoItems;

// A merge sort that stays within bounds whatever the comparison answers.
void MergeSort(std::vector<TreeItem>& items, const std::function<bool(TreeItem, TreeItem)>& before) {
    std::vector<TreeItem> buffer(items.size());
    for (std::size_t width = 1; width < items.size(); width *= 2) {
        for (std::size_t start = 0; start < items.size(); start += 2 * width) {
            const std::size_t middle = std::min(start + width, items.size());
            const std::size_t end = std::min(start + 2 * width, items.size());
            std::size_t left = start;
            std::size_t right = middle;
            std::size_t out = start;
            while (left < middle && right < end)
                buffer[out++] = before(items[right], items[left]) ? items[right++] : items[left++];
            while (left < middle) buffer[out++] = items[left++];
            while (right < end) buffer[out++] = items[right++];
        }
        items.swap(buffer);
    }
}

}  // namespace

TreeListModel::Item* TreeListModel::Find(TreeItem item) {
    return item != 0 && item < items_.size() && items_[item] ? &*items_[item] : nullptr;
}

const TreeListModel::Item* TreeListModel::Find(TreeItem item) const {
    return item != 0 && item < items_.size() && items_[item] ? &*items_[item] : nullptr;
}

std::vector<TreeItem>& TreeListModel::SiblingsOf(TreeItem parent) {
    Item* owner = Find(parent);
    return owner != nullptr ? owner->children : topLevel_;
}

TreeItem TreeListModel::InsertItem(TreeItem parent, InsertPlace place, TreeItem after, TreeListText text,
                                   std::int64_t param, bool hasChildren) {
    if (parent != 0 && Find(parent) == nullptr) return 0;
    const auto item = static_cast<TreeItem>(items_.size());
    Item created;
    created.own = std::move(text);
    created.param = param;
    created.parent = parent;
    created.ownerSaysChildren = hasChildren;
    items_.emplace_back(std::move(created));
    ++count_;
    for (auto& cells : cells_) cells.resize(items_.size());

    std::vector<TreeItem>& siblings = SiblingsOf(parent);
    auto position = siblings.end();
    if (place == InsertPlace::First) {
        position = siblings.begin();
    } else if (place == InsertPlace::After) {
        const auto found = std::find(siblings.begin(), siblings.end(), after);
        if (found != siblings.end()) position = found + 1;
    } else if (place == InsertPlace::Sorted) {
        const std::u16string& name = items_[item]->own.text;
        position = std::find_if(siblings.begin(), siblings.end(),
                                [&](TreeItem sibling) { return name < Find(sibling)->own.text; });
    }
    siblings.insert(position, item);
    visibleValid_ = false;
    return item;
}

void TreeListModel::Collect(TreeItem item, std::vector<TreeItem>& deleted) const {
    for (const TreeItem child : Find(item)->children) Collect(child, deleted);
    deleted.push_back(item);
}

void TreeListModel::Forget(TreeItem item) {
    items_[item].reset();
    for (auto& cells : cells_) cells[item] = TreeListText{};
    --count_;
    if (current_ == item) {
        current_ = 0;
        currentColumn_ = 0;
    }
}

std::vector<TreeItem> TreeListModel::Subtree(TreeItem item) const {
    std::vector<TreeItem> items;
    if (Find(item) != nullptr) Collect(item, items);
    return items;
}

std::vector<TreeItem> TreeListModel::DeleteItem(TreeItem item) {
    std::vector<TreeItem> deleted;
    if (Find(item) == nullptr) return deleted;
    Collect(item, deleted);
    std::vector<TreeItem>& siblings = SiblingsOf(Find(item)->parent);
    siblings.erase(std::remove(siblings.begin(), siblings.end(), item), siblings.end());
    for (const TreeItem gone : deleted) Forget(gone);
    visibleValid_ = false;
    return deleted;
}

std::vector<TreeItem> TreeListModel::DeleteAll() {
    std::vector<TreeItem> deleted;
    for (const TreeItem item : topLevel_) Collect(item, deleted);
    items_.assign(1, std::nullopt);
    topLevel_.clear();
    count_ = 0;
    for (auto& cells : cells_) cells.assign(1, TreeListText{});
    current_ = 0;
    currentColumn_ = 0;
    visibleValid_ = false;
    return deleted;
}

bool TreeListModel::Exists(TreeItem item) const {
    return Find(item) != nullptr;
}

std::int64_t TreeListModel::Param(TreeItem item) const {
    const Item* found = Find(item);
    return found != nullptr ? found->param : 0;
}

bool TreeListModel::SetParam(TreeItem item, std::int64_t param) {
    Item* found = Find(item);
    if (found == nullptr) return false;
    found->param = param;
    return true;
}

TreeListText* TreeListModel::Text(TreeItem item, int column) {
    Item* found = Find(item);
    if (found == nullptr || (column != 0 && !HasColumn(column))) return nullptr;
    if (column == 0) return &found->own;
    return &cells_[static_cast<std::size_t>(column) - 1][item];
}

const TreeListText* TreeListModel::Text(TreeItem item, int column) const {
    return const_cast<TreeListModel*>(this)->Text(item, column);
}

std::uint32_t TreeListModel::State(TreeItem item) const {
    const Item* found = Find(item);
    return found != nullptr ? found->own.state : 0;
}

void TreeListModel::SetState(TreeItem item, std::uint32_t state, std::uint32_t mask) {
    Item* found = Find(item);
    if (found == nullptr) return;
    if ((mask & kItemExpanded) != 0) visibleValid_ = false;
    found->own.state = (found->own.state & ~mask) | (state & mask);
}

bool TreeListModel::HasChildren(TreeItem item) const {
    const Item* found = Find(item);
    return found != nullptr && (!found->children.empty() || found->ownerSaysChildren);
}

void TreeListModel::SetHasChildren(TreeItem item, bool hasChildren) {
    if (Item* found = Find(item)) found->ownerSaysChildren = hasChildren;
}

int TreeListModel::Level(TreeItem item) const {
    int level = 0;
    for (TreeItem parent = Parent(item); parent != 0; parent = Parent(parent)) ++level;
    return level;
}

TreeItem TreeListModel::Parent(TreeItem item) const {
    const Item* found = Find(item);
    return found != nullptr ? found->parent : 0;
}

const std::vector<TreeItem>& TreeListModel::Children(TreeItem parent) const {
    if (parent == 0) return topLevel_;
    const Item* found = Find(parent);
    return found != nullptr ? found->children : kNoItems;
}

TreeItem TreeListModel::Next(TreeRelation relation, TreeItem item) const {
    const std::vector<TreeItem>& visible = VisibleItems();
    const int index = VisibleIndex(item);
    switch (relation) {
        case TreeRelation::Root:
            return topLevel_.empty() ? 0 : topLevel_.front();
        case TreeRelation::Next:
        case TreeRelation::Previous: {
            if (!Exists(item)) return 0;
            const std::vector<TreeItem>& siblings = Children(Parent(item));
            const auto at = std::find(siblings.begin(), siblings.end(), item);
            if (relation == TreeRelation::Next) return at + 1 != siblings.end() ? *(at + 1) : 0;
            return at != siblings.begin() ? *(at - 1) : 0;
        }
        case TreeRelation::Parent:
            return Parent(item);
        case TreeRelation::Child:
            return Exists(item) && !Children(item).empty() ? Children(item).front() : 0;
        case TreeRelation::FirstVisible:
            return visible.empty() ? 0 : visible.front();
        case TreeRelation::NextVisible:
            return index >= 0 && static_cast<std::size_t>(index) + 1 < visible.size() ? visible[index + 1] : 0;
        case TreeRelation::PreviousVisible:
            return index > 0 ? visible[index - 1] : 0;
        case TreeRelation::Caret:
            return current_;
        case TreeRelation::LastVisible:
            return visible.empty() ? 0 : visible.back();
        case TreeRelation::DropHighlight:
        default:
            return 0;
    }
}

void TreeListModel::VisibleFrom(const std::vector<TreeItem>& level) const {
    for (const TreeItem item : level) {
        visible_.push_back(item);
        const Item* found = Find(item);
        if ((found->own.state & kItemExpanded) != 0) VisibleFrom(found->children);
    }
}

const std::vector<TreeItem>& TreeListModel::VisibleItems() const {
    if (!visibleValid_) {
        visible_.clear();
        VisibleFrom(topLevel_);
        visibleValid_ = true;
    }
    return visible_;
}

int TreeListModel::VisibleIndex(TreeItem item) const {
    const std::vector<TreeItem>& visible = VisibleItems();
    const auto found = std::find(visible.begin(), visible.end(), item);
    return found != visible.end() ? static_cast<int>(found - visible.begin()) : -1;
}

void TreeListModel::SortChildren(TreeItem parent, const std::function<int(std::int64_t, std::int64_t)>& compare) {
    if (parent != 0 && !Exists(parent)) return;
    MergeSort(SiblingsOf(parent), [&](TreeItem a, TreeItem b) { return compare(Param(a), Param(b)) < 0; });
    visibleValid_ = false;
}

void TreeListModel::SetCurrent(TreeItem item, int column) {
    if (Item* previous = Find(current_)) previous->own.state &= ~kItemSelected;
    current_ = Exists(item) ? item : 0;
    const bool cellSelection = (extendedStyle_ & kCellSelection) != 0;
    currentColumn_ = current_ != 0 && cellSelection && HasColumn(column) ? column : 0;
    if (Item* now = Find(current_)) now->own.state |= kItemSelected;
}

int TreeListModel::InsertColumn(int position, TreeListColumn column) {
    // Column 0 always holds the items' own texts, so a new column never takes its place.
    const int lowest = columns_.empty() ? 0 : 1;
    const int at = std::clamp(position, lowest, ColumnCount());
    columns_.insert(columns_.begin() + at, std::move(column));
    if (at > 0) cells_.insert(cells_.begin() + (at - 1), std::vector<TreeListText>(items_.size()));
    return at;
}

int TreeListModel::TotalColumnWidth() const {
    int total = 0;
    for (const TreeListColumn& column : columns_) total += column.width;
    return total;
}

std::vector<int> TreeListModel::ResizeColumns(int change) {
    return ShareOutWidthChange(columns_, change);
}

std::uint32_t TreeListModel::SetExtendedStyle(std::uint32_t mask, std::uint32_t bits) {
    const std::uint32_t previous = extendedStyle_;
    const std::uint32_t changing = mask == 0 ? ~0u : mask;
    extendedStyle_ = (extendedStyle_ & ~changing) | (bits & changing);
    if ((extendedStyle_ & kCellSelection) == 0) currentColumn_ = 0;  // without cell selection no current column
    return previous;
}

std::vector<int> ShareOutWidthChange(std::vector<TreeListColumn>& columns, int change) {
    long long totalWeight = 0;
    for (const TreeListColumn& column : columns) totalWeight += std::max(column.weight, 0);
    std::vector<int> changed;
    if (change == 0 || totalWeight == 0) return changed;

    int remainder = change;
    std::vector<int> shares(columns.size(), 0);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        shares[i] = static_cast<int>(static_cast<long long>(change) * std::max(columns[i].weight, 0) / totalWeight);
        remainder -= shares[i];
    }
    const int step = remainder > 0 ? 1 : -1;
    for (std::size_t i = 0; remainder != 0; i = (i + 1) % columns.size()) {
        if (columns[i].weight <= 0) continue;
        shares[i] += step;
        remainder -= step;
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int width = std::max(columns[i].width + shares[i], columns[i].minWidth);
        if (width != columns[i].width) {
            columns[i].width = width;
            changed.push_back(static_cast<int>(i));
        }
    }
    return changed;
}
