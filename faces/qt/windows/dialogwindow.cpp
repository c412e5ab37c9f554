#include "faces/qt/windows/dialogwindow.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/virtualkeys.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace pixmo::qt {

namespace {

constexpr double ShareOfScreen = 0.9;
constexpr int FrameButtons = 190; ///< what the title bar needs beside the title

} // namespace

DialogWindow::DialogWindow(Dialog& dialog, QWidget* parent)
    : QDialog(parent), dialog_(dialog), description_(dialog.describe()),
      connection_(dialog.Changed.connect([this] { mirror(); })) {
    const QString title = toQt(description_.title);
    setObjectName(toQt(description_.name));
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    auto* const layout = new QVBoxLayout(this);
    fill(description_.content, *layout, this);
    if (const auto& size = description_.size) {
        setMinimumSize(size->least.width, size->least.height);
        resize(QSize(size->first.width, size->first.height)
                   .boundedTo(screen()->availableSize() * ShareOfScreen));
    } else {
        setMinimumWidth(fontMetrics().horizontalAdvance(title) + FrameButtons);
        layout->setSizeConstraint(QLayout::SetFixedSize);
    }
    mirror();
}

DialogWindow::~DialogWindow() {
    dialog_.Changed.disconnect(connection_);
    if (dialog_.isOpen())
        dialog_.cancel();
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    for (const DialogKey& key : description_.keys)
        if (key.keyCode == virtualKey(*event) && key.shift == shiftState(event->modifiers()))
            return act(key.pressed);
    QDialog::keyPressEvent(event);
}

void DialogWindow::act(const std::function<void()>& handler) {
    const QPointer<DialogWindow> alive(this);
    for (const auto& report : reports_)
        report();
    handler();
    if (alive)
        mirror();
}

void DialogWindow::mirror() {
    if (!dialog_.isOpen()) {
        end();
        return;
    }
    for (const auto& show : mirrors_)
        show();
    takeFocus();
}

void DialogWindow::takeFocus() {
    const std::string field = dialog_.takeFocus();
    auto* const widget = field.empty() ? nullptr : findChild<QWidget*>(toQt(field));
    if (!widget)
        return;
    widget->setFocus();
    if (auto* const edit = qobject_cast<QLineEdit*>(widget))
        edit->selectAll();
}

void DialogWindow::end() {
    if (!isVisible())
        return;
    if (description_.size && description_.size->keep && !isMaximized())
        description_.size->keep({width(), height()});
    done(Accepted);
}

void DialogWindow::fill(const DialogPart& group, QBoxLayout& layout, QWidget* parent) {
    for (const DialogPart& part : group.parts) {
        if (part.kind == DialogPart::Kind::Buttons && !description_.size)
            layout.addSpacing(layout.spacing());
        add(part, layout, parent);
    }
}

void DialogWindow::add(const DialogPart& part, QBoxLayout& into, QWidget* parent) {
    using enum DialogPart::Kind;
    if (part.kind == Row || part.kind == Column || part.kind == Frame)
        return addGroup(part, into, parent);
    QWidget* const field = part.kind == Buttons ? makeButtons(part, parent) : makeField(part, parent);
    if (!part.name.empty())
        field->setObjectName(toQt(part.name));
    nameField(part, *field);
    into.addWidget(field, part.stretches ? 1 : 0, part.kind == Icon ? Qt::AlignTop : Qt::Alignment());
    if (part.kind == Icon)
        into.addSpacing(into.spacing());
    if (part.isEnabled)
        mirrors_.emplace_back([field, part] { field->setEnabled(part.isEnabled()); });
}

void DialogWindow::addGroup(const DialogPart& part, QBoxLayout& into, QWidget* parent) {
    using enum DialogPart::Kind;
    const auto direction = part.kind == Row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    auto* const layout = new QBoxLayout(direction);
    if (part.kind == Frame) {
        auto* const frame = new QGroupBox(toQt(part.text), parent);
        frame->setLayout(layout);
        into.addWidget(frame, part.stretches ? 1 : 0);
        fill(part, *layout, frame);
    } else if (part.isVisible) {
        auto* const box = new QWidget(parent);
        box->setLayout(layout);
        layout->setContentsMargins({});
        into.addWidget(box, part.stretches ? 1 : 0);
        fill(part, *layout, box);
        mirrors_.emplace_back([box, part] { box->setVisible(part.isVisible()); });
    } else {
        into.addLayout(layout, part.stretches ? 1 : 0);
        fill(part, *layout, parent);
    }
    if (direction == QBoxLayout::TopToBottom)
        layout->addStretch();
}

/// A label before a field is its name; assistive tools may need another one.
void DialogWindow::nameField(const DialogPart& part, QWidget& field) {
    using enum DialogPart::Kind;
    if (!part.spoken.empty())
        field.setAccessibleName(toQt(part.spoken));
    if (label_ && label_ != &field) {
        label_->setBuddy(&field);
        if (part.spoken.empty())
            field.setAccessibleName(label_->text().remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    }
    const bool leads = part.kind == Label && !part.shown && !part.isCopied;
    label_ = leads ? qobject_cast<QLabel*>(&field) : nullptr;
}

int DialogWindow::widthOf(const DialogPart& part) const {
    return part.width * fontMetrics().averageCharWidth();
}

} // namespace pixmo::qt
