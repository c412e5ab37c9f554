#include "faces/com/control/events.h"

#include "faces/com/control/identifiers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pixmo::com {

namespace {

/// One argument of an event. Text and numbers are passed on; what a sink may change is passed by reference
/// and taken back.
Variant argumentOf(int16_t& number) {
    Variant argument;
    argument.get()->vt = VT_BYREF | VT_I2;
    argument.get()->piVal = &number;
    return argument;
}

Variant argumentOf(const int16_t& number) {
    return Variant(number);
}

Variant argumentOf(const int32_t& number) {
    return Variant(number);
}

Variant argumentOf(const std::string& text) {
    return Variant(text);
}

/// A Boolean of the core as Automation knows it, for the time of one event.
class FlagArgument {
public:
    explicit FlagArgument(bool& flag) : flag_(flag), value_(flag ? VARIANT_TRUE : VARIANT_FALSE) {}
    ~FlagArgument() { flag_ = value_ != VARIANT_FALSE; }
    FlagArgument(const FlagArgument&) = delete;
    FlagArgument& operator=(const FlagArgument&) = delete;
    VARIANT_BOOL& value() { return value_; }

private:
    bool& flag_;
    VARIANT_BOOL value_;
};

Variant argumentOf(FlagArgument& flag) {
    Variant argument;
    argument.get()->vt = VT_BYREF | VT_BOOL;
    argument.get()->pboolVal = &flag.value();
    return argument;
}

/// What stands for an argument while the event is told: itself, or what a Boolean needs.
template <class Argument>
Argument& held(Argument& argument) {
    return argument;
}

FlagArgument held(bool& flag) {
    return FlagArgument(flag);
}

} // namespace

EventSinks::EventSinks(IUnknown& owner, IConnectionPointContainer& container, std::function<bool()> maySpeak)
    : maySpeak_(std::move(maySpeak)), events_(owner, container, DIID_IImageViewEvents),
      propertyNotifications_(owner, container, IID_IPropertyNotifySink) {}

template <class... Arguments>
void EventSinks::fire(DISPID event, Arguments&&... arguments) {
    if (!maySpeak_())
        return;
    std::array<Variant, sizeof...(Arguments)> given{argumentOf(arguments)...};
    events_.forEach<IDispatch>([&](IDispatch& sink) {
        // The sink borrows the values, the last argument first.
        std::array<VARIANT, sizeof...(Arguments) + 1> borrowed{};
        std::transform(given.rbegin(), given.rend(), borrowed.begin(),
                       [](Variant& value) { return *value.get(); });
        DISPPARAMS parameters{borrowed.data(), nullptr, sizeof...(Arguments), 0};
        sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                    nullptr);
    });
}

template <class... Arguments>
void EventSinks::follow(DISPID number, Event<Arguments...>& event) {
    event.connect([this, number](Arguments... arguments) { fire(number, held(arguments)...); });
}

void EventSinks::follow(ControlEvents& events) {
#define PIXMO_EVENT(number, name, parameters, help) follow(number, events.name);
#include "core/control/interface.inc"
}

void EventSinks::propertyChanged(DISPID property) {
    propertyNotifications_.forEach<IPropertyNotifySink>(
        [property](IPropertyNotifySink& sink) { sink.OnChanged(property); });
}

} // namespace pixmo::com
