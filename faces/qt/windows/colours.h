#pragma once

#include "core/drawing/palette.h"
#include "core/drawing/pathpainter.h"

#include <QPalette>

namespace pixmo::qt {

/// A colour that lets something through stands on the one behind texts.
inline Palette toPalette(const QPalette& palette) {
    const uint32_t base = palette.color(QPalette::Base).rgb();
    const auto rgb = [&](QPalette::ColorRole role) {
        return blendOver(base, palette.color(role).rgba(), 1) & 0xFFFFFFU;
    };
    using Role = QPalette;
    return {rgb(Role::Base),
            rgb(Role::Text),
            rgb(Role::PlaceholderText),
            rgb(Role::Highlight),
            rgb(Role::HighlightedText),
            rgb(Role::Window),
            rgb(Role::WindowText),
            rgb(Role::Dark)};
}

} // namespace pixmo::qt
