#pragma once

#include <cstddef>
#include <unknwn.h>
#include <utility>

namespace pixmo::com {

/// Holds one reference to an object.
template <class Interface>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    ComPtr(Interface* object) : object_(object) { addRef(); }
    ComPtr(const ComPtr& other) : object_(other.object_) { addRef(); }
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~ComPtr() { reset(); }

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    /// Takes over a reference that the caller holds.
    static ComPtr attach(Interface* object) {
        ComPtr pointer;
        pointer.object_ = object;
        return pointer;
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    Interface& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// The object is forgotten before it is released: its end may come back to the holder.
    void reset() {
        if (Interface* object = std::exchange(object_, nullptr))
            object->Release();
    }

    /// Hands the reference over to the caller.
    Interface* detach() { return std::exchange(object_, nullptr); }

    /// Where a call that hands out an object is to put it.
    Interface** receive() {
        reset();
        return &object_;
    }
    void** receiveAny() { return reinterpret_cast<void**>(receive()); }

    /// The object's other interface; null when it has none.
    template <class Other>
    ComPtr<Other> as() const {
        ComPtr<Other> other;
        if (object_ && FAILED(object_->QueryInterface(__uuidof(Other), other.receiveAny())))
            other.detach();
        return other;
    }

    /// A further reference for a caller that asked for one.
    HRESULT copyTo(Interface** target) const {
        if (!target)
            return E_POINTER;
        *target = object_;
        addRef();
        return S_OK;
    }

private:
    void addRef() const {
        if (object_)
            object_->AddRef();
    }

    Interface* object_ = nullptr;
};

/// The interface of any object; null when the object is null or has none.
template <class Interface>
ComPtr<Interface> queryFor(IUnknown* object) {
    return ComPtr<IUnknown>(object).as<Interface>();
}

} // namespace pixmo::com
