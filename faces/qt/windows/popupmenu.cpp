#include "faces/qt/windows/popupmenu.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/commandicon.h"

#include <QMenu>
#include <utility>

namespace pixmo::qt {

void popUp(const std::vector<MenuItem>& items, QPoint place, QWidget* parent,
           const std::function<void(const std::string& key)>& run) {
    if (items.empty())
        return;
    auto* const menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuItem& item : items) {
        if (item.separator) {
            menu->addSeparator();
            continue;
        }
        QAction* const action = menu->addAction(
            // A check mark would hide behind an icon.
            item.checkable ? QIcon() : commandIcon(toQt(item.key)),
            toQt(item.shortcut.empty() ? item.text : item.text + '\t' + item.shortcut));
        action->setEnabled(item.enabled);
        action->setCheckable(item.checkable);
        action->setChecked(item.checked);
        QObject::connect(action, &QAction::triggered, menu, [run, key = item.key] { run(key); });
    }
    menu->popup(place);
}

} // namespace pixmo::qt
