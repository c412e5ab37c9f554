#pragma once

#include "core/control/controlevents.h"
#include "faces/com/base/connectionpoint.h"
#include "faces/com/base/variant.h"

#include <functional>
#include <ocidl.h>
#include <span>

namespace pixmo::com {

/// The control's events on their way to the sinks of its host.
class EventSinks {
public:
    /// `maySpeak` tells whether the host wants to hear of anything now.
    EventSinks(IUnknown& owner, IConnectionPointContainer& container, std::function<bool()> maySpeak);

    ConnectionPoint& events() { return events_; }
    ConnectionPoint& propertyNotifications() { return propertyNotifications_; }
    std::span<ConnectionPoint* const> points() const { return points_; }

    /// From now on what the control raises is passed on.
    void follow(ControlEvents& events);
    /// `property` may be DISPID_UNKNOWN.
    void propertyChanged(DISPID property);

private:
    template <class... Arguments>
    void follow(DISPID number, Event<Arguments...>& event);
    template <class... Arguments>
    void fire(DISPID event, Arguments&&... arguments);

    std::function<bool()> maySpeak_;
    ConnectionPoint events_;
    ConnectionPoint propertyNotifications_;
    ConnectionPoint* const points_[2] = {&events_, &propertyNotifications_};
};

} // namespace pixmo::com
