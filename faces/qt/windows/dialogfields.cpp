#include "faces/qt/ports/texts.h"
#include "faces/qt/printing/sheetview.h"
#include "faces/qt/windows/cutlabel.h"
#include "faces/qt/windows/dialogwindow.h"
#include "faces/qt/windows/filteredit.h"
#include "faces/qt/windows/programicon.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>

namespace pixmo::qt {

namespace {

QDialogButtonBox::StandardButton standardButton(DialogPart::Meaning meaning) {
    switch (meaning) {
    case DialogPart::Meaning::Ok:
        return QDialogButtonBox::Ok;
    case DialogPart::Meaning::Cancel:
        return QDialogButtonBox::Cancel;
    case DialogPart::Meaning::Close:
        return QDialogButtonBox::Close;
    case DialogPart::Meaning::None:
        break;
    }
    return QDialogButtonBox::NoButton;
}

void showSelection(QPlainTextEdit& edit, const std::string& text, TextRange range) {
    const auto place = [&text](size_t at) { return static_cast<int>(toQt(text.substr(0, at)).size()); };
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(place(range.begin));
    cursor.setPosition(place(range.end), QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
    if (range == TextRange{text.size(), text.size()}) {
        edit.verticalScrollBar()->setValue(edit.verticalScrollBar()->maximum());
        edit.horizontalScrollBar()->setValue(0);
    }
}

TextRange selectionOf(const QPlainTextEdit& edit) {
    const QString text = edit.toPlainText();
    const auto place = [&text](int at) { return static_cast<size_t>(text.left(at).toUtf8().size()); };
    const QTextCursor cursor = edit.textCursor();
    return {place(cursor.selectionStart()), place(cursor.selectionEnd())};
}

} // namespace

QWidget* DialogWindow::makeField(const DialogPart& part, QWidget* parent) {
    switch (part.kind) {
    case DialogPart::Kind::Lines:
        return makeLines(part, parent);
    case DialogPart::Kind::Icon:
        return makeIcon(part, parent);
    case DialogPart::Kind::Text:
        return makeText(part, parent);
    case DialogPart::Kind::Number:
        return makeNumber(part, parent);
    case DialogPart::Kind::Option:
        return makeOption(part, parent);
    case DialogPart::Kind::List:
        return makeList(part, parent);
    case DialogPart::Kind::Button:
        return makeButton(part, parent);
    case DialogPart::Kind::ScrolledText:
        return makeScrolledText(part, parent);
    case DialogPart::Kind::Sheet:
        return new SheetView(part.canvas, parent);
    default:
        return part.isCut ? makeCutLabel(part, parent) : makeLabel(part, parent);
    }
}

QWidget* DialogWindow::makeButtons(const DialogPart& part, QWidget* parent) {
    auto* const box = new QDialogButtonBox(parent);
    bool hasDefault = false;
    for (const DialogPart& each : part.parts) {
        const auto standard = standardButton(each.meaning);
        QPushButton* const button = standard == QDialogButtonBox::NoButton
                                        ? box->addButton(toQt(each.text), QDialogButtonBox::ActionRole)
                                        : box->addButton(standard);
        button->setObjectName(toQt(each.name));
        button->setDefault(each.isDefault);
        hasDefault = hasDefault || each.isDefault;
        connect(button, &QPushButton::clicked, this, [this, each] { act(each.clicked); });
    }
    // Where another button is the default one, Enter presses that, whatever has the focus.
    for (QAbstractButton* const button : box->buttons())
        static_cast<QPushButton*>(button)->setAutoDefault(hasDefault);
    return box;
}

QWidget* DialogWindow::makeCutLabel(const DialogPart& part, QWidget* parent) {
    auto* const label = new CutLabel(parent);
    if (part.isCopied)
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mirrors_.emplace_back([label, part] { label->setWhole(toQt(part.textNow())); });
    return label;
}

QWidget* DialogWindow::makeLabel(const DialogPart& part, QWidget* parent) {
    auto* const label = new QLabel(toQt(part.text), parent);
    label->setTextFormat(Qt::PlainText);
    if (part.isCentred)
        label->setAlignment(Qt::AlignCenter);
    if (part.isCopied)
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (part.kind == DialogPart::Kind::Heading) {
        QFont large = label->font();
        large.setPointSizeF(large.pointSizeF() * DialogHeadingScale);
        large.setBold(true);
        label->setFont(large);
    }
    if (part.shown)
        mirrors_.emplace_back([label, part] { label->setText(toQt(part.shown())); });
    return label;
}

QWidget* DialogWindow::makeLines(const DialogPart& part, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(linesToQt(part.text));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setWordWrap(true);
    label->setFixedWidth(widthOf(part));
    return label;
}

QWidget* DialogWindow::makeIcon(const DialogPart&, QWidget* parent) {
    auto* const icon = new QLabel(parent);
    icon->setPixmap(programIcon().pixmap({DialogIconSize, DialogIconSize}, devicePixelRatioF()));
    return icon;
}

QWidget* DialogWindow::makeText(const DialogPart& part, QWidget* parent) {
    auto* const edit = new FilterEdit(part.keyPress, part.selectsAll, parent);
    if (part.width > 0)
        edit->setMinimumWidth(widthOf(part));
    else
        edit->setClearButtonEnabled(true);
    connect(edit, &QLineEdit::textChanged, this, [this, part](const QString& text) {
        if (text != toQt(part.shown()))
            act([&] { part.changed(text.toStdString()); });
    });
    mirrors_.emplace_back([edit, part] {
        if (const QString text = toQt(part.shown()); text != edit->text())
            edit->setText(text);
    });
    return edit;
}

QWidget* DialogWindow::makeNumber(const DialogPart& part, QWidget* parent) {
    auto* const box = new QSpinBox(parent);
    box->setRange(1, part.most);
    connect(box, &QSpinBox::valueChanged, this,
            [this, part](int value) { act([&] { part.changed(std::to_string(value)); }); });
    mirrors_.emplace_back([box, part] {
        const QSignalBlocker quiet(box);
        box->setValue(toQt(part.shown()).toInt());
    });
    return box;
}

/// The chosen option is the one that Tab comes to.
QWidget* DialogWindow::makeOption(const DialogPart& part, QWidget* parent) {
    auto* const option = new QRadioButton(toQt(part.text), parent);
    connect(option, &QRadioButton::clicked, this, [this, part] { act(part.clicked); });
    mirrors_.emplace_back([option, part] {
        if (part.isChosen())
            option->setChecked(true);
        option->setFocusPolicy(part.isChosen() ? Qt::StrongFocus : Qt::ClickFocus);
    });
    return option;
}

QWidget* DialogWindow::makeList(const DialogPart& part, QWidget* parent) {
    auto* const list = new QListWidget(parent);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setUniformItemSizes(true);
    for (const std::string& entry : part.entries)
        list->addItem(toQt(entry));
    for (int row = 0; row < list->count(); ++row)
        list->item(row)->setSelected(part.isSelected(static_cast<size_t>(row)));
    connect(list, &QListWidget::itemSelectionChanged, this, [this, list, part] {
        act([&] {
            for (int row = 0; row < list->count(); ++row)
                part.select(static_cast<size_t>(row), list->item(row)->isSelected());
        });
    });
    return list;
}

QWidget* DialogWindow::makeButton(const DialogPart& part, QWidget* parent) {
    auto* const button = new QPushButton(toQt(part.text), parent);
    button->setDefault(part.isDefault);
    connect(button, &QPushButton::clicked, this, [this, part] { act(part.clicked); });
    if (part.shown)
        mirrors_.emplace_back([button, part] { button->setText(toQt(part.shown())); });
    return button;
}

QWidget* DialogWindow::makeScrolledText(const DialogPart& part, QWidget* parent) {
    auto* const edit = new QPlainTextEdit(parent);
    edit->setReadOnly(true);
    edit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    reports_.emplace_back([edit, part] { part.selected(selectionOf(*edit)); });
    mirrors_.emplace_back([edit, part, last = std::string()]() mutable {
        if (const std::string text = part.shown(); text != last) {
            edit->setPlainText(toQt(text));
            last = text;
        }
        showSelection(*edit, last, part.selection());
    });
    return edit;
}

} // namespace pixmo::qt
