#pragma once

#include "faces/com/base/widetext.h"

#include <new>
#include <oleauto.h>
#include <string>
#include <string_view>
#include <utility>

namespace pixmo::com {

/// Owns one text of Automation.
class Bstr {
public:
    Bstr() = default;
    /// Throws std::bad_alloc.
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (!text_)
            throw std::bad_alloc();
    }
    explicit Bstr(std::string_view utf8) : Bstr(std::wstring_view(toWide(utf8))) {}
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR detach() { return std::exchange(text_, nullptr); }
    BSTR* receive() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    std::wstring_view view() const { return viewOf(text_); }

    /// A null text is an empty one.
    static std::wstring_view viewOf(const OLECHAR* text) {
        return text ? std::wstring_view(text, SysStringLen(const_cast<BSTR>(text))) : std::wstring_view();
    }

private:
    BSTR text_ = nullptr;
};

/// A null text is an empty one.
inline std::string textOf(BSTR text) {
    return toUtf8(Bstr::viewOf(text));
}

/// Puts a text in place of the one that the caller handed in by reference.
inline void replaceText(BSTR& target, std::string_view utf8) {
    Bstr text(utf8);
    SysFreeString(std::exchange(target, text.detach()));
}

} // namespace pixmo::com
