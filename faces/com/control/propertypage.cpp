#include "faces/com/control/propertypage.h"

#include "faces/com/base/bstr.h"

#include <algorithm>

namespace pixmo::com {

namespace {

constexpr std::wstring_view Title = L"Viewer";

} // namespace

PropertyPagePart::PropertyPagePart() : window_([this] { changed(); }) {}

STDMETHODIMP PropertyPagePart::SetPageSite(IPropertyPageSite* site) {
    site_ = ComPtr<IPropertyPageSite>(site);
    return S_OK;
}

STDMETHODIMP PropertyPagePart::Activate(HWND parent, LPCRECT place, BOOL) {
    return boundary(IID_IPropertyPage, "Activate", [&]() -> HRESULT {
        checkPointer(place);
        if (window_.window() || objects_.empty())
            return E_UNEXPECTED;
        if (!window_.create(parent, *place))
            return E_FAIL;
        window_.show(*objects_.front());
        return S_OK;
    });
}

STDMETHODIMP PropertyPagePart::Deactivate() {
    window_.destroy();
    return S_OK;
}

STDMETHODIMP PropertyPagePart::GetPageInfo(PROPPAGEINFO* info) {
    return boundary(IID_IPropertyPage, "GetPageInfo", [&] {
        checkPointer(info);
        info->size = PropertyPageWindow::size();
        info->pszTitle = copyForHost(Title);
        info->pszDocString = nullptr;
        info->pszHelpFile = nullptr;
        info->dwHelpContext = 0;
        return S_OK;
    });
}

STDMETHODIMP PropertyPagePart::SetObjects(ULONG count, IUnknown** objects) {
    return boundary(IID_IPropertyPage, "SetObjects", [&]() -> HRESULT {
        std::vector<ComPtr<IDispatch>> known;
        for (ULONG at = 0; at < count; ++at) {
            known.push_back(queryFor<IDispatch>(objects[at]));
            if (!known.back())
                return E_NOINTERFACE;
        }
        objects_ = std::move(known);
        if (window_.window() && !objects_.empty())
            window_.show(*objects_.front());
        return S_OK;
    });
}

STDMETHODIMP PropertyPagePart::Show(UINT command) {
    if (!window_.window())
        return E_UNEXPECTED;
    ShowWindow(window_.window(), static_cast<int>(command));
    return S_OK;
}

STDMETHODIMP PropertyPagePart::Move(LPCRECT place) {
    if (!place)
        return E_POINTER;
    if (!window_.window())
        return E_UNEXPECTED;
    MoveWindow(window_.window(), place->left, place->top, place->right - place->left,
               place->bottom - place->top, TRUE);
    return S_OK;
}

STDMETHODIMP PropertyPagePart::IsPageDirty() {
    return window_.isDirty() ? S_OK : S_FALSE;
}

STDMETHODIMP PropertyPagePart::Apply() {
    return boundary(IID_IPropertyPage, "Apply", [&] {
        for (const auto& object : objects_)
            window_.applyTo(*object);
        window_.setClean();
        return S_OK;
    });
}

STDMETHODIMP PropertyPagePart::Help(LPCOLESTR) {
    return E_NOTIMPL;
}

STDMETHODIMP PropertyPagePart::TranslateAccelerator(MSG* message) {
    if (!message)
        return E_POINTER;
    return window_.window() && IsDialogMessageW(window_.window(), message) ? S_OK : S_FALSE;
}

void PropertyPagePart::changed() {
    if (site_)
        site_->OnStatusChange(PROPPAGESTATUS_DIRTY);
}

} // namespace pixmo::com
