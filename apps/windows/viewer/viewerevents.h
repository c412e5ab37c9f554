#pragma once

#include "faces/com/base/comobject.h"

#include <functional>
#include <oaidl.h>
#include <ocidl.h>

namespace pixmo::viewer {

/// What the program wants to hear of: document and page.
using PageChanged = std::function<void(int document, int page)>;

class ViewerSinkPart : public IDispatch {
public:
    using Exposes = com::Exposed<IDispatch>;
    explicit ViewerSinkPart(PageChanged& changed) : changed_(changed) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override;

protected:
    ~ViewerSinkPart() = default;

private:
    PageChanged changed_;
};

class ViewerSink final : public com::ComObject<ViewerSinkPart> {
public:
    explicit ViewerSink(PageChanged changed) : ComObject(nullptr, changed) {}
};

/// The connection of a sink to a control's events.
class ViewerEvents {
public:
    ViewerEvents() = default;
    ~ViewerEvents() { disconnect(); }
    ViewerEvents(const ViewerEvents&) = delete;
    ViewerEvents& operator=(const ViewerEvents&) = delete;

    /// Throws when the control has no such events.
    void connect(const com::ComPtr<IConnectionPointContainer>& control, PageChanged changed);
    void disconnect();

private:
    com::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace pixmo::viewer
