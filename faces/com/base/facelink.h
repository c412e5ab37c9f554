#pragma once

#include "core/base/event.h"
#include "faces/com/base/facehost.h"

#include <memory>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// The way from the control, which lives as long as any of its procedures runs, to the host of its face. The
/// face cuts it when its end begins.
class FaceLink {
public:
    explicit FaceLink(FaceHost& host) : host_(&host) {}
    FaceLink(const FaceLink&) = delete;
    FaceLink& operator=(const FaceLink&) = delete;

    /// nullptr once the face ends.
    FaceHost* host() const { return host_; }
    /// What a modal window opens over: the host's window, or the modal window that stands over it already.
    HWND owner() const;
    /// Closes what is open; the host is asked nothing any more.
    void end();

    /// Windows that stand open close themselves now.
    Event<> Ending;
    /// A persisted property has a new value.
    Event<const std::string&> PropertyChanged;

private:
    friend class ModalScope;

    void enter();
    void leave();

    FaceHost* host_;
    int modalDepth_ = 0;
};

using SharedFaceLink = std::shared_ptr<FaceLink>;

/// Tells the host that a modal window stands open, for as long as the object lives.
class ModalScope {
public:
    explicit ModalScope(SharedFaceLink link) : link_(std::move(link)) { link_->enter(); }
    ~ModalScope() { link_->leave(); }
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

private:
    SharedFaceLink link_;
};

} // namespace pixmo::com
