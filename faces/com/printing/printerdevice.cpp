#include "faces/com/printing/printerdevice.h"

#include "faces/com/base/dib.h"
#include "faces/com/base/widetext.h"

#include <utility>

namespace pixmo::com {

namespace {

/// The driver asks now and then whether the job still is to be printed. Events are handled between the pages,
/// by who prints them; a job that is aborted is told so by AbortDoc.
BOOL CALLBACK goOn(HDC, int code) noexcept {
    return code == 0 || code == SP_OUTOFDISK;
}

std::string systemText(DWORD number) {
    LPWSTR text = nullptr;
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                            FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, number, 0, reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    std::wstring wide(text ? text : L"", length);
    LocalFree(text);
    while (!wide.empty() && (wide.back() == L'\n' || wide.back() == L'\r' || wide.back() == L' '))
        wide.pop_back();
    return toUtf8(wide);
}

} // namespace

PrinterDevice::PrinterDevice(std::wstring printer, DeviceMode mode)
    : printer_(std::move(printer)), mode_(std::move(mode)),
      dc_(CreateDCW(L"WINSPOOL", printer_.c_str(), nullptr, mode_.data())) {
    prepare();
}

PrinterDevice::~PrinterDevice() {
    if (inDocument_)
        AbortDoc();
    if (dc_)
        DeleteDC(dc_);
}

void PrinterDevice::prepare() const {
    if (!dc_)
        return;
    SetBkMode(dc_, TRANSPARENT);
    SetTextAlign(dc_, TA_LEFT | TA_TOP);
    // The printer itself makes the best of pixels that are not its own.
    SetStretchBltMode(dc_, COLORONCOLOR);
}

bool PrinterDevice::reset() {
    const bool done = dc_ && ResetDCW(dc_, mode_.data()) != nullptr;
    prepare();
    return done;
}

int32_t PrinterDevice::GetDeviceCaps(DeviceCap index) const {
    return dc_ ? ::GetDeviceCaps(dc_, static_cast<int>(index)) : 0;
}

bool PrinterDevice::setPaperSize(int32_t code) {
    return mode_.setPaperSize(printer_, code) && reset();
}

bool PrinterDevice::setCopies(int32_t copies) {
    return mode_.setCopies(printer_, copies) && reset();
}

bool PrinterDevice::TextOut(int32_t x, int32_t y, const std::string& text) {
    const Selected font(dc_, selected() ? selected() : GetStockObject(SYSTEM_FONT));
    const std::wstring wide = toWide(text);
    return TextOutW(dc_, x, y, wide.c_str(), static_cast<int>(wide.size())) != 0;
}

bool PrinterDevice::drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) {
    if (picture.empty() || source.width <= 0 || source.height <= 0)
        return false;
    // No more rows are handed over than are drawn: drivers copy what they are given.
    const Dib dib = makeDib(picture, source.top, source.top + source.height);
    const int drawn = StretchDIBits(dc_, destination.left, destination.top, destination.width,
                                    destination.height, source.left, 0, source.width, source.height,
                                    dib.bits.data(), dib.info(), DIB_RGB_COLORS, SRCCOPY);
    return noted(drawn == static_cast<int>(GDI_ERROR) ? spool::Error : 1) > 0;
}

int32_t PrinterDevice::noted(int32_t result) {
    problem_ = result > 0 ? 0 : GetLastError();
    return result;
}

int32_t PrinterDevice::StartDoc(const std::string& name) {
    SetLastError(0);
    SetAbortProc(dc_, goOn);
    const std::wstring wide = toWide(name);
    DOCINFOW facts{};
    facts.cbSize = sizeof facts;
    facts.lpszDocName = wide.c_str();
    const int32_t job = noted(StartDocW(dc_, &facts));
    inDocument_ = job > 0;
    if (job > 0)
        return job;
    // A printer that prints to a file asks for its name; the user may think better of it.
    return problem_ == ERROR_CANCELLED || problem_ == ERROR_PRINT_CANCELLED ? spool::UserAbort : spool::Error;
}

// Some drivers forget at each page how they are to draw.
int32_t PrinterDevice::StartPage() {
    if (!inDocument_)
        return spool::Error;
    SetLastError(0);
    const int32_t result = noted(::StartPage(dc_));
    prepare();
    return result;
}

int32_t PrinterDevice::EndPage() {
    if (!inDocument_)
        return spool::Error;
    SetLastError(0);
    return noted(::EndPage(dc_));
}

int32_t PrinterDevice::EndDoc() {
    if (!std::exchange(inDocument_, false))
        return spool::Error;
    SetLastError(0);
    return noted(::EndDoc(dc_));
}

void PrinterDevice::AbortDoc() {
    if (std::exchange(inDocument_, false))
        ::AbortDoc(dc_);
}

std::string PrinterDevice::problem() const {
    return problem_ == 0 ? std::string() : systemText(problem_);
}

} // namespace pixmo::com
