#pragma once

#include "core/platform/dialog.h"

#include <QImage>
#include <QLabel>
#include <functional>
#include <memory>

namespace pixmo::qt {

/// Where a preview shows its sheet.
class SheetView : public QLabel, public SheetCanvas {
    Q_OBJECT

public:
    using Resized = std::function<void(SheetCanvas*, Size)>;

    SheetView(Resized resized, QWidget* parent);
    ~SheetView() override { resized_(nullptr, {}); }
    SheetView(const SheetView&) = delete;
    SheetView& operator=(const SheetView&) = delete;

    std::unique_ptr<pixmo::PrinterDevice> newSheet(const pixmo::PrinterDevice& printer, Size size) override;
    void showSheet() override;
    void say(const std::string& text) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Resized resized_;
    std::shared_ptr<QImage> sheet_;
};

} // namespace pixmo::qt
