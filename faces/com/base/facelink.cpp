#include "faces/com/base/facelink.h"

#include <utility>

namespace pixmo::com {

HWND FaceLink::owner() const {
    const HWND host = host_ ? host_->ownerWindow() : nullptr;
    const HWND popup = host ? GetLastActivePopup(host) : nullptr;
    return popup ? popup : host;
}

// The host hears of the end of every modal window of which it heard the beginning.
void FaceLink::end() {
    Ending.raise();
    FaceHost* const host = std::exchange(host_, nullptr);
    for (; host && modalDepth_ > 0; --modalDepth_)
        host->enableModeless(true);
}

void FaceLink::enter() {
    if (!host_)
        return;
    ++modalDepth_;
    host_->enableModeless(false);
}

void FaceLink::leave() {
    if (!host_ || modalDepth_ == 0)
        return;
    --modalDepth_;
    host_->enableModeless(true);
}

} // namespace pixmo::com
