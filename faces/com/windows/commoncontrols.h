#pragma once

#include <memory>
#include <windows.h>

#include <commctrl.h>

namespace pixmo::com {

/// The system's common controls of version 6, which the module asks for by a manifest in its resources while
/// the program around it may live with older ones. Where there are none, the older ones serve.
class CommonControls {
public:
    /// The one of this module, as long as somebody holds it.
    static std::shared_ptr<CommonControls> share();

    CommonControls();
    ~CommonControls();
    CommonControls(const CommonControls&) = delete;
    CommonControls& operator=(const CommonControls&) = delete;

    /// Windows that are made while it lives are of that version. Ends on the thread and in the function where
    /// it began, and no message is waited for meanwhile.
    class Scope {
    public:
        explicit Scope(const CommonControls& controls);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ULONG_PTR cookie_ = 0;
        bool active_;
    };

    /// Image lists belong to the version of the control that shows them.
    HIMAGELIST makeImages(SIZE size, int count) const;
    void addImage(HIMAGELIST images, HBITMAP bitmap) const;
    void destroyImages(HIMAGELIST images) const;

private:
    template <typename Function>
    Function find(const char* name) const;

    HANDLE context_;
    HMODULE library_ = nullptr;
};

} // namespace pixmo::com
