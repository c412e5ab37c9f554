#include "tests/qt/qtdriver.h"

#include "faces/qt/windows/thumbswindow.h"
#include "tests/qt/uithread.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <QStyleHints>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>
#include <filesystem>
#include <gtest/gtest.h>

// The control and what is seen of it.
namespace pixmo::qt {

using namespace behaviour;

namespace {

constexpr QSize FirstSize(900, 700);

ShownButton look(const QToolBar& bar, QAction& action) {
    ShownButton shown;
    shown.key = action.objectName().toStdString();
    shown.separator = action.isSeparator();
    const auto* const button = qobject_cast<QToolButton*>(bar.widgetForAction(&action));
    if (!button) {
        shown.visible = action.isVisible();
        return shown;
    }
    if (button->toolButtonStyle() != Qt::ToolButtonIconOnly)
        shown.caption = button->text().toStdString();
    shown.tip = button->toolTip().toStdString();
    shown.group = button->isCheckable();
    shown.visible = button->isVisible();
    shown.enabled = button->isEnabled();
    shown.pressed = button->isChecked();
    shown.imageSize = button->icon().isNull() ? 0 : button->iconSize().width();
    return shown;
}

Value valueOf(const QVariant& value) {
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    if (value.typeId() == QMetaType::QString)
        return value.toString().toStdString();
    if (value.typeId() == QMetaType::UInt)
        return static_cast<int32_t>(value.toUInt());
    return value.toInt();
}

QVariant variantOf(const Value& value) {
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    if (const auto* text = std::get_if<std::string>(&value))
        return QString::fromStdString(*text);
    return std::get<int32_t>(value);
}

int32_t codeOf(Qt::CursorShape shape) {
    switch (shape) {
    case Qt::ArrowCursor:
        return 0;
    case Qt::CrossCursor:
        return 2;
    case Qt::BusyCursor:
        return 13;
    case Qt::SizeAllCursor:
        return 15;
    default:
        return -1;
    }
}

} // namespace

QtDriver::~QtDriver() {
    destroy();
}

void QtDriver::start(const std::function<void()>& call) {
    startOnUi([this, call] {
        ++underWay_;
        call();
        --underWay_;
    });
    onUi([] {});
}

void QtDriver::create() {
    onUi([this] {
        // Clicks in quick order are as many clicks.
        QGuiApplication::styleHints()->setMouseDoubleClickInterval(0);
        host_ = std::make_unique<HostWindow>();
        host_->resizeView(FirstSize);
        host_->show();
        host_->activateWindow();
        page().setFocus();
    });
}

void QtDriver::destroy() {
    onUi([this] {
        host_.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
}

void QtDriver::forgetSettings() {
    onUi([] {
        QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("QuorvisImaging"),
                  QStringLiteral("Pixmo"))
            .clear();
    });
}

Value QtDriver::get(const std::string& property) {
    return onUi([&] { return valueOf(view().property(property.c_str())); });
}

void QtDriver::set(const std::string& property, const Value& value) {
    start([this, property, value] { view().setProperty(property.c_str(), variantOf(value)); });
}

LastError QtDriver::lastError() {
    return onUi([this] {
        int number = 0;
        int helpContext = 0;
        QString source;
        QString description;
        QString helpFile;
        view().GetLastError(number, source, description, helpFile, helpContext);
        return LastError{number, source.toStdString(), description.toStdString()};
    });
}

void QtDriver::load(int32_t docID, int16_t page) {
    start([this, docID, page] { view().LoadDocumentByDocID(docID, page); });
}

void QtDriver::call(const std::string& method) {
    const bool called = onUi([&] { return QMetaObject::invokeMethod(&view(), method.c_str()); });
    EXPECT_TRUE(called) << "no method " << method;
}

void QtDriver::resize(int32_t width, int32_t height) {
    onUi([&] {
        if (thumbs_)
            thumbs_->move(60, 70), thumbs_->resize(width, height);
        else
            host_->resizeView({width, height});
    });
}

void QtDriver::answerEvents(const HostAnswers& answers) {
    onUi([&] { host_->answers = answers; });
}

void QtDriver::command(const std::string& key) {
    start([this, key] { view().action(QString::fromStdString(key))->trigger(); });
}

void QtDriver::setStallTimeout(int milliseconds) {
    onUi([&] { view().setStallTimeout(milliseconds); });
}

std::vector<std::string> QtDriver::takeEvents() {
    return onUi([this] { return host_->takeEvents(); });
}

std::vector<ShownButton> QtDriver::toolbar() {
    return onUi([this] {
        const QToolBar& bar = this->bar();
        std::vector<ShownButton> shown;
        for (QAction* action : bar.actions())
            shown.push_back(look(bar, *action));
        return shown;
    });
}

std::string QtDriver::readOut() {
    return onUi(
        [this] { return view().findChild<QLabel*>(QStringLiteral("txtPage"))->text().toStdString(); });
}

std::string QtDriver::status() {
    return onUi(
        [this] { return view().findChild<QLabel*>(QStringLiteral("lblStatus"))->text().toStdString(); });
}

std::string QtDriver::notice() {
    return onUi([this] { return view().notice().toStdString(); });
}

std::string QtDriver::description() {
    return onUi([this] {
        const auto* const interface = QAccessible::queryAccessibleInterface(&page());
        return interface->text(QAccessible::Description).toStdString();
    });
}

bool QtDriver::isIdle() {
    return onUi([this] { return underWay_ == 0 && view().isIdle() && !QApplication::activeModalWidget(); });
}

bool QtDriver::isPageDisplayed() {
    return onUi([this] { return view().isPageDisplayed(); });
}

ShownScroll QtDriver::scroll(bool horizontal) {
    return onUi([&] {
        const QScrollBar& bar = horizontal ? *page().horizontalScrollBar() : *page().verticalScrollBar();
        return ShownScroll{bar.isVisible(), bar.value(), bar.maximum()};
    });
}

int32_t QtDriver::pointer() {
    return onUi([this] { return codeOf(page().viewport()->cursor().shape()); });
}

int QtDriver::pageFiles() {
    using std::filesystem::recursive_directory_iterator;
    int count = 0;
    for (const auto& entry : recursive_directory_iterator(std::filesystem::temp_directory_path()))
        count += entry.path().extension() == ".dat" ? 1 : 0;
    return count;
}

std::optional<std::string> QtDriver::debugPane() {
    return onUi([this]() -> std::optional<std::string> {
        const auto* const pane = view().findChild<QPlainTextEdit*>(QStringLiteral("txtDebug"));
        if (!pane->isVisible())
            return std::nullopt;
        return pane->toPlainText().toStdString();
    });
}

Picture QtDriver::picture() {
    // The screen has told what it uncovered.
    input_.settle();
    return onUi([this] {
        // What waits to be painted is painted, nothing else: a repaint that was forgotten shows.
        QWidget* const window = page().window();
        QCoreApplication::sendPostedEvents(window, QEvent::UpdateRequest);
        const QWidget& seen = *page().viewport();
        const QPoint corner = seen.mapTo(window, QPoint());
        const QImage image =
            host_->screen()
                ->grabWindow(window->winId(), corner.x(), corner.y(), seen.width(), seen.height())
                .toImage();
        Picture picture{image.width(), image.height(), {}};
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                picture.pixels.push_back(image.pixel(x, y) & 0xFFFFFFU);
        return picture;
    });
}

std::string QtDriver::focus() {
    return onUi([]() -> std::string {
        const QWidget* const focused = QApplication::focusWidget();
        if (!focused)
            return {};
        return focused->objectName().toStdString();
    });
}

std::string QtDriver::engineAddress() {
    return engine_.address().toStdString();
}

void QtDriver::setFaults(const std::string& faults) {
    engine_.setFaults(QByteArray::fromStdString(faults));
}

int QtDriver::requests(const std::string& kind) {
    return engine_.requests(QByteArray::fromStdString(kind));
}

} // namespace pixmo::qt
