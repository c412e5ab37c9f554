#pragma once

#include "faces/com/base/boundary.h"
#include "faces/com/base/comobject.h"
#include "faces/com/control/propertypagewindow.h"

#include <ocidl.h>
#include <vector>

namespace pixmo::com {

/// The page of the control's settings in a window of properties. It may stand for several controls: it shows
/// the first one's values and gives what is changed to all of them.
class PropertyPagePart : public IPropertyPage {
public:
    using Exposes = Exposed<IPropertyPage>;

    PropertyPagePart();

    STDMETHODIMP SetPageSite(IPropertyPageSite* site) override;
    STDMETHODIMP Activate(HWND parent, LPCRECT place, BOOL modal) override;
    STDMETHODIMP Deactivate() override;
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) override;
    STDMETHODIMP SetObjects(ULONG count, IUnknown** objects) override;
    STDMETHODIMP Show(UINT command) override;
    STDMETHODIMP Move(LPCRECT place) override;
    STDMETHODIMP IsPageDirty() override;
    STDMETHODIMP Apply() override;
    STDMETHODIMP Help(LPCOLESTR folder) override;
    STDMETHODIMP TranslateAccelerator(MSG* message) override;

protected:
    ~PropertyPagePart() = default;

private:
    void changed();

    ComPtr<IPropertyPageSite> site_;
    std::vector<ComPtr<IDispatch>> objects_;
    PropertyPageWindow window_;
};

class PropertyPage final : public ComObject<PropertyPagePart> {
public:
    explicit PropertyPage(IUnknown* outer) : ComObject(outer) {}

    /// For the class factory.
    static IUnknown* make(IUnknown* outer) { return &(new PropertyPage(outer))->identity(); }
};

} // namespace pixmo::com
