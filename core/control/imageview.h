#pragma once

#include "core/base/event.h"
#include "core/control/commandbar.h"
#include "core/control/commands.h"
#include "core/control/controlevents.h"
#include "core/control/controlinterface.h"
#include "core/control/controlports.h"
#include "core/control/debugtrace.h"
#include "core/control/diagnostics.h"
#include "core/control/dialogcommands.h"
#include "core/control/layout.h"
#include "core/control/menus.h"
#include "core/control/pagedisplay.h"
#include "core/control/printjob.h"
#include "core/control/printpages.h"
#include "core/control/propertytable.h"
#include "core/control/responses.h"
#include "core/control/session.h"
#include "core/control/thumbnails.h"
#include "core/control/transfers.h"
#include "core/control/viewmouse.h"
#include "core/platform/propertybag.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace pixmo {

/// The one control of the library: a viewer of document pages. A face makes it, gives it the answers to its
/// questions (ControlPorts), forwards what the user does and draws what it holds.
///
/// Whoever calls it holds a reference during the call: the call may bring about the end of the face.
/// Methods do not throw; setProperty does.
class ImageView : public std::enable_shared_from_this<ImageView>, private ControlInterface {
public:
    /// Made and initialised; then either InitProperties or ReadProperties completes it.
    static std::shared_ptr<ImageView> create(ControlPorts ports);
    ~ImageView() override;
    ImageView(const ImageView&) = delete;
    ImageView& operator=(const ImageView&) = delete;

    void UserControl_InitProperties();
    void UserControl_ReadProperties(const PropertyBag& bag);
    void UserControl_WriteProperties(PropertyBag& bag);
    /// Saves the settings, ends transfers and timers and removes the page files. Nothing happens in the
    /// control afterwards. Called again it does nothing.
    void UserControl_Terminate();
    void UserControl_AmbientChanged(const std::string& propertyName);

    void UserControl_Click();
    void UserControl_DblClick();
    /// Whether the key meant something to the control; the host hears of it in any case.
    bool UserControl_KeyDown(int16_t& keyCode, int16_t& shift);
    void UserControl_KeyPress(int16_t& keyAscii);
    void UserControl_KeyUp(int16_t& keyCode, int16_t& shift);
    /// The face has laid out its children (see layout) and tells the view its new size.
    void UserControl_Resize();

    /// By name. Throws error 438 for an unknown one.
    PropertyValue property(std::string_view name) const;
    /// Throws error 438 for an unknown name, 383 for a read-only property, 380, 13 or 6 for a bad value.
    void setProperty(std::string_view name, const PropertyValue& value);
    /// The same for a caller that cannot take an exception: the failure is left for GetLastError.
    bool trySetProperty(std::string_view name, const PropertyValue& value);

    void Refresh();
    void clearCache();
    void Clear();
    void LoadDocumentByDocID(int32_t DocID, int16_t PageNum);
    void GetLastError(int32_t& Number, std::string& Source, std::string& Description, std::string& HelpFile,
                      int32_t& HelpContext) const;

    /// A click on the button of that key; ignored while it is not there, hidden or disabled.
    void tlbImage_ButtonClick(std::string_view key);
    /// A command given by menu, key or host; ignored while it is disabled or forbidden.
    void runCommand(std::string_view key);
    /// The right button over the toolbar, or over the page: the menu to show, empty while a form is designed.
    std::vector<MenuItem> tlbImage_MouseDown() const;
    std::vector<MenuItem> lvrImage_RightClick() const;
    void requestBookmark();

    Commands& commands() { return commands_; }
    const Commands& commands() const { return commands_; }
    ViewMouse& mouse() { return mouse_; }
    Thumbnails& thumbnails() { return thumbnails_; }
    PrintJob& printJob() { return printJob_; }

    ControlEvents& events() { return events_; }
    /// Something that a face draws beside the page has changed: toolbar, read-out, status, pointer.
    Event<> InterfaceChanged;

    RasterView& lvrImage() { return lvrImage_; }
    const Toolbar& tlbImage() const { return commandBar_.tlbImage(); }
    const MenuChecks& menuChecks() const { return commands_.checks; }
    const DebugTrace& txtDebug() const { return debug_; }
    /// "Page 3 of 12"
    std::string txtPage() const;
    /// What goes on now, for the status line; "" when nothing does.
    std::string statusText() const;
    /// How much of the running transfer, or print job, is done: 0 to 100, or -1 when none runs or its size is
    /// not known.
    int32_t progressPercent() const;
    /// What to show instead of the picture while the picture of the current page is not there; "" when it is.
    std::string viewNotice() const;
    bool isPageDisplayed() const { return session_.isPageDisplayed(); }
    /// The picture of the current page is on its way; if not, and it is not displayed, it could not be
    /// loaded.
    bool isPageAwaited() const;
    /// "85 %"; "" while no page is displayed.
    std::string zoomText() const;
    /// For screen readers: "Page 3 of 12, 85 %", or what stands in place of the page.
    std::string viewDescription() const;
    /// Nothing is pending: no transfer, no delayed fetch, no delayed repaint.
    bool isIdle() const;

    PropertyValues& properties() { return properties_; }
    const PropertyValues& properties() const { return properties_; }
    cLogEvent& log() { return diagnostics_.log; }
    const cLogEvent& log() const { return diagnostics_.log; }
    const ControlPorts& ports() const { return ports_; }
    Transfers& transfers() { return transfers_; }
    Session& session() { return session_; }
    const Session& session() const { return session_; }
    Timer& tmrResizeDelay() const { return *tmrResizeDelay_; }
    void rebuildToolbar();

private:
    explicit ImageView(ControlPorts ports);

    void UserControl_Initialize();
    void connectPrinting();
    std::unique_ptr<Timer> timer(void (ImageView::*fired)());
    std::shared_ptr<void> held();
    void trace(const std::string& line);
    void readIdentity();
    void readUserSettings();
    void writeUserSettings();
    void completeStart();
    void readProperty(const PropertyBag& bag, const PropertyRow& row);
    void letProperty(const PropertyRow& row, const PropertyValue& value);
    void UpdateUI() override;
    void showPointer(Pointer pointer) override;
    void tmrDelay_Timer() { session_.tmrDelay_Timer(); }
    void tmrResizeDelay_Timer();

    static constexpr int32_t NoGrayScaleSaved = -1;

    const ControlPorts ports_;
    Diagnostics diagnostics_;
    RasterView lvrImage_;
    cLeadImageFunctions leadImageHelp_;
    PageDisplay display_;
    PropertyValues properties_;
    ControlEvents events_;
    cUtilities utilities_;
    cClientHandlers packager2_;
    Transfers transfers_;
    Session session_;
    Responses responses_;
    CommandBar commandBar_;
    DebugTrace debug_;
    DialogCommands dialogCommands_;
    Commands commands_;
    ViewMouse mouse_;
    Thumbnails thumbnails_;
    PrintPages printPages_;
    PrintJob printJob_;
    std::unique_ptr<Timer> tmrResizeDelay_;
    int32_t savedGrayScale_ = NoGrayScaleSaved;
};

} // namespace pixmo
