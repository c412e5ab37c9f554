#pragma once

#include "core/control/imageview.h"
#include "faces/scripted/scriptedports.h"
#include "faces/scripted/scriptedprinters.h"

#include <memory>
#include <string>

namespace pixmo::scripted {

/// A control whose every port is a script, and the server's side of its conversations.
class ScriptedControl {
public:
    ScriptedControl();
    ~ScriptedControl();
    ScriptedControl(const ScriptedControl&) = delete;
    ScriptedControl& operator=(const ScriptedControl&) = delete;

    /// The control is released as a face releases it; its scripts stay.
    void destroy();

    std::string encipher(const std::string& plain) const;
    std::string tag(const std::string& kind, int32_t docID, int32_t page = 0) const;
    /// Answers "IC|OK" as soon as the control waits for it.
    void answerContactWith(const std::string& plain);
    /// A protected page file of 4 KB that the scripted decoder takes.
    static std::string pageFile(const std::string& size = "100x200", int32_t encBytes = 1640);
    /// Contacts the server, answers the page count, and leaves the page transfer running.
    void open(int32_t docID, int16_t page, int16_t pageCount);

    std::shared_ptr<MessageBox> messageBox = std::make_shared<MessageBox>();
    std::shared_ptr<EventLoop> eventLoop = std::make_shared<EventLoop>();
    std::shared_ptr<Timers> timers = std::make_shared<Timers>();
    std::shared_ptr<AsyncReader> reader = std::make_shared<AsyncReader>();
    std::shared_ptr<SettingsStore> settings = std::make_shared<SettingsStore>();
    std::shared_ptr<Identity> identity = std::make_shared<Identity>();
    std::shared_ptr<Clock> clock = std::make_shared<Clock>();
    std::shared_ptr<ScratchFolder> scratch = std::make_shared<ScratchFolder>();
    std::shared_ptr<Container> container = std::make_shared<Container>();
    std::shared_ptr<ViewSurface> viewSurface = std::make_shared<ViewSurface>();
    std::shared_ptr<PageDecoder> decoder = std::make_shared<PageDecoder>();
    std::shared_ptr<Dialogs> dialogs = std::make_shared<Dialogs>();
    std::shared_ptr<Clipboard> clipboard = std::make_shared<Clipboard>();
    std::shared_ptr<PageWriter> pageWriter = std::make_shared<PageWriter>();
    std::shared_ptr<ThumbnailHost> thumbnailHost = std::make_shared<ThumbnailHost>();
    std::shared_ptr<Printers> printers = std::make_shared<Printers>();
    std::shared_ptr<ImageView> view;

    ControlPorts ports() const;
};

} // namespace pixmo::scripted
