#include "faces/com/face/faceports.h"

#include "faces/com/ports/clipboard.h"
#include "faces/com/ports/clock.h"
#include "faces/com/ports/codepage.h"
#include "faces/com/ports/eventloop.h"
#include "faces/com/ports/identity.h"
#include "faces/com/ports/messagebox.h"
#include "faces/com/ports/scratchfolder.h"
#include "faces/com/ports/settingsstore.h"
#include "faces/com/ports/timers.h"
#include "faces/com/printing/printers.h"

namespace pixmo::com {

ControlPorts systemPorts(const SharedFaceLink& link) {
    useSystemCodePage();
    ControlPorts ports;
    ports.messageBox = std::make_shared<MessageBox>(link);
    ports.eventLoop = std::make_shared<EventLoop>();
    ports.timers = std::make_shared<Timers>();
    ports.settings = std::make_shared<SettingsStore>();
    ports.identity = std::make_shared<Identity>();
    ports.clock = std::make_shared<Clock>();
    ports.scratch = std::make_shared<ScratchFolder>();
    ports.clipboard = std::make_shared<Clipboard>();
    ports.printers = std::make_shared<Printers>(link);
    return ports;
}

} // namespace pixmo::com
