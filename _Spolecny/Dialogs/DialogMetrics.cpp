#include "Dialogs/DialogMetrics.h"

#include <cstdint>
#include <cmath>
#include <cstdlib>

namespace {

// a * b / c rounded half away from zero, as the window system's MulDiv does.
int MulDivRounded(int a, int b, int c) {
    const std::int64_t product = static_cast<std::int64_t>(a) * b;
    const std::int64_t half = c / 2;
    return static_cast<int>(product >= 0 ? (product + half) / c : (product - half) / c);
}

}  // namespace

float ScaleFromDpi(unsigned dpiX, unsigned dpiY) {
    if (dpiX == 0 || dpiY == 0) return 1.0f;
    return static_cast<float>(dpiX) / 96.0f;
}

HeadingLayout HeadingLayoutForScale(float scale) {
    const int margin = static_cast<int>(18 * scale);
    const int ruleY = static_cast<int>(45 * scale);
    return {margin, ruleY, 4 * ruleY / 10};
}

int PointFontHeight(int tenthsOfPoint, int dpiY) {
    return -std::abs(MulDivRounded(dpiY, tenthsOfPoint, 720));
}

int BoldFontHeight(int baseFontHeight) {
    return static_cast<int>(baseFontHeight * 0.76);
}

PixelRect AnchoredRect(const PixelRect& initial, const ResizeAnchor& anchor, int grownX, int grownY) {
    const auto moved = [](int edge, float share, int grown) {
        return edge + static_cast<int>(std::lround(share * static_cast<float>(grown)));
    };
    return {moved(initial.left, anchor.left, grownX), moved(initial.top, anchor.top, grownY),
            moved(initial.right, anchor.right, grownX), moved(initial.bottom, anchor.bottom, grownY)};
}
