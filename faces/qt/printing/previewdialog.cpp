#include "faces/qt/printing/previewdialog.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/printing/previewdevice.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QVBoxLayout>

namespace pixmo::qt {

namespace {

constexpr QSize FirstSize(640, 820);
constexpr double ShareOfScreen = 0.9;
constexpr QSize SmallestPicture(120, 160);
constexpr int SheetMargin = 8;
constexpr int ResizeMilliseconds = 50;
constexpr int PatienceMilliseconds = 200;

QString translated(const char* text) {
    return QCoreApplication::translate("PreviewDialog", text);
}

} // namespace

PreviewDialog::PreviewDialog(PrintPreview& preview, QWidget* parent)
    : QDialog(parent), preview_(preview), picture_(new QLabel(this)), text_(new QLabel(this)),
      previous_(new QPushButton(translated("&Previous"), this)),
      next_(new QPushButton(translated("&Next"), this)) {
    setObjectName(QStringLiteral("PrintPreview"));
    setWindowTitle(translated(PrintPreview::Caption()));
    setWindowModality(Qt::WindowModal);
    picture_->setObjectName(QStringLiteral("sheet"));
    text_->setObjectName(QStringLiteral("sheetText"));
    picture_->setAlignment(Qt::AlignCenter);
    picture_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    picture_->setMinimumSize(SmallestPicture);
    picture_->setBackgroundRole(QPalette::Mid);
    picture_->setAutoFillBackground(true);
    auto* const close = new QPushButton(translated("&Close"), this);
    auto* const row = new QHBoxLayout;
    row->addWidget(previous_);
    row->addWidget(next_);
    row->addWidget(text_, 1, Qt::AlignCenter);
    row->addWidget(close);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(picture_, 1);
    layout->addLayout(row);
    connect(previous_, &QPushButton::clicked, this, [this] { turnTo(sheet_ - 1); });
    connect(next_, &QPushButton::clicked, this, [this] { turnTo(sheet_ + 1); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    drawSoon_.setSingleShot(true);
    connect(&drawSoon_, &QTimer::timeout, this, &PreviewDialog::showSheet);
    sayLoading_.setSingleShot(true);
    connect(&sayLoading_, &QTimer::timeout, this, [this] { picture_->setText(translated("Loading\u2026")); });
    resize(FirstSize.boundedTo(screen()->availableSize() * ShareOfScreen));
    turnTo(0);
}

void PreviewDialog::done(int result) {
    drawSoon_.stop();
    sayLoading_.stop();
    QDialog::done(result);
    preview_.close();
}

QImage PreviewDialog::sheet(PrintPreview& preview, int32_t number, int height) {
    if (!preview.printer())
        return {};
    QImage image = PreviewDevice::makeSheet(*preview.printer(), height);
    auto device = std::make_unique<PreviewDevice>(*preview.printer(), image);
    return preview.draw(number, std::move(device)) == 0 ? image : QImage();
}

void PreviewDialog::turnTo(int32_t sheet) {
    sheet_ = preview_.nearestSheet(sheet);
    previous_->setEnabled(sheet_ > 0);
    next_->setEnabled(sheet_ + 1 < preview_.sheetCount());
    text_->setText(toQt(preview_.sheetText(sheet_)));
    drawSoon_.start(0);
    sayLoading_.start(PatienceMilliseconds);
}

/// In device pixels: as high as fits.
int PreviewDialog::sheetHeight() const {
    const QSize frame(2 * SheetMargin, 2 * SheetMargin);
    const QSize room = (picture_->size().expandedTo(SmallestPicture) - frame) * devicePixelRatioF();
    const pixmo::PrinterDevice* const printer = preview_.printer();
    const double width = printer ? printer->GetDeviceCaps(DeviceCap::PhysicalWidth) : 1;
    const double height = printer ? printer->GetDeviceCaps(DeviceCap::PhysicalHeight) : 1;
    return qMax(1, qMin(room.height(), qRound(room.width() * height / qMax(1.0, width))));
}

// The page may have to be fetched first, while the window goes on living.
void PreviewDialog::showSheet() {
    const QPointer<PreviewDialog> alive(this);
    const int32_t asked = sheet_;
    QImage image = sheet(preview_, asked, sheetHeight());
    if (!alive || !isVisible() || asked != sheet_)
        return;
    sayLoading_.stop();
    if (image.isNull()) {
        picture_->setText(translated("This sheet cannot be shown."));
        return;
    }
    image.setDevicePixelRatio(devicePixelRatioF());
    picture_->setPixmap(QPixmap::fromImage(std::move(image)));
}

void PreviewDialog::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_PageDown:
        turnTo(sheet_ + 1);
        return;
    case Qt::Key_PageUp:
        turnTo(sheet_ - 1);
        return;
    case Qt::Key_Home:
        turnTo(0);
        return;
    case Qt::Key_End:
        turnTo(preview_.sheetCount() - 1);
        return;
    default:
        QDialog::keyPressEvent(event);
    }
}

void PreviewDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    drawSoon_.start(ResizeMilliseconds);
}

} // namespace pixmo::qt
