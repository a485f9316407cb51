#include "Dialogs/TreeListModel.h"

#include <gtest/gtest.h>

#include <array>

namespace {

TreeListText Named(const char16_t* text) {
    return {text};
}

class TreeList : public ::testing::Test {
protected:
    TreeItem Add(const char16_t* text, std::int64_t param = 0, TreeItem parent = 0) {
        return model.InsertItem(parent, InsertPlace::Last, 0, Named(text), param);
    }
    std::vector<std::u16string> Texts(const std::vector<TreeItem>& items) const {
        std::vector<std::u16string> texts;
        for (const TreeItem item : items) texts.push_back(model.Text(item, 0)->text);
        return texts;
    }
    TreeListModel model;
};

TEST_F(TreeList, ItemsAreNumberedFromOneAndNumbersAreNotReusedUntilAllGo) {
    EXPECT_EQ(Add(u"DN 50", 50), 1u);
    EXPECT_EQ(Add(u"DN 65", 65), 2u);
    EXPECT_EQ(Add(u"DN 80", 80), 3u);
    EXPECT_EQ(model.DeleteItem(2), std::vector<TreeItem>{2});
    EXPECT_FALSE(model.Exists(2));
    EXPECT_EQ(model.Param(99), 0);  // beyond the table
    EXPECT_TRUE(model.SetParam(3, 81) && model.Param(3) == 81);
    EXPECT_FALSE(model.SetParam(2, 7));
    model.SetCurrent(2, 0);
    EXPECT_EQ(model.Current(), 0u);  // a deleted item cannot become current
    EXPECT_EQ(model.Count(), 2u);
    EXPECT_EQ(Add(u"DN 100"), 4u);

    model.SetCurrent(3, 0);
    EXPECT_EQ(model.DeleteAll().size(), 3u);
    EXPECT_EQ(model.Count(), 0u);
    EXPECT_EQ(model.Current(), 0u);
    EXPECT_EQ(Add(u"DN 8"), 1u);
}

TEST_F(TreeList, DeletingAnItemTakesItsChildrenAndTheCurrentItem) {
    const TreeItem pipe = Add(u"Potrubí");
    const TreeItem first = Add(u"DN 50", 0, pipe);
    const TreeItem grandchild = Add(u"PN 10", 0, first);
    const TreeItem other = Add(u"Tvarovky");
    model.SetCurrent(grandchild, 0);
    EXPECT_EQ(model.DeleteItem(pipe), (std::vector<TreeItem>{grandchild, first, pipe}));
    EXPECT_EQ(model.Current(), 0u);
    EXPECT_EQ(model.Children(0), std::vector<TreeItem>{other});
    EXPECT_TRUE(model.DeleteItem(pipe).empty());
}

TEST_F(TreeList, InsertPlaces) {
    Add(u"b");
    model.InsertItem(0, InsertPlace::First, 0, Named(u"a"), 0);
    Add(u"d");
    model.InsertItem(0, InsertPlace::After, 1, Named(u"c"), 0);  // after "b"
    model.InsertItem(0, InsertPlace::Sorted, 0, Named(u"bb"), 0);
    model.InsertItem(0, InsertPlace::After, 99, Named(u"e"), 0);  // no such sibling: last
    EXPECT_EQ(Texts(model.Children(0)), (std::vector<std::u16string>{u"a", u"b", u"bb", u"c", u"d", u"e"}));
    EXPECT_EQ(model.InsertItem(42, InsertPlace::Last, 0, Named(u"x"), 0), 0u);  // no such parent
}

TEST_F(TreeList, RelationsFollowTheTreeAndWhatIsExpanded) {
    const TreeItem a = Add(u"a");
    const TreeItem a1 = Add(u"a1", 0, a);
    const TreeItem a2 = Add(u"a2", 0, a);
    const TreeItem b = Add(u"b");
    EXPECT_EQ(model.Next(TreeRelation::Root, 0), a);
    EXPECT_EQ(model.Next(TreeRelation::Next, a1), a2);
    EXPECT_EQ(model.Next(TreeRelation::Previous, a1), 0u);
    EXPECT_EQ(model.Next(TreeRelation::Previous, a2), a1);
    EXPECT_EQ(model.Next(TreeRelation::Parent, a2), a);
    EXPECT_EQ(model.Next(TreeRelation::Child, a), a1);
    EXPECT_EQ(model.Next(TreeRelation::Child, b), 0u);
    EXPECT_EQ(model.Next(TreeRelation::Parent, 99), 0u);
    EXPECT_TRUE(model.HasChildren(a));
    EXPECT_FALSE(model.HasChildren(b));

    EXPECT_EQ(model.VisibleItems(), (std::vector<TreeItem>{a, b}));
    EXPECT_EQ(model.VisibleIndex(a1), -1);
    EXPECT_EQ(model.Next(TreeRelation::NextVisible, a), b);
    model.SetState(a, kItemExpanded, kItemExpanded);
    EXPECT_EQ(model.VisibleItems(), (std::vector<TreeItem>{a, a1, a2, b}));
    EXPECT_EQ(model.Next(TreeRelation::NextVisible, a), a1);
    EXPECT_EQ(model.Next(TreeRelation::PreviousVisible, b), a2);
    EXPECT_EQ(model.Next(TreeRelation::PreviousVisible, a), 0u);
    EXPECT_EQ(model.Next(TreeRelation::LastVisible, 0), b);
    EXPECT_EQ(model.Next(TreeRelation::NextVisible, b), 0u);
    EXPECT_EQ(model.Level(a2), 1);
    model.DeleteAll();
    EXPECT_EQ(model.Next(TreeRelation::LastVisible, 0), 0u);
}

TEST_F(TreeList, ExtendedStyleChangesOnlyTheMaskedBitsAndTheCurrentColumnNeedsCellSelection) {
    EXPECT_EQ(model.SetExtendedStyle(0, 0x400F0000), 0u);
    EXPECT_EQ(model.SetExtendedStyle(kArrowsLeaveEditor, kArrowsLeaveEditor | kReportColumnChanges), 0x400F0000u);
    EXPECT_EQ(model.ExtendedStyle(), 0x400F4000u);
    model.SetExtendedStyle(0, 0);

    model.InsertColumn(0, {u"Profil"});
    model.InsertColumn(1, {u"OD"});
    const TreeItem item = Add(u"DN 50");
    model.SetCurrent(item, 1);
    EXPECT_EQ(model.CurrentColumn(), 0);
    EXPECT_EQ(model.State(item) & kItemSelected, kItemSelected);

    model.SetExtendedStyle(kCellSelection, kCellSelection);
    model.SetCurrent(item, 1);
    EXPECT_EQ(model.CurrentColumn(), 1);
    model.SetCurrent(item, 5);  // no such column
    EXPECT_EQ(model.CurrentColumn(), 0);
    model.SetCurrent(item, 1);
    model.SetExtendedStyle(kCellSelection, 0);
    EXPECT_EQ(model.CurrentColumn(), 0);
}

TEST_F(TreeList, CellsMoveWithAColumnInsertedBeforeThem) {
    model.InsertColumn(0, {u"Profil"});
    model.InsertColumn(1, {u"Stěna"});
    const TreeItem item = Add(u"DN 50");
    model.Text(item, 1)->text = u"4.6";
    EXPECT_EQ(model.Text(item, 2), nullptr);

    EXPECT_EQ(model.InsertColumn(0, {u"OD"}), 1);  // column 0 keeps the items' own texts
    EXPECT_EQ(model.Column(1).caption, u"OD");
    EXPECT_EQ(model.Text(item, 1)->text, u"");
    EXPECT_EQ(model.Text(item, 2)->text, u"4.6");
    EXPECT_EQ(model.InsertColumn(99, {u"DN"}), 3);
}

TEST_F(TreeList, SortingSurvivesAnInconsistentComparison) {
    for (int value : {5, 3, 9, 1, 7, 3, 8}) Add(u"x", value);
    model.SortChildren(0, [](std::int64_t a, std::int64_t b) { return static_cast<int>(a - b); });
    std::vector<std::int64_t> sorted;
    for (const TreeItem item : model.Children(0)) sorted.push_back(model.Param(item));
    EXPECT_EQ(sorted, (std::vector<std::int64_t>{1, 3, 3, 5, 7, 8, 9}));

    model.SortChildren(0, [](std::int64_t, std::int64_t) { return -1; });  // "less" both ways
    EXPECT_EQ(model.Children(0).size(), 7u);
    EXPECT_EQ(model.VisibleItems().size(), 7u);
}

std::vector<TreeListColumn> Columns(std::initializer_list<std::array<int, 3>> widthMinWeight) {
    std::vector<TreeListColumn> columns;
    for (const auto& [width, minWidth, weight] : widthMinWeight) {
        TreeListColumn column;
        column.width = width;
        column.minWidth = minWidth;
        column.weight = weight;
        columns.push_back(column);
    }
    return columns;
}

TEST(ColumnShareOut, ProportionalToWeightsWithTheRemainderFromTheLeft) {
    auto columns = Columns({{80, 10, 0}, {60, 10, 1}, {60, 10, 2}});
    EXPECT_EQ(ShareOutWidthChange(columns, 30), (std::vector<int>{1, 2}));
    EXPECT_EQ(columns[0].width, 80);
    EXPECT_EQ(columns[1].width, 70);
    EXPECT_EQ(columns[2].width, 80);

    columns = Columns({{50, 10, 1}, {50, 10, 1}, {50, 10, 1}});
    ShareOutWidthChange(columns, 8);  // 2 each, 2 left over
    EXPECT_EQ(columns[0].width, 53);
    EXPECT_EQ(columns[1].width, 53);
    EXPECT_EQ(columns[2].width, 52);
    ShareOutWidthChange(columns, -8);
    EXPECT_EQ(columns[0].width, 50);
    EXPECT_EQ(columns[1].width, 50);
    EXPECT_EQ(columns[2].width, 50);
}

TEST(ColumnShareOut, NeverBelowTheMinimumAndNothingWithoutWeights) {
    auto columns = Columns({{40, 30, 1}, {100, 20, 1}});
    EXPECT_EQ(ShareOutWidthChange(columns, -60), (std::vector<int>{0, 1}));
    EXPECT_EQ(columns[0].width, 30);
    EXPECT_EQ(columns[1].width, 70);

    columns = Columns({{40, 10, 0}});
    EXPECT_TRUE(ShareOutWidthChange(columns, 25).empty());
    EXPECT_EQ(columns[0].width, 40);
}

}  // namespace
