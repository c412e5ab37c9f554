#include "apps/windows/viewer/viewerevents.h"

#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"

namespace pixmo::viewer {

namespace {

constexpr DISPID IdPageChanged = 4;

} // namespace

STDMETHODIMP ViewerSinkPart::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

/// Arguments come last one first.
STDMETHODIMP ViewerSinkPart::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                    EXCEPINFO*, UINT*) {
    if (member == IdPageChanged && parameters->cArgs == 2)
        changed_(static_cast<int>(parameters->rgvarg[1].lVal), static_cast<int>(parameters->rgvarg[0].lVal));
    return S_OK;
}

void ViewerEvents::connect(const com::ComPtr<IConnectionPointContainer>& control, PageChanged changed) {
    com::check(control ? S_OK : E_NOINTERFACE);
    com::check(control->FindConnectionPoint(DIID_IImageViewEvents, point_.receive()));
    com::check(point_->Advise(&com::makeObject<ViewerSink>(std::move(changed))->identity(), &cookie_));
}

void ViewerEvents::disconnect() {
    if (point_)
        point_->Unadvise(cookie_);
    point_.reset();
}

} // namespace pixmo::viewer
