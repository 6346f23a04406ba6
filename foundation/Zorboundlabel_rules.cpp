#include "foundation/Zorboundlabel_rules.h"

namespace ZOR {

namespace {

constexpr int UnlimitedWrapWidth = 9999;

// Brings the first line of a label near the control's top level with text inside a bordered edit.
constexpr int TopOffset = 3;
// A centred label stands a pixel higher, so that its base line meets that of the text inside.
constexpr int CentreOffset = -1;
// Only the left side keeps this further distance, clRightTop has none.
constexpr int LeftTopGap = 4;

int Centred(int start, int available, int needed) {
    return start + (available - needed) / 2;
}

int LabelLeft(const TRect& control, int width, int indent, TCaptionLayout layout) {
    switch (layout) {
    case clLeft:
        return control.Left - width - indent;
    case clLeftTop:
        return control.Left - width - LeftTopGap - indent;
    case clRight:
    case clRightTop:
        return control.Right + indent;
    case clTopCenter:
    case clBottomCenter:
        return Centred(control.Left, control.Width(), width);
    case clTopRight:
    case clBottomRight:
        return control.Right - width;
    case clTopLeft:
    case clBottomLeft:
        break;
    }
    return control.Left;
}

int LabelTop(const TRect& control, int height, int indent, TCaptionLayout layout) {
    switch (layout) {
    case clLeft:
    case clRight:
        return Centred(control.Top, control.Height(), height) + CentreOffset;
    case clLeftTop:
    case clRightTop:
        return control.Top + TopOffset;
    case clBottomLeft:
    case clBottomCenter:
    case clBottomRight:
        return control.Bottom + indent;
    case clTopLeft:
    case clTopCenter:
    case clTopRight:
        break;
    }
    return control.Top - height - indent;
}

} // namespace

TAlignment LabelAlignment(TCaptionLayout layout) {
    switch (layout) {
    case clLeft:
    case clLeftTop:
    case clTopRight:
    case clBottomRight:
        return taRightJustify;
    case clTopCenter:
    case clBottomCenter:
        return taCenter;
    case clTopLeft:
    case clBottomLeft:
    case clRight:
    case clRightTop:
        break;
    }
    return taLeftJustify;
}

int LabelWrapWidth(int maxWidth) {
    return maxWidth > 0 ? maxWidth : UnlimitedWrapWidth;
}

TPoint LabelPlace(const TRect& control, TSize label, int indent, TCaptionLayout layout) {
    return {LabelLeft(control, label.Width, indent, layout), LabelTop(control, label.Height, indent, layout)};
}

} // namespace ZOR
