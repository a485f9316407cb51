#include "_Velmora/MaterialTables.h"

#include <gtest/gtest.h>

namespace {

// Files store row indexes: the rows must keep their places.
TEST(MaterialTables, RowsKeepTheirFileIndexes) {
    for (int i = 1; i < kDnCount; ++i) EXPECT_LT(DnTable()[i - 1].value, DnTable()[i].value) << i;
    EXPECT_EQ(DnTable()[15].label, u"DN 225");
    EXPECT_EQ(DnTable()[17].outerDiameter, 315);
    EXPECT_EQ(PnTable()[0].label, u"---");
    EXPECT_EQ(PnTable()[6].value, 63);
    EXPECT_EQ(SdrTable()[2].label, u"SDr 7.4");
    EXPECT_EQ(SdrTable()[2].value, 7.2f);
}

TEST(MaterialTables, LookupsRefuseIndexesOutsideTheTables) {
    EXPECT_EQ(FindDnRow(-1), nullptr);
    EXPECT_EQ(FindDnRow(kDnCount), nullptr);
    EXPECT_EQ(FindDnRow(0)->label, u"DN 8");
    EXPECT_EQ(FindSdrRow(kSdrCount), nullptr);
}

}  // namespace
