#pragma once

#include "core/base/toolbar.h"

#include <QHash>
#include <QToolBar>

namespace pixmo::qt {

/// Mirrors the control's toolbar. Its actions live as long as it does, whatever buttons are shown.
class CommandToolBar : public QToolBar {
    Q_OBJECT

public:
    explicit CommandToolBar(QWidget* parent);

    void mirror(const Toolbar& toolbar);
    /// nullptr for a key that no button ever had.
    QAction* commandAction(const QString& key) const { return actions_.value(key); }

Q_SIGNALS:
    void commandGiven(const QString& key);

private:
    void showButtons(const Toolbar& toolbar);
    QAction* makeAction(const ToolButton& button);
    static void mirrorState(const ToolButton& button, QAction& action);

    QHash<QString, QAction*> actions_;
    QStringList shownKeys_;
};

} // namespace pixmo::qt
