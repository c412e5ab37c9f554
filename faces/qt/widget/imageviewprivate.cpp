#include "faces/qt/widget/imageviewprivate.h"

#include "codecs/pagecodecs.h"
#include "codecs/pagewriter.h"
#include "core/printing/dlgprint.h"
#include "faces/qt/ports/clipboard.h"
#include "faces/qt/ports/eventloop.h"
#include "faces/qt/ports/identity.h"
#include "faces/qt/ports/scratchfolder.h"
#include "faces/qt/ports/settingsstore.h"
#include "faces/qt/ports/timers.h"
#include "faces/qt/widget/container.h"
#include "faces/qt/widget/olecolour.h"
#include "faces/qt/windows/dialogs.h"
#include "faces/qt/windows/thumbnailhost.h"
#include "faces/qt/windows/viewsurface.h"

#include <QFontInfo>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <limits>
#include <utility>

namespace pixmo::qt {

ImageViewPrivate::ImageViewPrivate(ImageView& widget)
    : widget_(widget), link_(std::make_shared<FaceLink>()), toolbar_(new CommandToolbar(&widget)),
      page_(new PageView(&widget)), debug_(new DebugPane(&widget, page_)), status_(widget),
      actions_(widget,
               [this](const std::string& key) {
                   give([&key](pixmo::ImageView& control) { control.runCommand(key); });
               }),
      messageBox_(std::make_shared<MessageBox>(link_)), reader_(std::make_shared<AsyncReader>()),
      printers_(std::make_shared<Printers>(link_)), control_(pixmo::ImageView::create(ports())) {
    control_->UserControl_InitProperties();
    page_->setControl(control_);
    widget_.setFocusProxy(page_);
    widget_.setFocusPolicy(Qt::StrongFocus);
    QObject::connect(toolbar_, &CommandToolbar::commandGiven, &widget_, [this](const QString& key) {
        give([&key](pixmo::ImageView& control) { control.tlbImage_ButtonClick(key.toStdString()); });
    });
    toolbar_->setMenu([this] { return control()->tlbImage_MouseDown(); },
                      [this](const std::string& key) { control()->runCommand(key); });
    watchProperties();
    connectEvents();
    connectPrintEvents();
    applyColours();
    showInterface();
}

ImageViewPrivate::~ImageViewPrivate() {
    *link_ = {};
    page_->setControl(nullptr);
    control_->UserControl_Terminate();
}

ControlPorts ImageViewPrivate::ports() {
    ControlPorts ports;
    ports.messageBox = messageBox_;
    ports.eventLoop = std::make_shared<EventLoop>();
    ports.timers = std::make_shared<Timers>();
    ports.reader = reader_;
    ports.settings = std::make_shared<SettingsStore>();
    ports.identity = std::make_shared<Identity>();
    ports.clock = std::make_shared<SystemClock>();
    ports.scratch = std::make_shared<ScratchFolder>();
    ports.container = std::make_shared<Container>(link_);
    ports.viewSurface = std::make_shared<ViewSurface>(page_);
    ports.decoder = std::make_shared<PageCodecs>();
    ports.dialogs = std::make_shared<Dialogs>(link_);
    ports.clipboard = std::make_shared<Clipboard>();
    ports.pageWriter = std::make_shared<PageFileWriter>();
    ports.thumbnailHost = std::make_shared<ThumbnailHost>(link_);
    ports.printers = printers_;
    return ports;
}

/// The control's events become signals as long as there is a widget.
void ImageViewPrivate::connectEvents() {
    *link_ = {&widget_, &widget_};
    ControlEvents& events = control_->events();
    const auto forward = [link = link_](auto signal) {
        return [link, signal](auto&&... arguments) {
            if (link->widget)
                (link->widget->*signal)(std::forward<decltype(arguments)>(arguments)...);
        };
    };
    events.Click.connect(forward(&ImageView::Click));
    events.DblClick.connect(forward(&ImageView::DblClick));
    events.KeyDown.connect(forward(&ImageView::KeyDown));
    events.KeyPress.connect(forward(&ImageView::KeyPress));
    events.KeyUp.connect(forward(&ImageView::KeyUp));
    events.PageChanged.connect(forward(&ImageView::PageChanged));
    events.BookmarkRequested.connect(forward(&ImageView::BookmarkRequested));
    control_->InterfaceChanged.connect([this, link = link_] {
        if (link->widget)
            showInterface();
    });
    control_->lvrImage().Changed.connect([this, link = link_] {
        if (link->widget && status_.mirrorZoom(*control_))
            relayout(false);
    });
}

void ImageViewPrivate::connectPrintEvents() {
    ControlEvents& events = control_->events();
    events.PrintJobBegin.connect([link = link_](int16_t pages, const std::string& data, bool& cancelJob) {
        if (link->widget)
            Q_EMIT link->widget->PrintJobBegin(pages, toQt(data), cancelJob);
    });
    events.PrintJobBeginEX.connect([link = link_](int16_t pages, const std::string& selectedPages,
                                                  const std::string& data, bool& cancelJob) {
        if (link->widget)
            Q_EMIT link->widget->PrintJobBeginEX(pages, toQt(selectedPages), toQt(data), cancelJob);
    });
    events.PrintJobFinish.connect([link = link_](int16_t pages, const std::string& data) {
        if (link->widget)
            Q_EMIT link->widget->PrintJobFinish(pages, toQt(data));
    });
}

void ImageViewPrivate::watchProperties() {
    const QMetaObject& meta = ImageView::staticMetaObject;
    for (const PropertyRow& row : propertyTable()) {
        announced_.push_back(row.get(*control_));
        notifySignals_.push_back(meta.property(meta.indexOfProperty(row.name)).notifySignal());
    }
}

void ImageViewPrivate::let(std::string_view name, const PropertyValue& value) {
    const QPointer<ImageView> alive(&widget_);
    control()->trySetProperty(name, value);
    if (alive)
        announceChanges();
}

void ImageViewPrivate::announceChanges() {
    const auto rows = propertyTable();
    std::vector<size_t> changed;
    for (size_t row = 0; row < announced_.size(); ++row) {
        PropertyValue value = rows[row].get(*control_);
        if (value == announced_[row])
            continue;
        announced_[row] = std::move(value);
        changed.push_back(row);
    }
    for (const size_t row : changed)
        applyAppearance(rows[row].name);
    // A slot may end the widget.
    const SharedFaceLink link = link_;
    for (const size_t row : changed)
        if (link->widget)
            notifySignals_[row].invoke(link->widget, Qt::DirectConnection);
}

void ImageViewPrivate::give(const std::function<void(pixmo::ImageView&)>& command) {
    const SharedFaceLink link = link_;
    command(*control());
    if (link->widget)
        showInterface();
}

void ImageViewPrivate::setForbidden(std::string_view key, bool forbidden) {
    control_->commands().setForbidden(key, forbidden);
    showInterface();
}

void ImageViewPrivate::showInterface() {
    const SharedFaceLink link = link_;
    toolbar_->mirror(control_->tlbImage());
    actions_.mirror(*control_);
    status_.mirror(*control_);
    page_->refreshNotice();
    debug_->mirror(*control_);
    relayout(false);
    announceChanges();
    if (link->widget)
        Q_EMIT link->widget->interfaceChanged();
}

void ImageViewPrivate::relayout(bool resized) {
    const int border = borderWidth();
    LayoutMeasures measures;
    measures.width = widget_.width() - 2 * border;
    measures.height = widget_.height() - 2 * border;
    measures.toolbarHeight = toolbarHeight();
    measures.debugShown = control_->commands().debugShown;
    status_.measure(measures);
    const ControlLayout layout = layOut(measures);
    const auto place = [border](const Rectangle& box) {
        return QRect(box.left + border, box.top + border, box.width, box.height);
    };
    toolbar_->setGeometry(place(layout.toolbar));
    toolbar_->setVisible(layout.toolbar.height > 0);
    debug_->setGeometry(place(layout.debug));
    status_.place(layout, {border, border});
    const QRect viewPlace = place(layout.view);
    page_->setGeometry(viewPlace);
    if (std::exchange(viewPlace_, viewPlace) != viewPlace || resized)
        control()->UserControl_Resize();
}

int ImageViewPrivate::barsHeight() const {
    LayoutMeasures measures;
    status_.measure(measures);
    return toolbarHeight() + statusHeight(measures);
}

int ImageViewPrivate::toolbarHeight() const {
    return control_->commands().toolbarShown ? toolbar_->sizeHint().height() : 0;
}

// A page number beyond the field that the server knows is the last that fits.
void ImageViewPrivate::load(int32_t docID, int32_t page) {
    constexpr int32_t last = std::numeric_limits<int16_t>::max();
    control()->LoadDocumentByDocID(docID, static_cast<int16_t>(std::clamp(page, -last, last)));
}

int ImageViewPrivate::printToFile(const QString& file, const QList<short>& pages, bool fullSize) {
    const auto held = control();
    const auto printers = printers_;
    // A job that runs must not find its printer changed.
    if (!held->printJob().isPossible())
        return 0;
    printers->setFile(file);
    pixmo::PrintJob::Choice choice;
    choice.pages.assign(pages.begin(), pages.end());
    choice.scale = fullSize ? FullSize : FitToPage;
    choice.mayCrop = true;
    const int printed = held->printJob().print(choice);
    printers->setFile({});
    return printed;
}

void ImageViewPrivate::applyAppearance(std::string_view name) {
    if (name == "BackColor" || name == "ForeColor")
        applyColours();
    else if (name == "Font")
        applyFont();
    else if (name == "Enabled")
        widget_.setEnabled(get<bool>("Enabled"));
    else if (name == "BorderStyle") {
        relayout(false);
        widget_.update();
    }
}

/// The colours of the surroundings stay until the host names others.
void ImageViewPrivate::applyColours() {
    const auto back = get<Colour>("BackColor");
    const auto fore = get<Colour>("ForeColor");
    const QPalette surroundings = widget_.parentWidget() ? widget_.parentWidget()->palette() : QPalette();
    QPalette own;
    if (back != ButtonFace)
        own.setColor(QPalette::Window, toQColor(back, surroundings));
    if (fore != ButtonText)
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText})
            own.setColor(role, toQColor(fore, surroundings));
    if (widget_.palette() != own)
        widget_.setPalette(own);
    widget_.setAutoFillBackground(back != ButtonFace);
    const QColor behindPage =
        back == ButtonFace ? surroundings.color(QPalette::Mid) : toQColor(back, surroundings);
    control_->lvrImage().setBackground(behindPage.rgb() & 0xFFFFFFU);
}

void ImageViewPrivate::applyFont() {
    const auto font = get<Font>("Font");
    if (font.Name.empty()) {
        widget_.setFont(QFont());
        return;
    }
    QFont own(toQt(font.Name));
    own.setPointSizeF(font.Size);
    own.setBold(font.Bold);
    own.setItalic(font.Italic);
    own.setUnderline(font.Underline);
    own.setStrikeOut(font.Strikethrough);
    widget_.setFont(own);
}

QFont ImageViewPrivate::font() const {
    return widget_.font();
}

Font ImageViewPrivate::toFont(const QFont& font) {
    if (font.resolveMask() == 0)
        return {};
    return {font.family().toStdString(),
            QFontInfo(font).pointSizeF(),
            font.bold(),
            font.italic(),
            font.underline(),
            font.strikeOut()};
}

void ImageViewPrivate::followEnabled() {
    const bool enabled = !widget_.testAttribute(Qt::WA_ForceDisabled);
    if (get<bool>("Enabled") != enabled)
        let("Enabled", enabled);
}

void ImageViewPrivate::paintBorder(QPainter& painter) const {
    if (borderWidth() == 0)
        return;
    painter.setPen(widget_.palette().color(QPalette::Dark));
    painter.drawRect(widget_.rect().adjusted(0, 0, -1, -1));
}

} // namespace pixmo::qt
