#include "faces/qt/commandicon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <algorithm>
#include <array>
#include <utility>

namespace pixmo::qt {

namespace {

constexpr double Grid = 24;
constexpr double LineWidth = 1.8;

/// Drawings on a grid of 24 by 24: M and L take a point, Z closes, A takes centre, radius, and the start
/// and the span of an arc in degrees.
constexpr std::array<std::pair<const char*, const char*>, 17> Drawings = {{
    {"THUMBS", "M 4 4 L 10 4 L 10 10 L 4 10 Z M 14 4 L 20 4 L 20 10 L 14 10 Z "
               "M 4 14 L 10 14 L 10 20 L 4 20 Z M 14 14 L 20 14 L 20 20 L 14 20 Z"},
    {"PRINT", "M 7 9 L 7 3 L 17 3 L 17 9 M 7 17 L 3 17 L 3 9 L 21 9 L 21 17 L 17 17 "
              "M 7 14 L 17 14 L 17 21 L 7 21 Z"},
    {"QUICKPRINT",
     "M 7 9 L 7 3 L 17 3 L 17 9 M 7 17 L 3 17 L 3 9 L 21 9 L 21 12 "
     "M 7 17 L 7 14 L 13 14 M 7 17 L 7 21 L 11 21 M 18 12 L 13 18 L 17 18 L 15 23 L 21 16 L 17 16 Z"},
    {"CANCEL", "A 12 12 9 0 360 M 8.5 8.5 L 15.5 15.5 M 15.5 8.5 L 8.5 15.5"},
    {"PAN", "M 12 2 L 12 22 M 2 12 L 22 12 M 9 5 L 12 2 L 15 5 M 9 19 L 12 22 L 15 19 "
            "M 5 9 L 2 12 L 5 15 M 19 9 L 22 12 L 19 15"},
    {"SELECTION", "A 10 10 7 0 360 M 15 15 L 21.5 21.5 M 7 10 L 13 10 M 10 7 L 10 13"},
    {"ROTL", "A 12 13 8 110 -290 M 10 1.5 L 8 5.6 L 12 8.5"},
    {"ROTR", "A 12 13 8 70 290 M 14 1.5 L 16 5.6 L 12 8.5"},
    {"PAGEPREV", "M 15 4 L 7 12 L 15 20"},
    {"PAGENEXT", "M 9 4 L 17 12 L 9 20"},
    {"PAGEGOTO", "M 6 2.5 L 14 2.5 L 18 6.5 L 18 21.5 L 6 21.5 Z M 2 12 L 12 12 M 9 9 L 12 12 L 9 15"},
    {"FITHEIGHT", "M 3 2.5 L 21 2.5 M 3 21.5 L 21 21.5 M 12 5.5 L 12 18.5 M 9 8.5 L 12 5.5 L 15 8.5 "
                  "M 9 15.5 L 12 18.5 L 15 15.5"},
    {"FITWIDTH", "M 2.5 3 L 2.5 21 M 21.5 3 L 21.5 21 M 5.5 12 L 18.5 12 M 8.5 9 L 5.5 12 L 8.5 15 "
                 "M 15.5 9 L 18.5 12 L 15.5 15"},
    {"STAR", "M 6 3 L 18 3 L 18 21 L 12 16 L 6 21 Z"},
    {"LARGER", "M 4 3 L 20 3 L 20 21 L 4 21 Z M 8 12 L 16 12 M 12 8 L 12 16"},
    {"SMALLER", "M 6.5 6 L 17.5 6 L 17.5 20 L 6.5 20 Z M 9.5 13 L 14.5 13"},
    {"SELECTALL",
     "M 3 3 L 10 3 L 10 10 L 3 10 Z M 14 3 L 21 3 L 21 10 L 14 10 Z M 3 14 L 10 14 L 10 21 L 3 21 Z "
     "M 13.5 17.5 L 16.5 20.5 L 21.5 14.5"},
}};

QPainterPath parse(const QStringList& words) {
    QPainterPath path;
    for (qsizetype at = 0; at < words.size();) {
        const auto number = [&](int offset) { return words.value(at + offset).toDouble(); };
        const QString& command = words.at(at);
        if (command == QLatin1String("M")) {
            path.moveTo(number(1), number(2));
            at += 3;
        } else if (command == QLatin1String("L")) {
            path.lineTo(number(1), number(2));
            at += 3;
        } else if (command == QLatin1String("A")) {
            const QRectF box(number(1) - number(3), number(2) - number(3), 2 * number(3), 2 * number(3));
            path.arcMoveTo(box, number(4));
            path.arcTo(box, number(4), number(5));
            at += 6;
        } else {
            path.closeSubpath();
            ++at;
        }
    }
    return path;
}

class DrawingEngine : public QIconEngine {
public:
    explicit DrawingEngine(QPainterPath path) : path_(std::move(path)) {}

    QIconEngine* clone() const override { return new DrawingEngine(path_); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor colour = QGuiApplication::palette().color(group, QPalette::ButtonText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / Grid, rect.height() / Grid);
        painter->setPen(QPen(colour, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(path_);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

private:
    QPainterPath path_;
};

} // namespace

QIcon commandIcon(const QString& key) {
    const auto found = std::find_if(Drawings.begin(), Drawings.end(), [&key](const auto& drawing) {
        return key == QLatin1String(drawing.first);
    });
    if (found == Drawings.end())
        return {};
    return QIcon(new DrawingEngine(parse(QString::fromLatin1(found->second).split(QLatin1Char(' ')))));
}

} // namespace pixmo::qt
