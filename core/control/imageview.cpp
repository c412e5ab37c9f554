#include "core/control/imageview.h"

#include "core/base/text.h"
#include "core/diag/settings.h"
#include "core/printing/dlgprint.h"

#include <algorithm>
#include <utility>

namespace pixmo {

namespace {

Error unknownPropertyError() {
    return {438, "Object doesn't support this property or method"};
}

Error readOnlyPropertyError() {
    return {383, "Property is read-only"};
}

std::string flagText(bool flag) {
    return flag ? "TRUE" : "FALSE";
}

} // namespace

std::shared_ptr<ImageView> ImageView::create(ControlPorts ports) {
    std::shared_ptr<ImageView> view(new ImageView(std::move(ports)));
    view->UserControl_Initialize();
    return view;
}

ImageView::ImageView(ControlPorts ports)
    : ports_(std::move(ports)), diagnostics_(*ports_.messageBox, *ports_.clock),
      lvrImage_(*ports_.viewSurface), leadImageHelp_(diagnostics_.errors, lvrImage_, *ports_.decoder),
      display_(lvrImage_, leadImageHelp_), utilities_(ports_.identity.get()), packager2_(diagnostics_.errors),
      transfers_(diagnostics_,
                 {*this, *ports_.reader, *ports_.scratch, *ports_.container, [this] { return held(); },
                  [this](const AsyncProperty& record) { responses_.ProcessServerResponse(record); }}),
      session_(diagnostics_, packager2_, transfers_,
               {*this, properties_, events_, display_, *ports_.eventLoop, *ports_.container,
                [this](const std::string& address) { setProperty("EngineAddress", address); }}),
      responses_(diagnostics_, properties_, packager2_, session_, transfers_,
                 [this](const std::string& name, const std::string& value) { setProperty(name, value); }),
      commandBar_(utilities_),
      dialogCommands_(diagnostics_, {session_, lvrImage_, *ports_.dialogs, *ports_.clipboard,
                                     *ports_.pageWriter, *ports_.settings}),
      commands_(diagnostics_, session_, transfers_,
                {*this, commandBar_, debug_, lvrImage_, leadImageHelp_, dialogCommands_, *ports_.container,
                 *ports_.viewSurface}),
      mouse_(lvrImage_, leadImageHelp_, *ports_.viewSurface, session_, [this] { UpdateUI(); }),
      thumbnails_(diagnostics_, session_, transfers_,
                  {ports_.thumbnailHost.get(), *ports_.timers, *ports_.settings, leadImageHelp_,
                   [this] { return held(); },
                   [this] { return commands_.canPrint && !commands_.isForbidden("PRINT"); }}),
      printPages_(diagnostics_, {session_, *ports_.eventLoop, properties_, lvrImage_, leadImageHelp_}),
      printJob_(diagnostics_, session_, printPages_,
                {*this, properties_, events_, ports_.printers.get(), *ports_.dialogs, *ports_.settings,
                 *ports_.timers, *ports_.clock}) {
    utilities_.setERRR(&diagnostics_.errors);
    leadImageHelp_.DebugPrint.connect([this](const std::string& line) { trace(line); });
    commands_.ToolbarStyleChanged.connect([this] { UpdateUI(); });
    commands_.canShowThumbs = ports_.thumbnailHost != nullptr;
    commands_.canPrint = ports_.printers != nullptr;
    commands_.ThumbnailsRequested.connect([this] { thumbnails_.ShowThumbNails(); });
    mouse_.Clicked.connect([this] { UserControl_Click(); });
    connectPrinting();
}

/// Each keeps the control while its job runs.
void ImageView::connectPrinting() {
    commands_.isPrinting = [this] { return printJob_.state().running; };
    session_.Emptied.connect([this] { printJob_.forgetOutcome(); });
    commands_.PrintRequested.connect([this](bool withDialog) {
        const auto self = shared_from_this();
        if (withDialog)
            printJob_.imgPrintPages();
        else
            printJob_.imgPrintCurrentOnly();
    });
    commands_.PrintCancelled.connect([this] { printJob_.cancel(); });
    thumbnails_.PrintSelection.connect([this](const std::vector<int16_t>& pages) {
        const auto self = shared_from_this();
        printJob_.print({pages, FitToPage, 1});
    });
}

ImageView::~ImageView() {
    diagnostics_.end();
    ports_.reader->setListener(nullptr);
}

void ImageView::UserControl_Initialize() {
    trace("UserControl_Initialize Fired.");
    session_.setDelayTimer(timer(&ImageView::tmrDelay_Timer));
    tmrResizeDelay_ = timer(&ImageView::tmrResizeDelay_Timer);
    ports_.reader->setListener(&transfers_);
    for (const PropertyRow& row : persistedProperties())
        row.let(*this, row.defaultValue);
}

std::unique_ptr<Timer> ImageView::timer(void (ImageView::*fired)()) {
    return ports_.timers->createTimer([weak = weak_from_this(), fired] {
        const auto self = weak.lock();
        if (self && !self->diagnostics_.ended())
            (self.get()->*fired)();
    });
}

/// Keeps the control while something runs that may make the host let go of it.
std::shared_ptr<void> ImageView::held() {
    return weak_from_this().lock();
}

void ImageView::trace(const std::string& line) {
    debug_.add(line);
}

void ImageView::UserControl_InitProperties() {
    diagnostics_.procedure("UserControl_InitProperties")
        .step([this] { trace("UserControl_InitProperties Fired."); })
        .step([this] {
            for (const PropertyRow& row : persistedProperties())
                letProperty(row, row.defaultValue);
        })
        .step([this] { readIdentity(); })
        .step([this] { readUserSettings(); })
        .step([this] { completeStart(); });
}

void ImageView::UserControl_ReadProperties(const PropertyBag& bag) {
    diagnostics_.procedure("UserControl_ReadProperties")
        .step([this] { trace("UserControl_ReadProperties Fired."); })
        .step([&] {
            const auto rows = persistedProperties();
            for (const PropertyRow& row : rows.first(rows.size() - 1))
                readProperty(bag, row);
        })
        .step([this] { readIdentity(); })
        .step([this] { readUserSettings(); })
        .step([&] {
            if (diagnostics_.log.IsLogging())
                readProperty(bag, persistedProperties().back());
        })
        .step([this] { completeStart(); });
}

/// A bad value falls back to the default.
void ImageView::readProperty(const PropertyBag& bag, const PropertyRow& row) {
    try {
        letProperty(row, convertProperty(bag.ReadProperty(row.key, row.defaultValue), row.defaultValue));
    } catch (const Error& error) {
        trace(std::string(row.key) + ": " + error.Description);
        letProperty(row, row.defaultValue);
    }
}

void ImageView::UserControl_WriteProperties(PropertyBag& bag) {
    diagnostics_.procedure("UserControl_WriteProperties")
        .step([this] { trace("UserControl_WriteProperties Fired."); })
        .step([&] {
            for (const PropertyRow& row : persistedProperties())
                bag.WriteProperty(row.key, row.get(*this), row.defaultValue);
        });
}

void ImageView::readIdentity() {
    properties_.UserLogin = utilities_.GetNTLogin();
    properties_.MachineName = utilities_.GetWorkstationID();
}

void ImageView::readUserSettings() {
    const auto flag = [this](const setting::Setting& which) {
        const std::string text = ports_.settings->GetSetting(which.section, which.key, which.defaultValue);
        try {
            return toBoolean(text);
        } catch (const Error&) {
            return toBoolean(which.defaultValue);
        }
    };
    MenuChecks& checks = commands_.checks;
    checks.mnuPopup1ButtonCaptions = flag(setting::ButtonCaptions);
    checks.mnuPopup1LargeButtons = flag(setting::BigButtons);
    checks.mnuPopup1SmallButtons = !checks.mnuPopup1LargeButtons;
    commands_.letGrayScale(flag(setting::GrayScale));
}

void ImageView::writeUserSettings() {
    const auto save = [this](const setting::Setting& which, bool flag) {
        ports_.settings->SaveSetting(which.section, which.key, flagText(flag));
    };
    const MenuChecks& checks = commands_.checks;
    save(setting::ButtonCaptions, checks.mnuPopup1ButtonCaptions);
    save(setting::BigButtons, checks.mnuPopup1LargeButtons);
    save(setting::GrayScale, checks.mnuPopupGrayscale);
}

/// What a new control and a stored one have in common.
void ImageView::completeStart() {
    savedGrayScale_ = NoGrayScaleSaved;
    leadImageHelp_.imgFitWidth();
    rebuildToolbar();
    commands_.panMode();
    session_.Clear();
}

void ImageView::UserControl_Terminate() {
    const auto self = shared_from_this();
    if (diagnostics_.ended())
        return;
    diagnostics_.procedure("UserControl_Terminate")
        .step([this] { trace("UserControl_Terminate Fired."); })
        .step([this] { writeUserSettings(); })
        .step([this] { thumbnails_.close(); })
        .step([this] { transfers_.CancelDownloads(); })
        .step([this] { session_.Clear(); });
    diagnostics_.end();
    session_.tmrDelay().stop();
    tmrResizeDelay_->stop();
}

void ImageView::UserControl_AmbientChanged(const std::string& propertyName) {
    diagnostics_.procedure("UserControl_AmbientChanged")
        .step([&] { trace("UserControl_AmbientChanged Fired for '" + propertyName + "'"); })
        .step([&] {
            if (upperCase(propertyName) == "BACKCOLOR")
                setProperty("BackColor", ports_.container->ambientBackColor());
        });
}

void ImageView::UserControl_Click() {
    diagnostics_.procedure("UserControl_Click").step([this] { events_.Click.raise(); });
}

void ImageView::UserControl_DblClick() {
    diagnostics_.procedure("UserControl_DblClick").step([this] { events_.DblClick.raise(); });
}

void ImageView::UserControl_KeyPress(int16_t& keyAscii) {
    diagnostics_.procedure("UserControl_KeyPress").step([&] { events_.KeyPress.raise(keyAscii); });
}

void ImageView::UserControl_KeyUp(int16_t& keyCode, int16_t& shift) {
    diagnostics_.procedure("UserControl_KeyUp").step([&] { events_.KeyUp.raise(keyCode, shift); });
}

void ImageView::UserControl_Resize() {
    diagnostics_.procedure("UserControl_Resize")
        .step([this] { lvrImage_.resize(); })
        .step([this] {
            if (savedGrayScale_ != NoGrayScaleSaved)
                return;
            savedGrayScale_ = lvrImage_.GrayScale() ? 1 : 0;
            lvrImage_.setGrayScale(false);
        })
        .step([this] {
            tmrResizeDelay_->stop();
            tmrResizeDelay_->start();
        });
}

void ImageView::tmrResizeDelay_Timer() {
    diagnostics_.procedure("tmrResizeDelay_Timer").step([this] {
        tmrResizeDelay_->stop();
        lvrImage_.setGrayScale(savedGrayScale_ != 0);
        savedGrayScale_ = NoGrayScaleSaved;
    });
}

PropertyValue ImageView::property(std::string_view name) const {
    const PropertyRow* row = findProperty(name);
    if (!row)
        throw unknownPropertyError();
    return row->get(*this);
}

void ImageView::setProperty(std::string_view name, const PropertyValue& value) {
    const PropertyRow* row = findProperty(name);
    if (!row)
        throw unknownPropertyError();
    if (!row->let)
        throw readOnlyPropertyError();
    letProperty(*row, convertProperty(value, row->defaultValue));
}

bool ImageView::trySetProperty(std::string_view name, const PropertyValue& value) {
    return diagnostics_.attempt(name, [&] { setProperty(name, value); });
}

void ImageView::letProperty(const PropertyRow& row, const PropertyValue& value) {
    const auto self = weak_from_this().lock();
    if (row.let(*this, value) && row.announcedAs && !diagnostics_.ended())
        ports_.container->PropertyChanged(row.announcedAs);
}

void ImageView::Refresh() {
    diagnostics_.procedure("Refresh").step([this] {
        lvrImage_.repaint();
        UpdateUI();
    });
}

void ImageView::clearCache() {
    session_.clearCache();
}

void ImageView::Clear() {
    session_.Clear();
}

void ImageView::LoadDocumentByDocID(int32_t DocID, int16_t PageNum) {
    const auto self = shared_from_this();
    session_.LoadDocumentByDocID(DocID, PageNum, {});
}

void ImageView::GetLastError(int32_t& Number, std::string& Source, std::string& Description,
                             std::string& HelpFile, int32_t& HelpContext) const {
    Number = diagnostics_.errors.Number();
    Source = diagnostics_.errors.Source();
    Description = diagnostics_.errors.Description();
    HelpFile = diagnostics_.errors.HelpFile();
    HelpContext = diagnostics_.errors.HelpContext();
}

void ImageView::requestBookmark() {
    session_.requestBookmark();
}

} // namespace pixmo
