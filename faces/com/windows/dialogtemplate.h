#pragma once

#include <cstdint>
#include <string>
#include <vector>
#include <windows.h>

namespace pixmo::com {

/// The description of a dialog window in the system's binary form, written control by control. Places are in
/// dialog units, which follow the dialog's font: the user's own for messages.
class DialogTemplate {
public:
    struct Place {
        short left;
        short top;
        short width;
        short height;
    };

    DialogTemplate(const std::wstring& title, short width, short height, DWORD style = 0);

    /// WS_CHILD and WS_VISIBLE are given. Tab order is the order of adding.
    void add(const wchar_t* className, const std::wstring& text, WORD id, const Place& place, DWORD style,
             DWORD exStyle = 0);
    /// "&" before the mnemonic, which leads to the control added next.
    void addLabel(const std::wstring& text, WORD id, const Place& place, DWORD style = 0);
    void addButton(const std::wstring& text, WORD id, const Place& place, bool isDefault = false);

    const DLGTEMPLATE* data() const;

private:
    template <typename Value>
    void append(Value value);
    void append(const std::wstring& text);
    void align();

    /// The template; 32-bit words, so that it is aligned as DLGTEMPLATE demands.
    std::vector<uint32_t> words_;
    size_t bytes_ = 0;
};

} // namespace pixmo::com
