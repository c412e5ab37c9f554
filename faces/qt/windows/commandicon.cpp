#include "faces/qt/windows/commandicon.h"

#include "icons/commandicon.h"

#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <string>
#include <utility>

namespace pixmo::qt {

namespace {

/// Drawn in any size, in the palette's colour of the moment.
class CoverageEngine : public QIconEngine {
public:
    explicit CoverageEngine(std::string key) : key_(std::move(key)) {}

    QIconEngine* clone() const override { return new CoverageEngine(key_); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal ratio = painter->device()->devicePixelRatio();
        const int side = qRound(std::min(rect.width(), rect.height()) * ratio);
        QImage image = picture(side, mode);
        image.setDevicePixelRatio(ratio);
        painter->drawImage(rect.topLeft(), image);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        return QPixmap::fromImage(picture(std::min(size.width(), size.height()), mode));
    }

private:
    /// A toolbar asks for the same few at every paint.
    QImage picture(int side, QIcon::Mode mode) {
        constexpr qsizetype most = 8;
        const QColor colour = colourOf(mode);
        const std::pair wanted(side, colour.rgba());
        if (const auto kept = kept_.constFind(wanted); kept != kept_.constEnd())
            return *kept;
        if (kept_.size() >= most)
            kept_.clear();
        return *kept_.insert(wanted, drawn(side, colour));
    }

    QImage drawn(int side, const QColor& colour) const {
        const auto coverage = pixmo::commandIcon(key_, side);
        if (coverage.empty())
            return {};
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(colour);
        const QImage alpha(coverage.data(), side, side, side, QImage::Format_Alpha8);
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, alpha);
        return image;
    }

    static QColor colourOf(QIcon::Mode mode) {
        const auto palette = QGuiApplication::palette();
        if (mode == QIcon::Selected)
            return palette.color(QPalette::HighlightedText);
        return palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                             QPalette::ButtonText);
    }

    std::string key_;
    QHash<std::pair<int, QRgb>, QImage> kept_;
};

} // namespace

QIcon commandIcon(const QString& key) {
    auto name = key.toStdString();
    return hasCommandIcon(name) ? QIcon(new CoverageEngine(std::move(name))) : QIcon();
}

} // namespace pixmo::qt
