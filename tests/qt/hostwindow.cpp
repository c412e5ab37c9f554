#include "tests/qt/hostwindow.h"

#include "faces/qt/windows/virtualkeys.h"

#include <QKeyEvent>
#include <sstream>
#include <utility>

namespace pixmo::qt {

HostWindow::HostWindow()
    : before_(addField("before")), view_(new ImageView(this)), behind_(addField("behind")) {
    connectKeys();
    connectPages();
    connectPrinting();
}

QLineEdit* HostWindow::addField(const char* name) {
    auto* const field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    return field;
}

void HostWindow::resizeView(QSize size) {
    const int row = before_->sizeHint().height();
    before_->setGeometry(0, 0, size.width(), row);
    view_->setGeometry(0, row, size.width(), size.height());
    behind_->setGeometry(0, row + size.height(), size.width(), row);
    resize(size.width(), size.height() + 2 * row);
}

std::vector<std::string> HostWindow::takeEvents() {
    return std::exchange(events_, {});
}

template <typename... Arguments>
void HostWindow::note(const char* name, const Arguments&... arguments) {
    std::ostringstream line;
    line << name;
    ((line << ' ' << arguments), ...);
    events_.push_back(line.str());
}

void HostWindow::keyPressEvent(QKeyEvent* event) {
    note("HostKey", virtualKey(*event), shiftState(event->modifiers()));
}

void HostWindow::connectKeys() {
    connect(view_, &ImageView::KeyDown, this, [this](short& code, short& shift) {
        note("KeyDown", code, shift);
        if (answers.takesKeys)
            code = 0;
    });
    connect(view_, &ImageView::KeyPress, this, [this](short& ascii) { note("KeyPress", ascii); });
    connect(view_, &ImageView::KeyUp, this,
            [this](short& code, short& shift) { note("KeyUp", code, shift); });
}

void HostWindow::connectPages() {
    connect(view_, &ImageView::Click, this, [this] { note("Click"); });
    connect(view_, &ImageView::DblClick, this, [this] { note("DblClick"); });
    connect(view_, &ImageView::PageChanged, this,
            [this](int document, int page) { note("PageChanged", document, page); });
    connect(view_, &ImageView::BookmarkRequested, this,
            [this](int document, int page) { note("BookmarkRequested", document, page); });
}

void HostWindow::connectPrinting() {
    connect(view_, &ImageView::PrintJobBegin, this,
            [this](short pages, const QString& document, bool& cancel) {
                note("PrintJobBegin", pages, document.toStdString());
                cancel = answers.cancelsPrinting;
            });
    connect(view_, &ImageView::PrintJobBeginEX, this,
            [this](short pages, const QString& selected, const QString& document, bool& cancel) {
                note("PrintJobBeginEX", pages, selected.toStdString(), document.toStdString());
                cancel = cancel || answers.cancelsPrinting;
            });
    connect(view_, &ImageView::PrintJobFinish, this, [this](short pages, const QString& document) {
        note("PrintJobFinish", pages, document.toStdString());
    });
}

} // namespace pixmo::qt
