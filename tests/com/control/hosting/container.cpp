#include "tests/com/control/hosting/container.h"

#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/safety.h"

#include <map>
#include <ocidl.h>
#include <olectl.h>

namespace pixmo::com::test {

namespace {

HWND makeWindow() {
    return CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                           500, 400, nullptr, nullptr, nullptr, nullptr);
}

const char* nameOf(DISPID event) {
    static const std::map<DISPID, const char*> names{
        {DISPID_CLICK, "Click"},       {DISPID_DBLCLICK, "DblClick"}, {DISPID_KEYDOWN, "KeyDown"},
        {DISPID_KEYPRESS, "KeyPress"}, {DISPID_KEYUP, "KeyUp"},       {1, "PrintJobBegin"},
        {2, "PrintJobBeginEX"},        {3, "PrintJobFinish"},         {4, "PageChanged"},
        {5, "BookmarkRequested"},
    };
    const auto found = names.find(event);
    return found == names.end() ? "unknown" : found->second;
}

} // namespace

void EventRecord::note(DISPID event, DISPPARAMS& arguments) {
    std::string line = nameOf(event) + std::string("(");
    for (UINT at = arguments.cArgs; at > 0; --at) {
        Variant text;
        text.assignFrom(&arguments.rgvarg[at - 1]);
        text.convertTo(VT_BSTR);
        line += (at == arguments.cArgs ? "" : ", ") + textOf(text.get()->bstrVal);
    }
    events.push_back(line + ")");
    if (handler)
        handler(event, arguments);
}

Container::Container(const Library& library, const HostProfile& profile)
    : Container(library.makeControl(), profile, profile.hasPlace ? makeWindow() : nullptr) {
    ownWindow_ = site.handle;
}

Container::Container(ComPtr<IUnknown> control, const HostProfile& profile, HWND window)
    : control_(std::move(control)) {
    site.profile = profile;
    site.handle = window;
    if (!profile.hasPlace) {
        connectEvents();
        return;
    }
    site.ambients[DISPID_AMBIENT_USERMODE] = Variant(profile.userMode);
    site.ambients[DISPID_AMBIENT_BACKCOLOR] = Variant(int32_t{0x00D0E0F0});
    site.ambients[DISPID_AMBIENT_LOCALEID] = Variant(int32_t{0x0409});
    site.ambients[DISPID_AMBIENT_DISPLAYASDEFAULT] = Variant(false);
    if (profile.hasAmbients)
        clientSite_ = ComPtr<IOleClientSite>(makeObject<FullSite>(site).get());
    else
        clientSite_ = ComPtr<IOleClientSite>(makeObject<BareSite>(site).get());
    if (profile.asksForSafety)
        for (const IID* iid : {&IID_IDispatch, &IID_IPersistPropertyBag})
            check(as<IObjectSafety>()->SetInterfaceSafetyOptions(*iid, Safety::Supported, Safety::Supported));
    if (!profile.quickActivates) {
        check(as<IOleObject>()->SetClientSite(clientSite_.get()));
        connectEvents();
        return;
    }
    const auto sink = makeSink();
    QACONTAINER given{};
    given.cbSize = sizeof given;
    given.pClientSite = clientSite_.get();
    given.pUnkEventSink = &sink->identity();
    QACONTROL taken{};
    taken.cbSize = sizeof taken;
    check(as<IQuickActivate>()->QuickActivate(&given, &taken));
    eventCookie_ = taken.dwEventCookie;
    check(as<IConnectionPointContainer>()->FindConnectionPoint(DIID_IImageViewEvents, eventPoint_.receive()));
}

Container::~Container() {
    close();
    if (ownWindow_)
        DestroyWindow(ownWindow_);
}

void Container::connectEvents() {
    check(as<IConnectionPointContainer>()->FindConnectionPoint(DIID_IImageViewEvents, eventPoint_.receive()));
    check(eventPoint_->Advise(&makeSink()->identity(), &eventCookie_));
}

ComPtr<form::EventSink> Container::makeSink() {
    return makeObject<form::EventSink>(
        [this](DISPID event, DISPPARAMS& arguments) { events.note(event, arguments); });
}

void Container::initialise() {
    if (site.profile.hasPlace)
        check(as<IPersistStreamInit>()->InitNew());
}

void Container::load(BagContents& contents) {
    check(as<IPersistPropertyBag>()->Load(makeObject<MemoryBag>(contents).get(), nullptr));
}

BagContents Container::save(bool clearDirty) {
    BagContents contents;
    check(as<IPersistPropertyBag>()->Save(makeObject<MemoryBag>(contents).get(), clearDirty, FALSE));
    return contents;
}

void Container::activate() {
    check(verb(OLEIVERB_INPLACEACTIVATE));
}

void Container::move(const RECT& place) {
    site.area = place;
    check(as<IOleInPlaceObject>()->SetObjectRects(&place, &place));
}

HRESULT Container::verb(LONG verb) {
    return as<IOleObject>()->DoVerb(verb, nullptr, clientSite_.get(), 0, site.handle, &site.area);
}

ULONG Container::close() {
    if (!control_)
        return 0;
    if (site.profile.hasPlace) {
        as<IOleObject>()->Close(OLECLOSE_NOSAVE);
        as<IOleObject>()->SetClientSite(nullptr);
    }
    if (eventPoint_)
        eventPoint_->Unadvise(eventCookie_);
    eventPoint_.reset();
    site.active.reset();
    return control_.detach()->Release();
}

bool Container::isDirty() const {
    return as<IPersistStreamInit>()->IsDirty() == S_OK;
}

HWND Container::controlWindow() const {
    HWND window = nullptr;
    as<IOleInPlaceObject>()->GetWindow(&window);
    return window;
}

void Container::setAmbient(DISPID id, Variant value) {
    site.ambients[id] = std::move(value);
    check(as<IOleControl>()->OnAmbientPropertyChange(id));
}

DISPID Container::idOf(const wchar_t* name) const {
    std::wstring copy(name);
    LPOLESTR names = copy.data();
    DISPID id = DISPID_UNKNOWN;
    as<IDispatch>()->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

HRESULT Container::invoke(const wchar_t* name, WORD flags, DISPPARAMS parameters, VARIANT* result) const {
    EXCEPINFO exception{};
    const HRESULT status = as<IDispatch>()->Invoke(idOf(name), IID_NULL, LOCALE_USER_DEFAULT, flags,
                                                   &parameters, result, &exception, nullptr);
    problem_ = textOf(exception.bstrDescription);
    problemSource_ = textOf(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    return status == DISP_E_EXCEPTION ? exception.scode : status;
}

HRESULT Container::put(const wchar_t* name, Variant value) {
    DISPID put = DISPID_PROPERTYPUT;
    return invoke(name, DISPATCH_PROPERTYPUT, {value.get(), &put, 1, 1}, nullptr);
}

HRESULT Container::get(const wchar_t* name, Variant& value) const {
    return invoke(name, DISPATCH_PROPERTYGET, {}, value.receive());
}

HRESULT Container::call(const wchar_t* name, DISPPARAMS parameters) {
    return invoke(name, DISPATCH_METHOD, parameters, nullptr);
}

std::string Container::text(const wchar_t* name) const {
    Variant value;
    if (const HRESULT result = get(name, value); FAILED(result))
        return "failed " + std::to_string(result);
    value.convertTo(VT_BSTR);
    return textOf(value.get()->bstrVal);
}

void pumpFor(int milliseconds) {
    const DWORD end = GetTickCount() + static_cast<DWORD>(milliseconds);
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        const auto left = static_cast<int>(end - GetTickCount());
        if (left <= 0)
            return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(left), QS_ALLINPUT);
    }
}

} // namespace pixmo::com::test
