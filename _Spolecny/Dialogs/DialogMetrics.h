#pragma once

// Pixel arithmetic of the dialogs, apart from any window so that it can be checked at any scale.

// The factor between a monitor's pixel density and the 96 dots per inch the dialogs are drawn
// for; 1.0 when either density is unknown (0).
float ScaleFromDpi(unsigned dpiX, unsigned dpiY);

// Where a dialog's heading goes: the rule runs from `margin` to the client width less `margin`
// at height `ruleY`; the text starts at (`margin`, `textY`).
struct HeadingLayout {
    int margin;
    int ruleY;
    int textY;
};
HeadingLayout HeadingLayoutForScale(float scale);

// The logical font height for a size in tenths of a point on a device of `dpiY` dots per inch
// (negative: a character height, as point fonts are made).
int PointFontHeight(int tenthsOfPoint, int dpiY);

// The bold heading font's height: the base font's height times 0.76, truncated toward zero.
int BoldFontHeight(int baseFontHeight);

// How a control follows a dialog that is enlarged: the share (0 to 1) of the growth by which each
// of its edges moves. {0, 0, 0, 0} stays put, {1, 1, 1, 1} keeps to the lower right corner,
// {0, 0, 1, 1} grows with the dialog.
struct ResizeAnchor {
    float left;
    float top;
    float right;
    float bottom;
};

struct PixelRect {
    int left;
    int top;
    int right;
    int bottom;

    bool operator==(const PixelRect&) const = default;
};

// Where a control that was at `initial` goes when the client area has grown by (grownX, grownY).
PixelRect AnchoredRect(const PixelRect& initial, const ResizeAnchor& anchor, int grownX, int grownY);
