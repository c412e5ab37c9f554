#include "faces/com/control/fontlink.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/comobject.h"
#include "faces/com/control/fontobject.h"

#include <utility>

namespace pixmo::com {

namespace {

class FontSinkPart : public IPropertyNotifySink {
public:
    using Exposes = Exposed<IPropertyNotifySink>;

    explicit FontSinkPart(std::function<void()>& changed) : changed_(changed) {}

    STDMETHODIMP OnChanged(DISPID) override {
        return boundary(IID_IPropertyNotifySink, "Font", [&] {
            changed_();
            return S_OK;
        });
    }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

protected:
    ~FontSinkPart() = default;

private:
    std::function<void()> changed_;
};

class FontSink final : public ComObject<FontSinkPart> {
public:
    explicit FontSink(std::function<void()> changed) : ComObject(nullptr, changed) {}
};

} // namespace

ComPtr<IConnectionPoint> FontLink::notifications() const {
    ComPtr<IConnectionPoint> point;
    if (const auto container = object_.as<IConnectionPointContainer>())
        container->FindConnectionPoint(IID_IPropertyNotifySink, point.receive());
    return point;
}

ComPtr<IFontDisp> FontLink::object(const Font& font) {
    const auto shown = object_.as<IFont>();
    if (!shown || fontOf(*shown) != font)
        adopt(makeFontObject(font));
    return object_;
}

void FontLink::adopt(ComPtr<IFontDisp> object) {
    release();
    object_ = std::move(object);
    if (const auto point = notifications()) {
        const auto sink = makeObject<FontSink>([this] {
            if (const auto font = object_.as<IFont>())
                changed_(fontOf(*font));
        });
        point->Advise(sink.get(), &cookie_);
    }
}

void FontLink::release() {
    if (const auto point = notifications())
        if (const DWORD cookie = std::exchange(cookie_, 0))
            point->Unadvise(cookie);
    object_.reset();
}

} // namespace pixmo::com
