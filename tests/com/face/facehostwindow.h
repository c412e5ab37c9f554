#pragma once

#include "faces/com/base/facehost.h"
#include "faces/com/base/window.h"
#include "faces/com/face/controlface.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>
#include <windows.h>

namespace pixmo::com {

/// A plain program's window with one control in it, as large as the window's inside.
class FaceHostWindow : public Window, public FaceHost {
public:
    /// Sent by whoever wants the face to end.
    static constexpr UINT EndFace = WM_APP;

    /// Device pixels; the window has no frame.
    static std::shared_ptr<FaceHostWindow> create(SIZE inside);
    ~FaceHostWindow() override;

    ControlFace& face() { return *face_; }
    ImageView& control() { return *face_->control(); }
    bool translateKey(MSG& message) { return face_ && face_->translateKey(message); }
    void resizeInside(SIZE inside) const;

    bool userMode() const override { return inUserMode; }
    Colour ambientBackColor() const override { return {0x8000000F}; }
    Font ambientFont() const override { return {}; }
    bool rightToLeft() const override { return isMirrored; }
    void propertyChanged(const std::string& name) override { changes.push_back(name); }
    HWND ownerWindow() const override { return handle(); }
    void enableModeless(bool enable) override { modeless.push_back(enable); }
    void activated() override { ++activations; }
    bool mayWriteFiles() const override { return true; }

    bool inUserMode = true;
    bool isMirrored = false;
    std::vector<std::string> changes;
    std::vector<bool> modeless;
    int activations = 0;

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::unique_ptr<ControlFace> face_;
};

/// Handles messages, as a host does, until `done` says so. False when that takes longer than half a minute.
bool pumpUntil(FaceHostWindow& host, const std::function<bool()>& done);

} // namespace pixmo::com
