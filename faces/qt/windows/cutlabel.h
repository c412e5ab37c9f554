#pragma once

#include <QLabel>

namespace pixmo::qt {

/// A line that is cut in its middle where there is too little room; a tip tells the whole then.
class CutLabel : public QLabel {
    Q_OBJECT

public:
    explicit CutLabel(QWidget* parent);

    void setWhole(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QString whole_;
};

} // namespace pixmo::qt
