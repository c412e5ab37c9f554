#pragma once

#include "core/base/toolbar.h"
#include "core/control/menus.h"

#include <QHash>
#include <QToolBar>
#include <functional>

namespace pixmo::qt {

/// Mirrors the control's toolbar. Its actions live as long as it does, whatever buttons are shown.
class CommandToolbar : public QToolBar {
    Q_OBJECT

public:
    explicit CommandToolbar(QWidget* parent);

    void mirror(const Toolbar& toolbar);
    /// The menu of the right mouse button, and who runs what is chosen.
    void setMenu(std::function<std::vector<MenuItem>()> menu,
                 std::function<void(const std::string& key)> run);
    /// nullptr for a key that no button ever had.

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

Q_SIGNALS:
    void commandGiven(const QString& key);

private:
    void showButtons(const Toolbar& toolbar);
    QAction* makeAction(const ToolButton& button);
    static void mirrorState(const ToolButton& button, QAction& action);

    QHash<QString, QAction*> actions_;
    std::function<std::vector<MenuItem>()> menu_;
    std::function<void(const std::string& key)> run_;
    QStringList shownKeys_;
};

} // namespace pixmo::qt
