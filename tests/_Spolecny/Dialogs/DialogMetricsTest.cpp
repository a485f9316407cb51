#include "Dialogs/DialogMetrics.h"

#include <gtest/gtest.h>

namespace {

TEST(DialogMetrics, ScaleIsTheDensityOver96AndOneWhenUnknown) {
    EXPECT_FLOAT_EQ(ScaleFromDpi(96, 96), 1.0f);
    EXPECT_FLOAT_EQ(ScaleFromDpi(144, 144), 1.5f);
    EXPECT_FLOAT_EQ(ScaleFromDpi(120, 120), 1.25f);
    EXPECT_FLOAT_EQ(ScaleFromDpi(0, 144), 1.0f);
    EXPECT_FLOAT_EQ(ScaleFromDpi(144, 0), 1.0f);
}

TEST(DialogMetrics, HeadingFollowsTheScale) {
    const HeadingLayout at96 = HeadingLayoutForScale(1.0f);
    EXPECT_EQ(at96.margin, 18);
    EXPECT_EQ(at96.ruleY, 45);
    EXPECT_EQ(at96.textY, 18);

    const HeadingLayout at144 = HeadingLayoutForScale(ScaleFromDpi(144, 144));
    EXPECT_EQ(at144.margin, 27);
    EXPECT_EQ(at144.ruleY, 67);  // 67.5 truncated
    EXPECT_EQ(at144.textY, 26);  // 4 * 67 / 10

    const HeadingLayout at120 = HeadingLayoutForScale(ScaleFromDpi(120, 120));
    EXPECT_EQ(at120.margin, 22);
    EXPECT_EQ(at120.ruleY, 56);
    EXPECT_EQ(at120.textY, 22);
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

}  // namespace
