#pragma once

#include "core/platform/clipboard.h"

namespace pixmo::com {

/// The desktop's clipboard; pictures in its own form (CF_DIB).
class Clipboard : public pixmo::Clipboard {
public:
    /// Throws path/file access (75) while another program keeps the clipboard, out of memory (7).
    void setPicture(const Raster& picture) override;
    void setText(const std::string& text) override;
};

} // namespace pixmo::com
