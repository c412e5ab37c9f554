#include "faces/com/control/events.h"

#include "faces/com/control/identifiers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pixmo::com {

namespace {

/// Numbers of the event interface beyond the system's own.
enum EventId : DISPID {
    IdPrintJobBegin = 1,
    IdPrintJobBeginEX = 2,
    IdPrintJobFinish = 3,
    IdPageChanged = 4,
    IdBookmarkRequested = 5,
};

/// One argument of an event. Text and numbers are passed on; what a sink may change is passed by reference
/// and taken back.
Variant argumentOf(int16_t& number) {
    Variant argument;
    argument.get()->vt = VT_BYREF | VT_I2;
    argument.get()->piVal = &number;
    return argument;
}

Variant argumentOf(VARIANT_BOOL* flag) {
    Variant argument;
    argument.get()->vt = VT_BYREF | VT_BOOL;
    argument.get()->pboolVal = flag;
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
    VARIANT_BOOL* operator*() { return &value_; }

private:
    bool& flag_;
    VARIANT_BOOL value_;
};

} // namespace

EventSinks::EventSinks(IUnknown& owner, IConnectionPointContainer& container, std::function<bool()> maySpeak)
    : maySpeak_(std::move(maySpeak)), events_(owner, container, DIID_IImageViewEvents),
      propertyNotifications_(owner, container, IID_IPropertyNotifySink) {}

template <class... Arguments>
void EventSinks::fire(DISPID event, Arguments&&... arguments) {
    if (!maySpeak_())
        return;
    std::array<Variant, sizeof...(Arguments)> given{argumentOf(std::forward<Arguments>(arguments))...};
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

void EventSinks::follow(ControlEvents& events) {
    events.Click.connect([this] { fire(DISPID_CLICK); });
    events.DblClick.connect([this] { fire(DISPID_DBLCLICK); });
    events.KeyDown.connect([this](int16_t& key, int16_t& shift) { fire(DISPID_KEYDOWN, key, shift); });
    events.KeyPress.connect([this](int16_t& key) { fire(DISPID_KEYPRESS, key); });
    events.KeyUp.connect([this](int16_t& key, int16_t& shift) { fire(DISPID_KEYUP, key, shift); });
    events.PrintJobBegin.connect([this](const int16_t pages, const std::string& data, bool& cancelJob) {
        FlagArgument flag(cancelJob);
        fire(IdPrintJobBegin, pages, data, *flag);
    });
    events.PrintJobBeginEX.connect([this](const int16_t pages, const std::string& selectedPages,
                                          const std::string& data, bool& cancelJob) {
        FlagArgument flag(cancelJob);
        fire(IdPrintJobBeginEX, pages, selectedPages, data, *flag);
    });
    events.PrintJobFinish.connect(
        [this](const int16_t pages, const std::string& data) { fire(IdPrintJobFinish, pages, data); });
    events.PageChanged.connect(
        [this](const int32_t document, const int32_t page) { fire(IdPageChanged, document, page); });
    events.BookmarkRequested.connect(
        [this](const int32_t document, const int32_t page) { fire(IdBookmarkRequested, document, page); });
}

void EventSinks::propertyChanged(DISPID property) {
    propertyNotifications_.forEach<IPropertyNotifySink>(
        [property](IPropertyNotifySink& sink) { sink.OnChanged(property); });
}

} // namespace pixmo::com
