#include "faces/qt/printing/printdialog.h"

#include "faces/qt/ports/texts.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace pixmo::qt {

namespace {

constexpr int ShownNameLength = 48; ///< characters of usual width

QString translated(const char* text) {
    return QCoreApplication::translate("PrintDialog", text);
}

QRadioButton* addOption(QButtonGroup& group, QLayout& layout, const char* text, int index) {
    auto* const option = new QRadioButton(translated(text));
    group.addButton(option, index);
    layout.addWidget(option);
    return option;
}

/// The chosen option is the one that Tab comes to.
void choose(const QButtonGroup& group, int index) {
    group.button(index)->setChecked(true);
    for (QAbstractButton* const option : group.buttons())
        option->setFocusPolicy(option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace

PrintDialog::PrintDialog(dlgPrint& state, QWidget* parent)
    : QDialog(parent), state_(state), connection_(state.Changed.connect([this] { mirror(); })),
      more_(new QWidget(this)) {
    setObjectName(QStringLiteral("dlgPrint"));
    setWindowTitle(translated(dlgPrint::Caption()));
    setWindowModality(Qt::WindowModal);
    auto* const printer = new QHBoxLayout;
    lblPrinterName_ = new QLabel(this);
    lblPrinterName_->setObjectName(QStringLiteral("lblPrinterName"));
    lblPrinterName_->setTextFormat(Qt::PlainText);
    printer->addWidget(new QLabel(translated("Current Printer:"), this));
    printer->addWidget(lblPrinterName_, 1);
    auto* const options = new QHBoxLayout(more_);
    options->setContentsMargins({});
    options->addWidget(makeRange());
    auto* const right = new QVBoxLayout;
    right->addWidget(makeSize());
    right->addWidget(makeCopies());
    right->addStretch();
    options->addLayout(right);
    auto* const layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(printer);
    layout->addLayout(makeButtons());
    layout->addWidget(more_);
    mirror();
}

PrintDialog::~PrintDialog() {
    state_.Changed.disconnect(connection_);
}

QGroupBox* PrintDialog::makeRange() {
    auto* const frame = new QGroupBox(translated("Page Range"), more_);
    auto* const layout = new QVBoxLayout(frame);
    addOption(optPrintType_, *layout, "&All Pages", AllPages);
    addOption(optPrintType_, *layout, "C&urrent Page", CurrentPage);
    addOption(optPrintType_, *layout, "&Selected Pages", SelectedPages);
    layout->addWidget(makePageBoxes(addOption(optPrintType_, *layout, "Page", PageRange)));
    lblSelectedPages_ = new QLabel(translated("Pages to print"), frame);
    lstSelectedPages_ = new QListWidget(frame);
    lstSelectedPages_->setObjectName(QStringLiteral("lstSelectedPages"));
    lstSelectedPages_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstSelectedPages_->setUniformItemSizes(true);
    lblSelectedPages_->setBuddy(lstSelectedPages_);
    for (const std::string& entry : state_.lstSelectedPages())
        lstSelectedPages_->addItem(toQt(entry));
    for (int row = 0; row < lstSelectedPages_->count(); ++row)
        lstSelectedPages_->item(row)->setSelected(state_.isPageSelected(static_cast<int16_t>(row + 1)));
    layout->addWidget(lblSelectedPages_);
    layout->addWidget(lstSelectedPages_, 1);
    layout->addStretch();
    connect(&optPrintType_, &QButtonGroup::idClicked, this,
            [this](int index) { state_.optPrintType_Click(static_cast<int16_t>(index)); });
    connect(lstSelectedPages_, &QListWidget::itemSelectionChanged, this, [this] {
        for (int row = 0; row < lstSelectedPages_->count(); ++row)
            state_.lstSelectedPages_Click(static_cast<int16_t>(row + 1),
                                          lstSelectedPages_->item(row)->isSelected());
    });
    return frame;
}

QWidget* PrintDialog::makePageBoxes(QWidget* option) {
    auto* const boxes = new QWidget(more_);
    auto* const row = new QHBoxLayout(boxes);
    row->setContentsMargins(option->sizeHint().height(), 0, 0, 0);
    txtFromPage_ = new QLineEdit(toQt(state_.txtFromPage()), boxes);
    txtFromPage_->setObjectName(QStringLiteral("txtFromPage"));
    txtFromPage_->setAccessibleName(translated("First page"));
    txtToPage_ = new QLineEdit(toQt(state_.txtToPage()), boxes);
    txtToPage_->setObjectName(QStringLiteral("txtToPage"));
    txtToPage_->setAccessibleName(translated("Last page"));
    row->addWidget(txtFromPage_);
    row->addWidget(new QLabel(translated("thru"), boxes));
    row->addWidget(txtToPage_);
    connect(txtFromPage_, &QLineEdit::textEdited, this,
            [this](const QString& text) { state_.txtFromPage_Change(text.toStdString()); });
    connect(txtToPage_, &QLineEdit::textEdited, this,
            [this](const QString& text) { state_.txtToPage_Change(text.toStdString()); });
    return boxes;
}

QGroupBox* PrintDialog::makeSize() {
    auto* const frame = new QGroupBox(translated("Print Size"), more_);
    auto* const layout = new QVBoxLayout(frame);
    addOption(optImageScale_, *layout, "&Fit to Page", FitToPage);
    addOption(optImageScale_, *layout, "Print Full &Size (100%)", FullSize);
    addOption(optImageScale_, *layout, "Print &Current View Only", CurrentView);
    connect(&optImageScale_, &QButtonGroup::idClicked, this,
            [this](int index) { state_.optImageScale_Click(static_cast<int16_t>(index)); });
    return frame;
}

QGroupBox* PrintDialog::makeCopies() {
    auto* const frame = new QGroupBox(translated("Copies"), more_);
    auto* const layout = new QVBoxLayout(frame);
    txtPrntCopies_ = new QSpinBox(frame);
    txtPrntCopies_->setObjectName(QStringLiteral("txtPrntCopies"));
    txtPrntCopies_->setAccessibleName(translated("Copies"));
    txtPrntCopies_->setRange(1, dlgPrint::MostCopies);
    layout->addWidget(txtPrntCopies_);
    connect(txtPrntCopies_, &QSpinBox::valueChanged, this,
            [this](int copies) { state_.hscPrntCopies_Change(copies); });
    return frame;
}

QPushButton* PrintDialog::addButton(QLayout& row, const QString& text, const std::function<void()>& clicked) {
    auto* const button = new QPushButton(text, this);
    row.addWidget(button);
    connect(button, &QPushButton::clicked, this, clicked);
    return button;
}

QLayout* PrintDialog::makeButtons() {
    auto* const row = new QHBoxLayout;
    addButton(*row, translated("&Print"), [this] { state_.cmdPrint_Click(); })->setDefault(true);
    addButton(*row, translated("&Cancel"), [this] { state_.cmdCancel_Click(); });
    addButton(*row, translated("P&rinters..."), [this] { state_.cmdSelectPrinter_Click(); });
    addButton(*row, translated("Pre&view..."), [this] { state_.cmdPreview_Click(); });
    cmdOptions_ =
        addButton(*row, translated(state_.cmdOptionsCaption()), [this] { state_.cmdOptions_Click(); });
    return row;
}

/// A name may be longer than the window is to be wide.
void PrintDialog::showPrinterName() {
    const QString name = toQt(state_.lblPrinterName());
    const QFontMetrics metrics(lblPrinterName_->font());
    const int width = metrics.averageCharWidth() * ShownNameLength;
    const QString shown = metrics.elidedText(name, Qt::ElideMiddle, width);
    lblPrinterName_->setText(shown);
    lblPrinterName_->setToolTip(shown == name ? QString() : name);
}

void PrintDialog::mirror() {
    if (!state_.isOpen()) {
        done(state_.Cancelled() ? Rejected : Accepted);
        return;
    }
    const QSignalBlocker quietCopies(txtPrntCopies_);
    choose(optPrintType_, state_.optPrintType());
    choose(optImageScale_, state_.optImageScale());
    lblSelectedPages_->setVisible(state_.isPageListVisible());
    lstSelectedPages_->setVisible(state_.isPageListVisible());
    txtPrntCopies_->setValue(state_.hscPrntCopies());
    showPrinterName();
    cmdOptions_->setText(translated(state_.cmdOptionsCaption()));
    more_->setVisible(state_.isMoreShown());
}

} // namespace pixmo::qt
