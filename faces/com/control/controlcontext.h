#pragma once

#include "faces/com/base/dispatcher.h"
#include "faces/com/control/events.h"
#include "faces/com/control/fontlink.h"
#include "faces/com/control/hostsite.h"
#include "faces/com/control/inplace.h"
#include "faces/com/control/observers.h"
#include "faces/com/control/safety.h"
#include "faces/com/face/controlface.h"

#include <memory>

namespace pixmo::com {

/// What the parts of one control's object share: the control with its windows, and its host.
class ControlContext final : public FaceHost, private InPlaceClient {
public:
    ControlContext();
    ~ControlContext() override;
    ControlContext(const ControlContext&) = delete;
    ControlContext& operator=(const ControlContext&) = delete;

    /// The object is complete: `known` is what its host sees of it.
    void attach(IUnknown& known, IConnectionPointContainer& connections);
    /// Ends the control; the host hears no more of it.
    void end();

    IUnknown& known() const { return *known_; }
    template <class Interface>
    ComPtr<Interface> knownAs() const {
        return queryFor<Interface>(known_);
    }

    /// The control, completed by its defaults when no host has done so. Never null.
    std::shared_ptr<ImageView> control();
    /// The control's face when there is one; null before anything was asked of the control.
    ControlFace* face() const { return face_.get(); }
    ControlFace& readyFace();

    void initialise();
    void read(const PropertyBag& bag);
    void write(PropertyBag& bag);
    bool isInitialised() const { return initialised_; }

    HostSite& host() { return host_; }
    InPlace& inPlace() { return inPlace_; }
    Observers& observers() { return observers_; }
    EventSinks& sinks() { return *sinks_; }
    Safety& safety() { return safety_; }
    FontLink& fontLink() { return fontLink_; }
    const Dispatcher& dispatcher() const { return dispatcher_; }

    bool isDirty() const { return dirty_; }
    void setDirty(bool dirty) { dirty_ = dirty; }
    /// Something that the host designs and keeps has changed. What changes at run time is not kept.
    void designChanged();

    /// In HIMETRIC, 0.01 mm.
    SIZEL extent() const { return extent_; }
    void setExtent(const SIZEL& extent);
    /// As read from where it was kept: no change of the design.
    void restoreExtent(const SIZEL& extent) { extent_ = extent; }
    static SIZEL usualExtent();

    void setClientSite(ComPtr<IOleClientSite> site);
    void close();
    void freezeEvents(bool freeze);
    void ambientChanged(DISPID id);
    void pictureChanged();
    void letFont(const Font& font);

    bool userMode() const override { return host_.userMode(); }
    Colour ambientBackColor() const override { return host_.backColor(); }
    Font ambientFont() const override { return host_.font(); }
    bool rightToLeft() const override { return host_.rightToLeft(); }
    void propertyChanged(const std::string& name) override;
    HWND ownerWindow() const override;
    void enableModeless(bool enable) override { inPlace_.enableModeless(enable); }
    void activated() override { inPlace_.focused(); }
    bool mayWriteFiles() const override;

private:
    class Starting;

    HWND createWindow(HWND parent, const RECT& place) override;
    void destroyWindow() override;
    void setPlace(const RECT& place, const RECT& clip) override;
    void showWindow(bool visible) override;
    void takeFocus() override;
    bool hasFocus() const override;
    ComPtr<IOleInPlaceActiveObject> activeObject() override { return knownAs<IOleInPlaceActiveObject>(); }

    void makeFace();
    bool maySpeak() const;

    Dispatcher dispatcher_;
    HostSite host_;
    Safety safety_;
    Observers observers_;
    InPlace inPlace_;
    FontLink fontLink_;
    IUnknown* known_ = nullptr;
    std::unique_ptr<EventSinks> sinks_;
    std::unique_ptr<ControlFace> face_;
    SIZEL extent_ = usualExtent();
    int frozen_ = 0;
    int starting_ = 0; ///< properties are being read or set to their defaults
    bool initialised_ = false;
    bool dirty_ = false;
    bool wasPlaced_ = false;
    bool closed_ = false;
    bool ended_ = false;
};

} // namespace pixmo::com
