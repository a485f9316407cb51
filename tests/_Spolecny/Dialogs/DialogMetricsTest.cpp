#include "Dialogs/DialogMetrics.h"

#include <gtest/gtest.h>

namespace {

TEST(DialogMetrics, ScaleIsTheDensityOver96AndTheHeadingFollowsIt) {
    EXPECT_FLOAT_EQ(ScaleFromDpi(120, 120), 1.25f);
    EXPECT_FLOAT_EQ(ScaleFromDpi(0, 144), 1.0f);  // unknown
    EXPECT_FLOAT_EQ(ScaleFromDpi(144, 0), 1.0f);
    const struct {
        unsigned dpi;
        int margin;
        int ruleY;
        int textY;
    } layouts[] = {{96, 18, 45, 18}, {120, 22, 56, 22}, {144, 27, 67, 26}};  // at 144: 67.5 truncated, 4 * 67 / 10
    for (const auto& [dpi, margin, ruleY, textY] : layouts) {
        const HeadingLayout layout = HeadingLayoutForScale(ScaleFromDpi(dpi, dpi));
        EXPECT_EQ(layout.margin, margin) << dpi;
        EXPECT_EQ(layout.ruleY, ruleY) << dpi;
        EXPECT_EQ(layout.textY, textY) << dpi;
    }
}

TEST(DialogMetrics, ThirteenPointFontsAndTheirBoldHeading) {
    EXPECT_EQ(PointFontHeight(130, 96), -17);   // 17.33
    EXPECT_EQ(PointFontHeight(-130, 96), -17);  // the sign of the size does not matter
    EXPECT_EQ(PointFontHeight(130, 120), -22);  // 21.67 rounds up
    EXPECT_EQ(PointFontHeight(130, 144), -26);
    EXPECT_EQ(BoldFontHeight(-17), -12);  // -12.92 toward zero
    EXPECT_EQ(BoldFontHeight(-26), -19);
    EXPECT_EQ(BoldFontHeight(-25), -19);  // an exact product stays as it is
}

TEST(DialogMetrics, AnchoredControlsFollowTheGrowthByTheirShares) {
    const PixelRect control{10, 20, 110, 70};
    const struct {
        ResizeAnchor anchor;
        PixelRect moved;
    } cases[] = {{{0, 0, 0, 0}, {10, 20, 110, 70}},
                 {{1, 1, 1, 1}, {111, 61, 211, 111}},
                 {{0, 0, 1, 1}, {10, 20, 211, 111}},
                 {{0.5f, 1, 1, 1}, {61, 61, 211, 111}}};  // half of 101 rounds away from zero
    for (const auto& [anchor, moved] : cases) EXPECT_EQ(AnchoredRect(control, anchor, 101, 41), moved);
}

}  // namespace
