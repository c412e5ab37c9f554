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
namespace pixmo::behaviour {

using namespace qt;

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

FaceDriver::~FaceDriver() {
    destroy();
}

void FaceDriver::Hands::start(const std::function<void()>& call) {
    startOnUi([this, call] {
        ++underWay;
        call();
        --underWay;
    });
    onUi([] {});
}

void FaceDriver::create() {
    onUi([this] {
        // Clicks in quick order are as many clicks.
        QGuiApplication::styleHints()->setMouseDoubleClickInterval(0);
        my_->host = std::make_unique<HostWindow>();
        my_->host->resizeView(FirstSize);
        my_->host->show();
        my_->host->activateWindow();
        my_->page().setFocus();
    });
}

void FaceDriver::destroy() {
    onUi([this] {
        my_->host.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
}

void FaceDriver::forgetSettings() {
    onUi([] {
        QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("QuorvisImaging"),
                  QStringLiteral("Pixmo"))
            .clear();
    });
}

Value FaceDriver::get(const std::string& property) {
    return onUi([&] { return valueOf(my_->view().property(property.c_str())); });
}

void FaceDriver::set(const std::string& property, const Value& value) {
    my_->start([this, property, value] { my_->view().setProperty(property.c_str(), variantOf(value)); });
}

LastError FaceDriver::lastError() {
    return onUi([this] {
        int number = 0;
        int helpContext = 0;
        QString source;
        QString description;
        QString helpFile;
        my_->view().GetLastError(number, source, description, helpFile, helpContext);
        return LastError{number, source.toStdString(), description.toStdString()};
    });
}

void FaceDriver::load(int32_t docID, int16_t page) {
    my_->start([this, docID, page] { my_->view().LoadDocumentByDocID(docID, page); });
}

void FaceDriver::call(const std::string& method) {
    const bool called = onUi([&] { return QMetaObject::invokeMethod(&my_->view(), method.c_str()); });
    EXPECT_TRUE(called) << "no method " << method;
}

void FaceDriver::resize(int32_t width, int32_t height) {
    onUi([&] {
        if (my_->thumbs)
            my_->thumbs->move(60, 70), my_->thumbs->resize(width, height);
        else
            my_->host->resizeView({width, height});
    });
}

void FaceDriver::answerEvents(const HostAnswers& answers) {
    onUi([&] { my_->host->answers = answers; });
}

void FaceDriver::command(const std::string& key) {
    my_->start([this, key] { my_->view().action(QString::fromStdString(key))->trigger(); });
}

void FaceDriver::setStallTimeout(int milliseconds) {
    onUi([&] { my_->view().setStallTimeout(milliseconds); });
}

std::vector<std::string> FaceDriver::takeEvents() {
    return onUi([this] { return my_->host->takeEvents(); });
}

std::vector<ShownButton> FaceDriver::toolbar() {
    return onUi([this] {
        const QToolBar& toolBar = my_->bar();
        std::vector<ShownButton> shown;
        for (QAction* action : toolBar.actions())
            shown.push_back(look(toolBar, *action));
        return shown;
    });
}

std::string FaceDriver::readOut() {
    return onUi(
        [this] { return my_->view().findChild<QLabel*>(QStringLiteral("txtPage"))->text().toStdString(); });
}

std::string FaceDriver::status() {
    return onUi(
        [this] { return my_->view().findChild<QLabel*>(QStringLiteral("lblStatus"))->text().toStdString(); });
}

std::string FaceDriver::notice() {
    return onUi([this] { return my_->view().notice().toStdString(); });
}

std::string FaceDriver::description() {
    return onUi([this] {
        const auto* const interface = QAccessible::queryAccessibleInterface(&my_->page());
        return interface->text(QAccessible::Description).toStdString();
    });
}

bool FaceDriver::isIdle() {
    return onUi(
        [this] { return my_->underWay == 0 && my_->view().isIdle() && !QApplication::activeModalWidget(); });
}

bool FaceDriver::isPageDisplayed() {
    return onUi([this] { return my_->view().isPageDisplayed(); });
}

ShownScroll FaceDriver::scroll(bool horizontal) {
    return onUi([&] {
        const QScrollBar& scrollBar =
            horizontal ? *my_->page().horizontalScrollBar() : *my_->page().verticalScrollBar();
        return ShownScroll{scrollBar.isVisible(), scrollBar.value(), scrollBar.maximum()};
    });
}

int32_t FaceDriver::pointer() {
    return onUi([this] { return codeOf(my_->page().viewport()->cursor().shape()); });
}

int FaceDriver::pageFiles() {
    using std::filesystem::recursive_directory_iterator;
    int count = 0;
    for (const auto& entry : recursive_directory_iterator(std::filesystem::temp_directory_path()))
        count += entry.path().extension() == ".dat" ? 1 : 0;
    return count;
}

std::optional<std::string> FaceDriver::debugPane() {
    return onUi([this]() -> std::optional<std::string> {
        const auto* const pane = my_->view().findChild<QPlainTextEdit*>(QStringLiteral("txtDebug"));
        if (!pane->isVisible())
            return std::nullopt;
        return pane->toPlainText().toStdString();
    });
}

Picture FaceDriver::picture() {
    // The screen has told what it uncovered.
    my_->input.settle();
    return onUi([this] {
        // What waits to be painted is painted, nothing else: a repaint that was forgotten shows.
        QWidget* const window = my_->page().window();
        QCoreApplication::sendPostedEvents(window, QEvent::UpdateRequest);
        const QWidget& seen = *my_->page().viewport();
        const QPoint corner = seen.mapTo(window, QPoint());
        const QImage image =
            my_->host->screen()
                ->grabWindow(window->winId(), corner.x(), corner.y(), seen.width(), seen.height())
                .toImage();
        Picture picture{image.width(), image.height(), {}};
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                picture.pixels.push_back(image.pixel(x, y) & 0xFFFFFFU);
        return picture;
    });
}

std::string FaceDriver::focus() {
    return onUi([]() -> std::string {
        const QWidget* const focused = QApplication::focusWidget();
        if (!focused)
            return {};
        return focused->objectName().toStdString();
    });
}

std::string FaceDriver::engineAddress() {
    return my_->engine.address().toStdString();
}

void FaceDriver::setFaults(const std::string& faults) {
    my_->engine.setFaults(QByteArray::fromStdString(faults));
}

bool FaceDriver::hearsResets() {
    return true;
}

int FaceDriver::requests(const std::string& kind) {
    return my_->engine.requests(QByteArray::fromStdString(kind));
}

} // namespace pixmo::behaviour
