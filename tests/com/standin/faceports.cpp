#include "faces/com/face/faceports.h"

#include "faces/scripted/scriptedports.h"
#include "faces/scripted/scriptedprinters.h"

namespace pixmo::com {

ControlPorts systemPorts(const SharedFaceLink&) {
    ControlPorts ports;
    ports.messageBox = std::make_shared<scripted::MessageBox>();
    ports.eventLoop = std::make_shared<scripted::EventLoop>();
    ports.timers = std::make_shared<scripted::Timers>();
    ports.reader = std::make_shared<scripted::AsyncReader>();
    ports.settings = std::make_shared<scripted::SettingsStore>();
    ports.identity = std::make_shared<scripted::Identity>();
    ports.clock = std::make_shared<scripted::Clock>();
    ports.scratch = std::make_shared<scripted::ScratchFolder>();
    ports.clipboard = std::make_shared<scripted::Clipboard>();
    return ports;
}

} // namespace pixmo::com
