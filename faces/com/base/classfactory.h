#pragma once

#include "faces/com/base/boundary.h"
#include "faces/com/base/comobject.h"

namespace pixmo::com {

/// Makes objects of one class. The maker gets the outer unknown, or null, and answers the new object's own
/// identity with one reference.
class ClassFactoryPart : public IClassFactory {
public:
    using Exposes = Exposed<IClassFactory>;
    using Maker = IUnknown* (*)(IUnknown* outer);

    explicit ClassFactoryPart(Maker& maker) : maker_(maker) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        return boundary(IID_IClassFactory, "CreateInstance", [&]() -> HRESULT {
            checkPointer(object);
            *object = nullptr;
            if (outer && !IsEqualIID(iid, IID_IUnknown))
                return CLASS_E_NOAGGREGATION;
            const auto made = ComPtr<IUnknown>::attach(maker_(outer));
            return made->QueryInterface(iid, object);
        });
    }

    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? module::lock() : module::unlock();
        return S_OK;
    }

protected:
    ~ClassFactoryPart() = default;

private:
    Maker maker_;
};

class ClassFactory final : public ComObject<ClassFactoryPart> {
public:
    explicit ClassFactory(ClassFactoryPart::Maker maker) : ComObject(nullptr, maker) {}
};

} // namespace pixmo::com
