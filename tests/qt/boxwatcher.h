#pragma once

#include <QMessageBox>
#include <QStringList>
#include <QTimer>
#include <functional>

namespace pixmo::qt {

/// Sees every message box that opens, keeps its text and presses its default button.
class BoxWatcher {
public:
    BoxWatcher();

    const QStringList& texts() const { return texts_; }
    /// Replaces the press.
    std::function<void(QMessageBox&)> act;

private:
    void look();

    QTimer timer_;
    QStringList texts_;
};

} // namespace pixmo::qt
