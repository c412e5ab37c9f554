#pragma once

#include "faces/com/base/window.h"
#include "faces/com/control/imageviewobject.h"
#include "tests/behaviour/facedriver.h"
#include "tests/com/control/hosting/container.h"

#include <memory>
#include <string>
#include <vector>

namespace pixmo::com::test {

/// A form with a text field, the control and another text field, one below the other, which writes down what
/// it is told. Used on the thread of the windows.
class FormWindow : public Window {
public:
    /// `size`: of the control, device pixels. In front, with the keyboard in the control.
    static std::shared_ptr<FormWindow> create(SIZE size);
    ~FormWindow() override { close(); }

    /// The control is gone.
    void close();
    Container& container() { return *container_; }
    ControlFace& face() const { return *object_->context().face(); }
    std::shared_ptr<ImageView> control() const { return object_->context().control(); }
    /// "before" or "behind"; null for any other name.
    HWND field(const std::string& name) const;
    void resizeControl(SIZE size);
    /// What the form and its control do with a key before it is handled as any message.
    bool translate(MSG& message);
    std::vector<std::string> takeEvents();

    behaviour::HostAnswers answers;

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool makeParts(SIZE size);
    bool takesKey(const MSG& message);
    void onEvent(DISPID event, DISPPARAMS& arguments);

    HWND before_ = nullptr;
    HWND behind_ = nullptr;
    HWND focused_ = nullptr; ///< when another window came to the front
    ComPtr<ImageViewObject> object_;
    std::unique_ptr<Container> container_;
    std::vector<std::string> events_;
};

} // namespace pixmo::com::test
