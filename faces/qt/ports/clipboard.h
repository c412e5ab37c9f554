#pragma once

#include "core/platform/clipboard.h"

namespace pixmo::qt {

/// The desktop's clipboard.
class Clipboard : public pixmo::Clipboard {
public:
    void setPicture(const Raster& picture) override;
    void setText(const std::string& text) override;
};

} // namespace pixmo::qt
