#include "core/control/layout.h"

#include <algorithm>
#include <cmath>

namespace pixmo {

namespace {

// Device-independent pixels.
constexpr int32_t TextMargin = 6; ///< beside a text
constexpr int32_t RowMargin = 3;  ///< above and below it
constexpr int32_t Gap = 6;        ///< between status text and progress
constexpr int32_t ProgressWidth = 120;
constexpr int32_t ProgressHeight = 8;

int32_t scaled(const LayoutMeasures& m, int32_t length) {
    return static_cast<int32_t>(std::lround(length * m.scale));
}

int32_t withMargins(const LayoutMeasures& m, int32_t textWidth) {
    return textWidth == 0 ? 0 : textWidth + 2 * scaled(m, TextMargin);
}

Rectangle withoutMargins(const LayoutMeasures& m, Rectangle field) {
    const int32_t margin = std::min(scaled(m, TextMargin), field.width / 2);
    return {field.left + margin, field.top, field.width - 2 * margin, field.height};
}

/// A bar less high than its row, in the middle of it.
Rectangle barIn(const LayoutMeasures& m, const Rectangle& field) {
    const int32_t height = std::min(scaled(m, ProgressHeight), field.height);
    return {field.left, field.top + (field.height - height) / 2,
            std::max(0, field.width - scaled(m, TextMargin)), height};
}

void layOutStatus(const LayoutMeasures& m, const Rectangle& row, ControlLayout& layout) {
    const int32_t gap = scaled(m, Gap);
    const int32_t readOutWidth = std::min(withMargins(m, m.readOutWidth), row.width);
    const int32_t zoomWidth = std::min(withMargins(m, m.zoomWidth), row.width - readOutWidth);
    const int32_t zoomLeft = row.width - zoomWidth;
    const int32_t most = m.progressShown ? scaled(m, ProgressWidth) : 0;
    const int32_t progressWidth = std::clamp(zoomLeft - readOutWidth - 2 * gap, 0, most);
    const int32_t statusLeft = readOutWidth + gap;
    const int32_t statusEnd = zoomLeft - progressWidth - (progressWidth > 0 ? gap : 0);
    layout.readOut = withoutMargins(m, {0, row.top, readOutWidth, row.height});
    layout.zoom = withoutMargins(m, {zoomLeft, row.top, zoomWidth, row.height});
    layout.progress = barIn(m, {zoomLeft - progressWidth, row.top, progressWidth, row.height});
    layout.status = {statusLeft, row.top, std::max(0, statusEnd - statusLeft), row.height};
}

} // namespace

int32_t statusHeight(const LayoutMeasures& m) {
    return m.textHeight == 0 ? 0 : m.textHeight + 2 * scaled(m, RowMargin);
}

ControlLayout layOut(const LayoutMeasures& m) {
    const int32_t width = std::max(m.width, 0);
    const int32_t height = std::max(m.height, 0);
    const int32_t toolbarHeight = std::min(m.toolbarHeight, height);
    const int32_t rowHeight = std::min(statusHeight(m), height - toolbarHeight);
    const int32_t between = height - toolbarHeight - rowHeight;
    const int32_t debugHeight = m.debugShown ? between / 4 : 0;

    ControlLayout layout;
    layout.toolbar = {0, 0, width, toolbarHeight};
    layout.view = {0, toolbarHeight, width, between - debugHeight};
    layout.debug = {0, toolbarHeight + layout.view.height, width, debugHeight};
    layOutStatus(m, {0, height - rowHeight, width, rowHeight}, layout);
    if (m.fromRight)
        for (Rectangle* const field : {&layout.readOut, &layout.status, &layout.progress, &layout.zoom})
            field->left = width - field->right();
    return layout;
}

} // namespace pixmo
