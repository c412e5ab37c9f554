#include "faces/qt/widget/imageview.h"
#include "faces/qt/widget/imageviewprivate.h"

// The properties: each is read from and written to the control by its name.
namespace pixmo::qt {

QString ImageView::machineName() const {
    return d_->text("MachineName");
}

QString ImageView::userLogin() const {
    return d_->text("UserLogin");
}

short ImageView::noR() const {
    return d_->get<int16_t>("NoR");
}

void ImageView::setNoR(short value) {
    d_->let("NoR", int16_t{value});
}

int ImageView::printPageCount() const {
    return d_->get<int32_t>("PrintPageCount");
}

QString ImageView::printPageSelection() const {
    return d_->text("PrintPageSelection");
}

int ImageView::docID() const {
    return d_->get<int32_t>("DocID");
}

void ImageView::setDocID(int value) {
    d_->let("DocID", int32_t{value});
}

short ImageView::page() const {
    return d_->get<int16_t>("Page");
}

void ImageView::setPage(short value) {
    d_->let("Page", int16_t{value});
}

short ImageView::pageCount() const {
    return d_->get<int16_t>("PageCount");
}

bool ImageView::dfPrintAllPages() const {
    return d_->get<bool>("DfPrintAllPages");
}

void ImageView::setDfPrintAllPages(bool value) {
    d_->let("DfPrintAllPages", bool{value});
}

ImageView::vlPaperSize ImageView::dfPrintPaperSize() const {
    return static_cast<vlPaperSize>(d_->get<int32_t>("DfPrintPaperSize"));
}

void ImageView::setDfPrintPaperSize(vlPaperSize value) {
    d_->let("DfPrintPaperSize", static_cast<int32_t>(value));
}

ImageView::vlPageNumStyle ImageView::printPageNumStyle() const {
    return static_cast<vlPageNumStyle>(d_->get<int16_t>("PrintPageNumStyle"));
}

void ImageView::setPrintPageNumStyle(vlPageNumStyle value) {
    d_->let("PrintPageNumStyle", static_cast<int16_t>(value));
}

bool ImageView::thumbsAvailable() const {
    return d_->get<bool>("ThumbsAvailable");
}

void ImageView::setThumbsAvailable(bool value) {
    d_->let("ThumbsAvailable", bool{value});
}

bool ImageView::printCancelJob() const {
    return d_->get<bool>("PrintCancelJob");
}

void ImageView::setPrintCancelJob(bool value) {
    d_->let("PrintCancelJob", bool{value});
}

short ImageView::printCapFontSize() const {
    return d_->get<int16_t>("PrintCapFontSize");
}

void ImageView::setPrintCapFontSize(short value) {
    d_->let("PrintCapFontSize", int16_t{value});
}

bool ImageView::printPageNums() const {
    return d_->get<bool>("PrintPageNums");
}

void ImageView::setPrintPageNums(bool value) {
    d_->let("PrintPageNums", bool{value});
}

QString ImageView::printImageDesc() const {
    return d_->text("PrintImageDesc");
}

void ImageView::setPrintImageDesc(const QString& value) {
    d_->let("PrintImageDesc", value.toStdString());
}

bool ImageView::printCoverSheet() const {
    return d_->get<bool>("PrintCoverSheet");
}

void ImageView::setPrintCoverSheet(bool value) {
    d_->let("PrintCoverSheet", bool{value});
}

QString ImageView::printUserName() const {
    return d_->text("PrintUserName");
}

void ImageView::setPrintUserName(const QString& value) {
    d_->let("PrintUserName", value.toStdString());
}

QString ImageView::printItemDesc() const {
    return d_->text("PrintItemDesc");
}

void ImageView::setPrintItemDesc(const QString& value) {
    d_->let("PrintItemDesc", value.toStdString());
}

QString ImageView::printFee() const {
    return d_->text("PrintFee");
}

void ImageView::setPrintFee(const QString& value) {
    d_->let("PrintFee", value.toStdString());
}

QString ImageView::delimiter() const {
    return d_->text("Delimiter");
}

void ImageView::setDelimiter(const QString& value) {
    d_->let("Delimiter", value.toStdString());
}

QString ImageView::publicKey() const {
    return d_->text("PublicKey");
}

void ImageView::setPublicKey(const QString& value) {
    d_->let("PublicKey", value.toStdString());
}

int ImageView::encBytes() const {
    return d_->get<int32_t>("EncBytes");
}

void ImageView::setEncBytes(int value) {
    d_->let("EncBytes", int32_t{value});
}

QString ImageView::printCaption() const {
    return d_->text("PrintCaption");
}

void ImageView::setPrintCaption(const QString& value) {
    d_->let("PrintCaption", value.toStdString());
}

QString ImageView::engineAddress() const {
    return d_->text("EngineAddress");
}

void ImageView::setEngineAddress(const QString& value) {
    d_->let("EngineAddress", value.toStdString());
}

int ImageView::fetchDelay() const {
    return d_->get<int32_t>("FetchDelay");
}

void ImageView::setFetchDelay(int value) {
    d_->let("FetchDelay", int32_t{value});
}

int ImageView::resizeDelay() const {
    return d_->get<int32_t>("ResizeDelay");
}

void ImageView::setResizeDelay(int value) {
    d_->let("ResizeDelay", int32_t{value});
}

short ImageView::borderStyle() const {
    return d_->get<int16_t>("BorderStyle");
}

void ImageView::setBorderStyle(short value) {
    d_->let("BorderStyle", int16_t{value});
}

int ImageView::minLogLevel() const {
    return d_->get<int32_t>("MinLogLevel");
}

void ImageView::setMinLogLevel(int value) {
    d_->let("MinLogLevel", int32_t{value});
}

QString ImageView::logFileName() const {
    return d_->text("LogFileName");
}

void ImageView::setLogFileName(const QString& value) {
    d_->let("LogFileName", value.toStdString());
}

bool ImageView::bookmarkAvailable() const {
    return d_->get<bool>("BookmarkAvailable");
}

void ImageView::setBookmarkAvailable(bool value) {
    d_->let("BookmarkAvailable", bool{value});
}

uint ImageView::backColor() const {
    return d_->get<Colour>("BackColor").value;
}

void ImageView::setBackColor(uint value) {
    d_->let("BackColor", Colour{value});
}

uint ImageView::foreColor() const {
    return d_->get<Colour>("ForeColor").value;
}

void ImageView::setForeColor(uint value) {
    d_->let("ForeColor", Colour{value});
}

bool ImageView::isControlEnabled() const {
    return d_->get<bool>("Enabled");
}

void ImageView::setControlEnabled(bool value) {
    d_->let("Enabled", bool{value});
}

QFont ImageView::controlFont() const {
    return d_->font();
}

void ImageView::setControlFont(const QFont& value) {
    d_->let("Font", d_->toFont(value));
}

} // namespace pixmo::qt
