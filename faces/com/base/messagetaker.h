#pragma once

#include <windows.h>

namespace pixmo::com {

/// A window of ours that sees the messages for itself and its children before they are dispatched: a dialog,
/// whose keys work that way. Whoever runs a loop over the thread's messages asks it, so that a dialog's keys
/// work too while something else is waited for.
class MessageTaker {
public:
    /// Whether the message is done with.
    virtual bool takes(MSG& message) = 0;

    /// The one to be asked about a message for the window, or nullptr.
    static MessageTaker* of(HWND window) {
        const HWND root = window ? GetAncestor(window, GA_ROOT) : nullptr;
        return root ? static_cast<MessageTaker*>(GetPropW(root, Property)) : nullptr;
    }

protected:
    ~MessageTaker() = default;

    /// From now until it is called with nullptr, before the window ends.
    static void attach(HWND window, MessageTaker* object) {
        if (object)
            SetPropW(window, Property, object);
        else
            RemovePropW(window, Property);
    }

private:
    static constexpr const wchar_t* Property = L"Pixmo.MessageTaker";
};

} // namespace pixmo::com
