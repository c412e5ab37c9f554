#include "faces/qt/windows/gotodialog.h"

#include "core/dialogs/dlggotopage.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/pagenumberedit.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace pixmo::qt {

namespace {

/// The title stays readable.
constexpr int LeastWidth = 260;

} // namespace

GotoDialog::GotoDialog(const dlgGotoPage& dialog, QWidget* parent)
    : SmallWindow(tr("Go to Page"), parent), number_(new PageNumberEdit(this)) {
    const QString label = toQt(dialog.lblPageNumber());
    number_->setObjectName(QStringLiteral("txtPageNumber"));
    number_->setText(toQt(dialog.txtPageNumber()));
    number_->setAccessibleName(QString(label).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    auto* const caption = new QLabel(label, this);
    caption->setObjectName(QStringLiteral("lblPageNumber"));
    caption->setBuddy(number_);
    auto* const field = new QHBoxLayout;
    field->addWidget(caption);
    field->addWidget(number_, 1);
    auto* const buttons = makeButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(field);
    layout->addSpacing(layout->spacing());
    layout->addWidget(buttons);
    setMinimumWidth(LeastWidth);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    number_->setFocus();
}

QString GotoDialog::number() const {
    return number_->text();
}

} // namespace pixmo::qt
