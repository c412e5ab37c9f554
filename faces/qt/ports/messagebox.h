#pragma once

#include "core/platform/messagebox.h"
#include "faces/qt/ports/facelink.h"

namespace pixmo::qt {

/// Message boxes over the widget. When the widget ends while one stands, the answer is the safest button.
class MessageBox : public pixmo::MessageBox {
public:
    explicit MessageBox(SharedFaceLink link) : link_(std::move(link)) {}

    Answer ask(const std::string& text, Buttons buttons, Icon icon, const std::string& title) override;
    /// Nobody is there: texts go to standard error, the answer is the safest button.
    void setUnattended(bool unattended) { unattended_ = unattended; }

private:
    SharedFaceLink link_;
    bool unattended_ = false;
};

} // namespace pixmo::qt
