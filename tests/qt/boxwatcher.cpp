#include "tests/qt/boxwatcher.h"

#include <QApplication>
#include <QPushButton>

namespace pixmo::qt {

BoxWatcher::BoxWatcher() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(5);
}

void BoxWatcher::look() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* const box = qobject_cast<QMessageBox*>(widget);
        if (!box || !box->isVisible() || box->property("seen").toBool())
            continue;
        box->setProperty("seen", true);
        texts_.append(box->detailedText().isEmpty() ? box->text() : box->detailedText());
        if (act)
            act(*box);
        else
            box->defaultButton()->click();
        return;
    }
}

} // namespace pixmo::qt
