#pragma once

namespace pixmo {

struct Raster;

/// Port: hands a picture to other programs.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    virtual void setPicture(const Raster& picture) = 0;
};

} // namespace pixmo
