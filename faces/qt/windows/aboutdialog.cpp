#include "faces/qt/windows/aboutdialog.h"

#include "core/base/product.h"
#include "core/dialogs/dlgabout.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/programicon.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

namespace pixmo::qt {

namespace {

constexpr int IconSize = 64;
constexpr int TextWidth = 300;

QLabel* plainText(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

} // namespace

AboutDialog::AboutDialog(const dlgAbout& dialog, QWidget* parent)
    : SmallWindow(toQt(dialog.Caption()), parent) {
    auto* const buttons = makeButtons(QDialogButtonBox::Ok);
    auto* const layout = new QGridLayout(this);
    layout->setHorizontalSpacing(2 * layout->horizontalSpacing());
    layout->addWidget(makeIcon(), 0, 0, Qt::AlignTop);
    layout->addWidget(dialog.isImageInformation() ? makeInformation(dialog) : makeAbout(dialog), 0, 1);
    layout->addWidget(buttons, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    if (dialog.isImageInformation()) {
        QPushButton* const copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
        connect(copy, &QPushButton::clicked, this,
                [text = linesToQt(dialog.lblInformation())] { QGuiApplication::clipboard()->setText(text); });
    }
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

QWidget* AboutDialog::makeIcon() {
    auto* const icon = new QLabel(this);
    icon->setPixmap(programIcon().pixmap({IconSize, IconSize}, devicePixelRatioF()));
    icon->setAccessibleName(tr("Program icon"));
    return icon;
}

QWidget* AboutDialog::makeAbout(const dlgAbout& dialog) {
    auto* const texts = new QWidget(this);
    auto* const title = plainText(toQt(product::Title), texts);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    title->setFont(large);
    auto* const description = plainText(toQt(dialog.lblDescription()), texts);
    description->setObjectName(QStringLiteral("lblDescription"));
    description->setWordWrap(true);
    description->setFixedWidth(TextWidth);
    auto* const version = plainText(toQt(dialog.lblVersion()), texts);
    version->setObjectName(QStringLiteral("lblVersion"));
    auto* const layout = new QVBoxLayout(texts);
    layout->setContentsMargins({});
    layout->addWidget(title);
    layout->addWidget(version);
    layout->addSpacing(layout->spacing());
    layout->addWidget(description);
    layout->addStretch();
    return texts;
}

QWidget* AboutDialog::makeInformation(const dlgAbout& dialog) {
    auto* const information = plainText(linesToQt(dialog.lblInformation()), this);
    information->setObjectName(QStringLiteral("lblInformation"));
    information->setAccessibleName(toQt(dialog.Caption()));
    information->setMinimumWidth(TextWidth - IconSize);
    return information;
}

} // namespace pixmo::qt
