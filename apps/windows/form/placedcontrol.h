#pragma once

#include "apps/windows/form/formsite.h"
#include "faces/com/base/comptr.h"

namespace pixmo::form {

/// A control in a part of a window. The window tells it of its size and its keys.
class PlacedControl final : private SiteOwner {
public:
    explicit PlacedControl(HWND window)
        : window_(window), site_(com::makeObject<FormSite>(static_cast<SiteOwner&>(*this))) {}
    ~PlacedControl() override { remove(); }
    PlacedControl(const PlacedControl&) = delete;
    PlacedControl& operator=(const PlacedControl&) = delete;

    /// Gives the control its site and its defaults, and shows it. Throws when the control refuses.
    void put(com::ComPtr<IUnknown> control, const RECT& place);
    /// Deactivates, closes and releases it.
    void remove();
    void move(const RECT& place);
    void focus();
    /// To be asked before a message is translated: whether the control has used it.
    bool translate(MSG& message);

    template <class Interface>
    com::ComPtr<Interface> as() const {
        return control_.as<Interface>();
    }

private:
    HWND window() const override { return window_; }
    RECT place() const override { return place_; }
    void setActive(IOleInPlaceActiveObject* object) override {
        active_ = com::ComPtr<IOleInPlaceActiveObject>(object);
    }
    void enableModeless(bool) override {}

    HWND window_;
    RECT place_{};
    com::ComPtr<FormSite> site_;
    com::ComPtr<IUnknown> control_;
    com::ComPtr<IOleInPlaceActiveObject> active_;
};

} // namespace pixmo::form
