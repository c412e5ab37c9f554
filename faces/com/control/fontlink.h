#pragma once

#include "core/platform/propertyvalue.h"
#include "faces/com/base/comptr.h"

#include <functional>
#include <ocidl.h>

namespace pixmo::com {

/// The control's font as an object that the host may change in place.
class FontLink {
public:
    /// `changed` hears of what the host does to the object.
    explicit FontLink(std::function<void(const Font&)> changed) : changed_(std::move(changed)) {}
    ~FontLink() { release(); }
    FontLink(const FontLink&) = delete;
    FontLink& operator=(const FontLink&) = delete;

    /// The object that shows this font; made anew when the one that was handed out shows another.
    ComPtr<IFontDisp> object(const Font& font);
    /// The host's own object becomes the control's.
    void adopt(ComPtr<IFontDisp> object);
    void release();

private:
    ComPtr<IConnectionPoint> notifications() const;

    std::function<void(const Font&)> changed_;
    ComPtr<IFontDisp> object_;
    DWORD cookie_ = 0;
};

} // namespace pixmo::com
