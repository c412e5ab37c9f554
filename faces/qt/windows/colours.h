#pragma once

#include "core/drawing/palette.h"

#include <QPalette>

namespace pixmo::qt {

inline Palette toPalette(const QPalette& palette) {
    const auto rgb = [&palette](QPalette::ColorRole role) { return palette.color(role).rgb() & 0xFFFFFFU; };
    return {rgb(QPalette::Base), rgb(QPalette::Text), rgb(QPalette::PlaceholderText),
            rgb(QPalette::Highlight), rgb(QPalette::HighlightedText)};
}

} // namespace pixmo::qt
