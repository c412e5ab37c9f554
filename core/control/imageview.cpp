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
    : parts_(std::move(ports)), utilities_(parts_.ports.identity.get()), packager2_(parts_.errors),
      transfers_(
          parts_, [this] { return std::shared_ptr<void>(weak_from_this().lock()); },
          [this](const AsyncProperty& record) { responses_.ProcessServerResponse(record); }),
      session_(parts_, packager2_, transfers_,
               [this](const std::string& address) { setProperty("EngineAddress", address); }),
      responses_(parts_, packager2_, session_, transfers_,
                 [this](const std::string& name, const std::string& value) { setProperty(name, value); }),
      commandBar_(utilities_), commands_(parts_, session_, transfers_, commandBar_, debug_),
      mouse_(parts_.lvrImage, parts_.leadImageHelp, *parts_.ports.viewSurface, session_,
             [this] { UpdateUI(); }),
      thumbnails_(
          parts_, session_, transfers_, [this] { return std::shared_ptr<void>(weak_from_this().lock()); },
          [this] { return commands_.canPrint && !commands_.isForbidden("PRINT"); }),
      printJob_(parts_, session_, commands_) {
    utilities_.setERRR(&parts_.errors);
    parts_.updateUI = [this] { UpdateUI(); };
    parts_.leadImageHelp.DebugPrint.connect([this](const std::string& line) { trace(line); });
    commands_.ToolbarStyleChanged.connect([this] { UpdateUI(); });
    commands_.canShowThumbs = parts_.ports.thumbnailHost != nullptr;
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
    parts_.scope->ended = true;
    parts_.ports.reader->setListener(nullptr);
}

void ImageView::UserControl_Initialize() {
    trace("UserControl_Initialize Fired.");
    session_.setDelayTimer(timer(&ImageView::tmrDelay_Timer));
    tmrResizeDelay_ = timer(&ImageView::tmrResizeDelay_Timer);
    parts_.ports.reader->setListener(&transfers_);
    for (const PropertyRow& row : persistedProperties())
        row.let(*this, row.defaultValue);
}

std::unique_ptr<Timer> ImageView::timer(void (ImageView::*fired)()) {
    return parts_.ports.timers->createTimer([weak = weak_from_this(), fired] {
        const auto self = weak.lock();
        if (self && !self->parts_.ended())
            (self.get()->*fired)();
    });
}

void ImageView::trace(const std::string& line) {
    debug_.add(line);
}

void ImageView::UserControl_InitProperties() {
    parts_.procedure("UserControl_InitProperties")
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
    parts_.procedure("UserControl_ReadProperties")
        .step([this] { trace("UserControl_ReadProperties Fired."); })
        .step([&] {
            const auto rows = persistedProperties();
            for (const PropertyRow& row : rows.first(rows.size() - 1))
                readProperty(bag, row);
        })
        .step([this] { readIdentity(); })
        .step([this] { readUserSettings(); })
        .step([&] {
            if (parts_.log.IsLogging())
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
    parts_.procedure("UserControl_WriteProperties")
        .step([this] { trace("UserControl_WriteProperties Fired."); })
        .step([&] {
            for (const PropertyRow& row : persistedProperties())
                bag.WriteProperty(row.key, row.get(*this), row.defaultValue);
        });
}

void ImageView::readIdentity() {
    parts_.properties.UserLogin = utilities_.GetNTLogin();
    parts_.properties.MachineName = utilities_.GetWorkstationID();
}

void ImageView::readUserSettings() {
    const auto flag = [this](const setting::Setting& which) {
        const std::string text =
            parts_.ports.settings->GetSetting(which.section, which.key, which.defaultValue);
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
        parts_.ports.settings->SaveSetting(which.section, which.key, flagText(flag));
    };
    const MenuChecks& checks = commands_.checks;
    save(setting::ButtonCaptions, checks.mnuPopup1ButtonCaptions);
    save(setting::BigButtons, checks.mnuPopup1LargeButtons);
    save(setting::GrayScale, checks.mnuPopupGrayscale);
}

/// What a new control and a stored one have in common.
void ImageView::completeStart() {
    savedGrayScale_ = NoGrayScaleSaved;
    parts_.leadImageHelp.imgFitWidth();
    rebuildToolbar();
    commands_.panMode();
    session_.Clear();
}

void ImageView::UserControl_Terminate() {
    const auto self = shared_from_this();
    if (parts_.ended())
        return;
    parts_.procedure("UserControl_Terminate")
        .step([this] { trace("UserControl_Terminate Fired."); })
        .step([this] { writeUserSettings(); })
        .step([this] { thumbnails_.close(); })
        .step([this] { transfers_.CancelDownloads(); })
        .step([this] { session_.Clear(); });
    parts_.scope->ended = true;
    session_.tmrDelay().stop();
    tmrResizeDelay_->stop();
}

void ImageView::UserControl_AmbientChanged(const std::string& propertyName) {
    parts_.procedure("UserControl_AmbientChanged")
        .step([&] { trace("UserControl_AmbientChanged Fired for '" + propertyName + "'"); })
        .step([&] {
            if (upperCase(propertyName) == "BACKCOLOR")
                setProperty("BackColor", parts_.ports.container->ambientBackColor());
        });
}

void ImageView::UserControl_Click() {
    parts_.procedure("UserControl_Click").step([this] { parts_.events.Click.raise(); });
}

void ImageView::UserControl_DblClick() {
    parts_.procedure("UserControl_DblClick").step([this] { parts_.events.DblClick.raise(); });
}

void ImageView::UserControl_KeyPress(int16_t& keyAscii) {
    parts_.procedure("UserControl_KeyPress").step([&] { parts_.events.KeyPress.raise(keyAscii); });
}

void ImageView::UserControl_KeyUp(int16_t& keyCode, int16_t& shift) {
    parts_.procedure("UserControl_KeyUp").step([&] { parts_.events.KeyUp.raise(keyCode, shift); });
}

void ImageView::UserControl_Resize() {
    parts_.procedure("UserControl_Resize")
        .step([this] { parts_.lvrImage.resize(); })
        .step([this] {
            if (savedGrayScale_ != NoGrayScaleSaved)
                return;
            savedGrayScale_ = parts_.lvrImage.GrayScale() ? 1 : 0;
            parts_.lvrImage.setGrayScale(false);
        })
        .step([this] {
            tmrResizeDelay_->stop();
            tmrResizeDelay_->start();
        });
}

void ImageView::tmrResizeDelay_Timer() {
    parts_.procedure("tmrResizeDelay_Timer").step([this] {
        tmrResizeDelay_->stop();
        parts_.lvrImage.setGrayScale(savedGrayScale_ != 0);
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
    const std::string source = parts_.scope->sourcePrefix + std::string(name);
    return parts_.errors.attempt(source.c_str(), [&] { setProperty(name, value); }) == 0;
}

void ImageView::letProperty(const PropertyRow& row, const PropertyValue& value) {
    const auto self = weak_from_this().lock();
    if (row.let(*this, value) && row.announcedAs && !parts_.ended())
        parts_.ports.container->PropertyChanged(row.announcedAs);
}

void ImageView::Refresh() {
    parts_.procedure("Refresh").step([this] {
        parts_.lvrImage.repaint();
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
    Number = parts_.errors.Number();
    Source = parts_.errors.Source();
    Description = parts_.errors.Description();
    HelpFile = parts_.errors.HelpFile();
    HelpContext = parts_.errors.HelpContext();
}

void ImageView::requestBookmark() {
    session_.requestBookmark();
}

} // namespace pixmo
