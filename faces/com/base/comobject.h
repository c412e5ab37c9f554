#pragma once

#include "faces/com/base/comptr.h"
#include "faces/com/base/module.h"

#include <memory>
#include <utility>

namespace pixmo::com {

/// Which identifiers a part of an object answers to: those of its interface and of what that one extends.
template <class MainInterface, class... Extended>
struct Exposed {
    using Interface = MainInterface;

    static bool holds(REFIID iid) {
        return IsEqualIID(iid, __uuidof(Interface)) || (IsEqualIID(iid, __uuidof(Extended)) || ...);
    }
};

/// An object made of parts. Each part implements one interface but for IUnknown, which is here, and names
/// it as its type Exposes. The object may be aggregated: then all its interfaces speak for the outer one.
template <class... Parts>
class ComObject : public Parts... {
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        return outer_->QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return outer_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return outer_->Release(); }

    /// The object's own identity, apart from the one that aggregates it.
    IUnknown& identity() { return identity_; }
    /// Through whom the object is known: the outer one when it is aggregated.
    IUnknown& known() { return *outer_; }

protected:
    /// Every part is made of the same arguments. Holds one reference, the maker's.
    template <class... Arguments>
    explicit ComObject(IUnknown* outer, Arguments&... arguments)
        : Parts(arguments...)..., identity_(*this), outer_(outer ? outer : &identity_) {}

private:
    class Identity : public IUnknown {
    public:
        explicit Identity(ComObject& owner) : owner_(owner) {}
        virtual ~Identity() = default;

        STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
            if (!object)
                return E_POINTER;
            *object = nullptr;
            IUnknown* found = IsEqualIID(iid, IID_IUnknown) ? this : owner_.find(iid, object);
            if (!found)
                return E_NOINTERFACE;
            if (!*object)
                *object = found;
            found->AddRef();
            return S_OK;
        }
        STDMETHODIMP_(ULONG) AddRef() override {
            return static_cast<ULONG>(InterlockedIncrement(&references_));
        }
        STDMETHODIMP_(ULONG) Release() override {
            const LONG left = InterlockedDecrement(&references_);
            if (left > 0)
                return static_cast<ULONG>(left);
            // What the object releases as it ends may take and give back references once more.
            references_ = 1;
            delete &owner_;
            return 0;
        }

    private:
        ComObject& owner_;
        LONG references_ = 1;
    };

    IUnknown* find(REFIID iid, void** object) {
        IUnknown* found = nullptr;
        (void)((found = findIn<Parts>(iid, object)) || ...);
        return found;
    }

    template <class Part>
    IUnknown* findIn(REFIID iid, void** object) {
        if (!Part::Exposes::holds(iid))
            return nullptr;
        typename Part::Exposes::Interface* const exposed = static_cast<Part*>(this);
        *object = exposed;
        return exposed;
    }

    ModuleLock lock_;
    Identity identity_;
    IUnknown* outer_;
};

/// A new object that is not aggregated, with its one reference.
template <class Object, class... Arguments>
ComPtr<Object> makeObject(Arguments&&... arguments) {
    return ComPtr<Object>::attach(new Object(std::forward<Arguments>(arguments)...));
}

} // namespace pixmo::com
