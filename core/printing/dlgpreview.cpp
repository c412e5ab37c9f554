#include "core/printing/dlgpreview.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pixmo {

namespace {

constexpr Size FirstSize = {640, 820};
constexpr Size LeastSize = {400, 400};
constexpr int32_t ResizeMilliseconds = 50;
constexpr int32_t PatienceMilliseconds = 200;

/// The size of a sheet that has the proportions of the printer's paper and is as large as fits into the room.
Size sheetInside(const PrinterDevice& printer, Size room) {
    const auto length = [&](DeviceCap index) { return std::max(1.0, 1.0 * printer.GetDeviceCaps(index)); };
    const double width = length(DeviceCap::PhysicalWidth);
    const double height = length(DeviceCap::PhysicalHeight);
    const double scale = std::min(room.width / width, room.height / height);
    const auto pixels = [&](double paper) {
        return std::max(1, static_cast<int32_t>(std::lround(paper * scale)));
    };
    return {pixels(width), pixels(height)};
}

} // namespace

dlgPreview::dlgPreview(PrintPreview& preview, TimerFactory& timers) : preview_(preview) {
    drawSoon_ = timers.createTimer([this] {
        drawSoon_->stop();
        drawSheet();
    });
    sayLoading_ = timers.createTimer([this] {
        sayLoading_->stop();
        if (canvas_)
            canvas_->say("Loading\u2026");
    });
    sayLoading_->setInterval(PatienceMilliseconds);
    turnTo(0);
    setFocus("cmdClose");
}

DialogDescription dlgPreview::describe() {
    using enum DialogPart::Kind;
    constexpr int16_t PageUp = 0x21;
    constexpr int16_t PageDown = 0x22;
    constexpr int16_t End = 0x23;
    constexpr int16_t Home = 0x24;
    const DialogPart sheet{.kind = Sheet,
                           .name = "sheet",
                           .stretches = true,
                           .canvas = [this](SheetCanvas* canvas, Size room) { canvasResized(canvas, room); }};
    return {.name = "dlgPreview",
            .title = PrintPreview::Caption(),
            .content = {.kind = Column, .parts = {sheet, buttons()}},
            .keys = {{PageDown, 0, [this] { turnTo(sheet_ + 1); }},
                     {PageUp, 0, [this] { turnTo(sheet_ - 1); }},
                     {Home, 0, [this] { turnTo(0); }},
                     {End, 0, [this] { turnTo(preview_.sheetCount() - 1); }}},
            .size = DialogSize{FirstSize, LeastSize}};
}

DialogPart dlgPreview::buttons() {
    using enum DialogPart::Kind;
    const DialogPart previous{.kind = Button,
                              .text = "&Previous",
                              .isEnabled = [this] { return sheet_ > 0; },
                              .clicked = [this] { turnTo(sheet_ - 1); }};
    const DialogPart next{.kind = Button,
                          .text = "&Next",
                          .isEnabled = [this] { return sheet_ + 1 < preview_.sheetCount(); },
                          .clicked = [this] { turnTo(sheet_ + 1); }};
    const DialogPart text{
        .kind = Label, .name = "sheetText", .stretches = true, .isCentred = true, .shown = [this] {
            return preview_.sheetText(sheet_);
        }};
    const DialogPart close{
        .kind = Button, .name = "cmdClose", .text = "&Close", .isDefault = true, .clicked = [this] {
            cancel();
        }};
    return {.kind = Row, .parts = {previous, next, text, close}};
}

void dlgPreview::cancel() {
    drawSoon_->stop();
    sayLoading_->stop();
    preview_.close();
    close();
}

void dlgPreview::turnTo(int32_t sheet) {
    sheet_ = preview_.nearestSheet(sheet);
    drawSoon_->setInterval(0);
    drawSoon_->start();
    sayLoading_->start();
}

void dlgPreview::canvasResized(SheetCanvas* canvas, Size room) {
    canvas_ = canvas;
    room_ = room;
    drawSoon_->setInterval(ResizeMilliseconds);
    if (canvas)
        drawSoon_->start();
}

// The page may have to be fetched first, while the window goes on living and may turn to another sheet.
void dlgPreview::drawSheet() {
    if (!canvas_ || !isOpen())
        return;
    const int32_t asked = sheet_;
    const int32_t status = drawOn(*canvas_, asked);
    if (!canvas_ || !isOpen() || asked != sheet_)
        return;
    sayLoading_->stop();
    if (status == 0)
        canvas_->showSheet();
    else
        canvas_->say("This sheet cannot be shown.");
}

/// 0, or the number of the error.
int32_t dlgPreview::drawOn(SheetCanvas& canvas, int32_t sheet) {
    const PrinterDevice* const printer = preview_.printer();
    auto device = printer ? canvas.newSheet(*printer, sheetInside(*printer, room_)) : nullptr;
    return device ? preview_.draw(sheet, std::move(device)) : -1;
}

} // namespace pixmo
