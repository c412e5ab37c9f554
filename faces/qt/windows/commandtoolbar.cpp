#include "faces/qt/windows/commandtoolbar.h"

#include "core/base/partnames.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/commandicon.h"
#include "faces/qt/windows/popupmenu.h"

#include <QAction>
#include <QContextMenuEvent>
#include <utility>

namespace pixmo::qt {

CommandToolbar::CommandToolbar(QWidget* parent) : QToolBar(parent) {
    setObjectName(QStringLiteral("tlbImage"));
    setMovable(false);
    setFloatable(false);
    setAccessibleName(toQt(part_name::PageCommands));
}

void CommandToolbar::mirror(const Toolbar& toolbar) {
    QStringList keys;
    bool captions = false;
    for (const ToolButton& button : toolbar.Buttons) {
        keys.append(toQt(button.Key));
        captions = captions || !button.Caption.empty();
    }
    if (keys != shownKeys_)
        showButtons(toolbar);
    shownKeys_ = keys;
    setToolButtonStyle(captions ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
    if (toolbar.Images)
        setIconSize({toolbar.Images->size, toolbar.Images->size});
    for (const ToolButton& button : toolbar.Buttons)
        mirrorState(button, *actions_.value(toQt(button.Key)));
}

void CommandToolbar::setMenu(std::function<std::vector<MenuItem>()> menu,
                             std::function<void(const std::string& key)> run) {
    menu_ = std::move(menu);
    run_ = std::move(run);
}

void CommandToolbar::contextMenuEvent(QContextMenuEvent* event) {
    popUp(menu_(), event->globalPos(), this, run_);
}

// A command without its button cannot be given either.
void CommandToolbar::showButtons(const Toolbar& toolbar) {
    for (QAction* action : std::as_const(actions_)) {
        removeAction(action);
        action->setVisible(false);
    }
    for (const ToolButton& button : toolbar.Buttons) {
        QAction*& action = actions_[toQt(button.Key)];
        if (!action)
            action = makeAction(button);
        addAction(action);
    }
}

QAction* CommandToolbar::makeAction(const ToolButton& button) {
    auto* const action = new QAction(this);
    const QString key = toQt(button.Key);
    action->setObjectName(key);
    action->setSeparator(button.Style == ButtonStyle::Separator);
    action->setCheckable(button.Style == ButtonStyle::Check || button.Style == ButtonStyle::ButtonGroup);
    action->setIcon(commandIcon(key));
    action->setText(toQt(button.Description));
    action->setToolTip(toQt(button.ToolTipText));
    action->setStatusTip(toQt(button.ToolTipText));
    connect(action, &QAction::triggered, this, [this, key] { Q_EMIT commandGiven(key); });
    return action;
}

void CommandToolbar::mirrorState(const ToolButton& button, QAction& action) {
    action.setVisible(button.Visible);
    action.setEnabled(button.Enabled || action.isSeparator());
    if (action.isCheckable())
        action.setChecked(button.Pressed);
}

} // namespace pixmo::qt
