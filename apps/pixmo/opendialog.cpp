#include "apps/pixmo/opendialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <limits>

namespace pixmo::viewer {

namespace {

constexpr int EngineColumns = 42;

QSpinBox* numberField(int value, int most, QWidget* parent) {
    auto* const field = new QSpinBox(parent);
    field->setRange(1, most);
    field->setValue(value);
    field->setAccelerated(true);
    field->selectAll();
    return field;
}

} // namespace

OpenDialog::OpenDialog(const DocumentAddress& last, QWidget* parent)
    : QDialog(parent), engine_(new QLineEdit(last.engine, this)),
      number_(numberField(last.document, std::numeric_limits<int>::max(), this)),
      page_(numberField(last.page, LastPage, this)), problem_(new QLabel(this)) {
    setWindowTitle(tr("Open Document"));
    engine_->setPlaceholderText(QStringLiteral("http://server/engine"));
    engine_->setMinimumWidth(engine_->fontMetrics().averageCharWidth() * EngineColumns);
    engine_->setInputMethodHints(Qt::ImhUrlCharactersOnly);
    auto* const form = new QFormLayout(this);
    form->addRow(tr("&Server address:"), engine_);
    form->addRow(tr("&Document number:"), number_);
    form->addRow(tr("&Page:"), page_);
    form->addRow(problem_);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel, this);
    open_ = buttons->button(QDialogButtonBox::Open);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(engine_, &QLineEdit::textChanged, this, [this] { check(); });
    if (!last.engine.isEmpty())
        number_->setFocus();
    check();
}

DocumentAddress OpenDialog::document() const {
    return {engine_->text().trimmed(), number_->value(), page_->value()};
}

void OpenDialog::check() {
    const QString address = engine_->text().trimmed();
    const bool good = isEngineAddress(address);
    open_->setEnabled(good);
    // An empty field needs no reproach, but the row keeps its height.
    problem_->setText(good || address.isEmpty() ? QStringLiteral(" ")
                                                : tr("An address begins with http:// or https://."));
}

} // namespace pixmo::viewer
