#pragma once

#include "core/platform/messagebox.h"
#include "faces/com/base/facelink.h"

#include <functional>

namespace pixmo::com {

/// The system's message boxes over the host's window.
class MessageBox : public pixmo::MessageBox {
public:
    using Stand = std::function<Answer(const std::string& text, Buttons buttons, Icon icon)>;

    explicit MessageBox(SharedFaceLink link) : link_(std::move(link)) {}

    /// Once the face has ended nothing is shown, and the answer is the safest button.
    Answer ask(const std::string& text, Buttons buttons, Icon icon, const std::string& title) override;

    /// Answers all boxes of the process instead of a user who is not there; none: boxes are shown.
    static void setStandIn(Stand standIn);

private:
    SharedFaceLink link_;
};

} // namespace pixmo::com
