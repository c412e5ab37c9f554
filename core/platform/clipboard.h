#pragma once

#include <string>

namespace pixmo {

struct Raster;

/// Port: hands pictures and texts to other programs.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    virtual void setPicture(const Raster& picture) = 0;
    /// Nothing happens while another program keeps the clipboard.
    virtual void setText(const std::string& text) = 0;
};

} // namespace pixmo
