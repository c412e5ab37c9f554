#include "faces/qt/widget/imageview.h"

#include "faces/qt/widget/imageviewprivate.h"

#include <QMouseEvent>
#include <QPainter>

namespace pixmo::qt {

namespace {

constexpr QSize UsualSize(800, 600);
constexpr int LeastWidth = 160;
constexpr int LeastViewHeight = 80;

} // namespace

ImageView::ImageView(QWidget* parent) : QWidget(parent), d_(std::make_unique<ImageViewPrivate>(*this)) {
    setAccessibleName(tr("Document viewer"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

ImageView::~ImageView() = default;

void ImageView::setNetworkAccessManager(QNetworkAccessManager* network) {
    d_->reader().setNetworkAccessManager(network);
}

void ImageView::setStallTimeout(int milliseconds) {
    d_->reader().limits().stallMilliseconds = milliseconds;
}

void ImageView::setUnattended(bool unattended) {
    d_->messageBox().setUnattended(unattended);
}

QAction* ImageView::action(const QString& key) const {
    return d_->action(key);
}

void ImageView::setCommandForbidden(const QString& key, bool forbidden) {
    d_->setForbidden(key.toStdString(), forbidden);
}

void ImageView::setToolbarShown(bool shown) {
    d_->control()->commands().toolbarShown = shown;
    d_->relayout(false);
}

void ImageView::setMenusShown(bool shown) {
    d_->control()->commands().menusShown = shown;
}

QString ImageView::readOut() const {
    return toQt(d_->control()->txtPage());
}

QString ImageView::notice() const {
    return linesToQt(d_->control()->viewNotice());
}

bool ImageView::isPageDisplayed() const {
    return d_->control()->isPageDisplayed();
}

bool ImageView::isIdle() const {
    return d_->control()->isIdle();
}

QSize ImageView::sizeHint() const {
    return UsualSize;
}

QSize ImageView::minimumSizeHint() const {
    return {LeastWidth, d_->barsHeight() + LeastViewHeight};
}

void ImageView::Refresh() {
    update();
    d_->control()->Refresh();
}

void ImageView::clearCache() {
    d_->control()->clearCache();
}

void ImageView::Clear() {
    d_->control()->Clear();
}

int ImageView::PrintToFile(const QString& FileName, const QList<short>& Pages, bool FullSize) {
    return d_->printToFile(FileName, Pages, FullSize);
}

void ImageView::LoadDocumentByDocID(int DocID, int PageNum) {
    d_->load(DocID, PageNum);
}

void ImageView::GetLastError(int& Number, QString& Source, QString& Description, QString& HelpFile,
                             int& HelpContext) const {
    std::string source;
    std::string description;
    std::string helpFile;
    d_->control()->GetLastError(Number, source, description, helpFile, HelpContext);
    Source = toQt(source);
    Description = linesToQt(description);
    HelpFile = toQt(helpFile);
}

void ImageView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (!d_)
        return;
    if (event->type() == QEvent::EnabledChange)
        d_->followEnabled();
    else if (event->type() == QEvent::PaletteChange)
        d_->applyColours();
    else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        d_->relayout(false);
}

void ImageView::mouseDoubleClickEvent(QMouseEvent*) {
    d_->control()->UserControl_DblClick();
}

void ImageView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        d_->control()->UserControl_Click();
}

void ImageView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    d_->paintBorder(painter);
}

void ImageView::resizeEvent(QResizeEvent*) {
    d_->relayout(true);
}

} // namespace pixmo::qt
