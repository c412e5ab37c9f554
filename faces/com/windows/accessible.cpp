#include "faces/com/windows/accessible.h"

#include "faces/com/base/comptr.h"

#include <oleacc.h>
#include <oleauto.h>

namespace pixmo::com {

namespace {

LONG childOf(const VARIANT& child) {
    return child.vt == VT_I4 ? child.lVal : CHILDID_SELF;
}

void putLong(VARIANT* target, LONG value) {
    target->vt = VT_I4;
    target->lVal = value;
}

/// The system's object for the window, with the source's answers where the source knows more.
class Accessible final : public IAccessible {
public:
    Accessible(ComPtr<IAccessible> standard, std::weak_ptr<AccessibleSource> source)
        : standard_(std::move(standard)), source_(std::move(source)) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        const bool ours = iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IAccessible;
        *object = ours ? static_cast<IAccessible*>(this) : nullptr;
        if (ours)
            AddRef();
        return ours ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
    STDMETHODIMP_(ULONG) Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return standard_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return standard_->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return standard_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
        ComPtr<ITypeInfo> info;
        const HRESULT found = standard_->GetTypeInfo(0, locale, info.receive());
        return FAILED(found) || !info
                   ? standard_->Invoke(id, iid, locale, flags, arguments, result, exception, wrong)
                   : info->Invoke(static_cast<IAccessible*>(this), id, flags, arguments, result, exception,
                                  wrong);
    }

    STDMETHODIMP get_accParent(IDispatch** parent) override { return standard_->get_accParent(parent); }
    STDMETHODIMP get_accChildCount(LONG* count) override {
        return with([&](AccessibleSource& source) {
            *count = source.accessibleCount();
            return S_OK;
        });
    }
    STDMETHODIMP get_accChild(VARIANT, IDispatch** child) override {
        *child = nullptr;
        return S_FALSE; // The items are no objects of their own.
    }
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
        return with(
            [&](AccessibleSource& source) { return putText(name, source.accessibleName(childOf(child))); });
    }
    STDMETHODIMP get_accValue(VARIANT, BSTR* value) override { return nothing(value); }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* text) override {
        return with([&](AccessibleSource& source) {
            return putText(text, source.accessibleDescription(childOf(child)));
        });
    }
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
        return with([&](AccessibleSource& source) {
            putLong(role, source.accessibleRole(childOf(child)));
            return S_OK;
        });
    }
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override {
        return with([&](AccessibleSource& source) {
            putLong(state, source.accessibleState(childOf(child)));
            return S_OK;
        });
    }
    STDMETHODIMP get_accHelp(VARIANT, BSTR* help) override { return nothing(help); }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) override {
        *topic = 0;
        return nothing(file);
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT, BSTR* keys) override { return nothing(keys); }
    STDMETHODIMP get_accFocus(VARIANT* child) override {
        return with([&](AccessibleSource& source) -> HRESULT {
            const LONG focus = source.accessibleFocus();
            return focus > 0 ? (putLong(child, focus), S_OK) : standard_->get_accFocus(child);
        });
    }
    STDMETHODIMP get_accSelection(VARIANT* children) override {
        return with([&](AccessibleSource& source) {
            children->vt = VT_EMPTY;
            for (LONG child = 1; child <= source.accessibleCount(); ++child)
                if ((source.accessibleState(child) & STATE_SYSTEM_SELECTED) != 0 && children->vt == VT_EMPTY)
                    putLong(children, child);
            return S_OK;
        });
    }
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
        return with([&](AccessibleSource& source) {
            return putText(action, source.accessibleAction(childOf(child)));
        });
    }
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override {
        return with([&](AccessibleSource& source) -> HRESULT {
            if (childOf(child) == CHILDID_SELF)
                return standard_->accSelect(flags, child);
            source.selectAccessible(childOf(child), (flags & SELFLAG_REMOVESELECTION) == 0);
            return S_OK;
        });
    }
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        return with([&](AccessibleSource& source) -> HRESULT {
            if (childOf(child) == CHILDID_SELF)
                return standard_->accLocation(left, top, width, height, child);
            const RECT place = source.accessiblePlace(childOf(child));
            *left = place.left;
            *top = place.top;
            *width = place.right - place.left;
            *height = place.bottom - place.top;
            return S_OK;
        });
    }
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return standard_->accNavigate(direction, start, end);
    }
    STDMETHODIMP accHitTest(LONG x, LONG y, VARIANT* child) override {
        return with([&](AccessibleSource& source) -> HRESULT {
            const LONG hit = source.accessibleChildAt({x, y});
            return hit > 0 ? (putLong(child, hit), S_OK) : standard_->accHitTest(x, y, child);
        });
    }
    STDMETHODIMP accDoDefaultAction(VARIANT child) override {
        return with([&](AccessibleSource& source) {
            source.doAccessibleAction(childOf(child));
            return S_OK;
        });
    }
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP put_accValue(VARIANT, BSTR) override { return E_NOTIMPL; }

private:
    ~Accessible() = default;

    template <typename Ask>
    HRESULT with(const Ask& ask) const noexcept {
        try {
            const auto source = source_.lock();
            return source ? ask(*source) : CO_E_OBJNOTCONNECTED;
        } catch (...) {
            return E_FAIL;
        }
    }
    static HRESULT nothing(BSTR* text) {
        *text = nullptr;
        return S_FALSE;
    }
    static HRESULT putText(BSTR* target, const std::wstring& text) {
        *target = text.empty() ? nullptr : SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        return *target ? S_OK : S_FALSE;
    }

    LONG references_ = 1;
    ComPtr<IAccessible> standard_;
    std::weak_ptr<AccessibleSource> source_;
};

} // namespace

LRESULT answerGetObject(HWND window, const std::shared_ptr<AccessibleSource>& source, WPARAM wParam,
                        LPARAM lParam) {
    if (static_cast<LONG>(lParam) != OBJID_CLIENT)
        return 0;
    ComPtr<IAccessible> standard;
    if (FAILED(CreateStdAccessibleObject(window, OBJID_CLIENT, IID_IAccessible, standard.receiveAny())))
        return 0;
    const auto answer = ComPtr<IAccessible>::attach(new Accessible(std::move(standard), source));
    return LresultFromObject(IID_IAccessible, wParam, answer.get());
}

} // namespace pixmo::com
