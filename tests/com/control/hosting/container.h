#pragma once

#include "apps/windows/form/eventsink.h"
#include "faces/com/base/variant.h"
#include "tests/com/control/hosting/library.h"
#include "tests/com/control/hosting/memorybag.h"
#include "tests/com/control/hosting/site.h"

#include <string>

struct IImageView;

namespace pixmo::com::test {

/// What came of the control's events: "name(argument, ...)" by the numbers of the event interface.
struct EventRecord {
    void note(DISPID event, DISPPARAMS& arguments);

    std::vector<std::string> events;
    /// Acts as the host's handler; it may change what came by reference.
    form::EventHandler handler;
};

/// A host of one control that behaves as its profile says, with a window of its own.
class Container {
public:
    /// The control is made, sited and listened to, but has no properties yet.
    Container(const Library& library, const HostProfile& profile);
    /// In a window of the host's.
    Container(ComPtr<IUnknown> control, const HostProfile& profile, HWND window);
    ~Container();
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    /// Gives the control its properties: its defaults, or what the bag holds.
    void initialise();
    void load(BagContents& contents);
    /// As a form's file or a page is written.
    BagContents save(bool clearDirty = true);
    /// In-place active, where the host has a place.
    void activate();
    void move(const RECT& place);
    HRESULT verb(LONG verb);
    /// Deactivates, closes and releases the control; the container is empty then.
    ULONG close();

    template <class Interface>
    ComPtr<Interface> as() const {
        return control_.as<Interface>();
    }
    bool isDirty() const;
    HWND controlWindow() const;
    void setAmbient(DISPID id, Variant value);

    /// By name, through IDispatch, as a script does.
    HRESULT put(const wchar_t* name, Variant value);
    HRESULT get(const wchar_t* name, Variant& value) const;
    HRESULT call(const wchar_t* name, DISPPARAMS parameters);
    std::string text(const wchar_t* name) const;
    DISPID idOf(const wchar_t* name) const;
    const std::string& problem() const { return problem_; } ///< description of the last failed call
    const std::string& problemSource() const { return problemSource_; }

    SiteRecord site;
    EventRecord events;

private:
    HRESULT invoke(const wchar_t* name, WORD flags, DISPPARAMS parameters, VARIANT* result) const;
    void connectEvents();
    /// Writes the events down.
    ComPtr<form::EventSink> makeSink();

    HWND ownWindow_ = nullptr;
    ComPtr<IUnknown> control_;
    ComPtr<IOleClientSite> clientSite_;
    ComPtr<IConnectionPoint> eventPoint_;
    DWORD eventCookie_ = 0;
    mutable std::string problem_;
    mutable std::string problemSource_;
};

/// Handles what has come for the thread's windows, for at most so many milliseconds.
void pumpFor(int milliseconds);
/// Until the condition holds; false when it does not in time.
template <class Condition>
bool pumpUntil(Condition&& condition, int milliseconds = 10000) {
    for (int waited = 0; waited < milliseconds; waited += 10) {
        if (condition())
            return true;
        pumpFor(10);
    }
    return condition();
}

} // namespace pixmo::com::test
