#include "faces/qt/widget/commandactions.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/commandicon.h"

namespace pixmo::qt {

namespace {

QString keyOf(const CommandRow& row) {
    return QString::fromUtf8(row.key.data(), static_cast<qsizetype>(row.key.size()));
}

} // namespace

CommandActions::CommandActions(QObject& parent, const Run& run) {
    for (const CommandRow& row : commandTable()) {
        const QString key = keyOf(row);
        auto* const action = new QAction(commandIcon(key), QString::fromUtf8(row.text), &parent);
        action->setObjectName(key);
        action->setCheckable(row.checked != nullptr);
        QObject::connect(action, &QAction::triggered, &parent, [run, key] { run(key.toStdString()); });
        actions_.insert(key, action);
    }
}

void CommandActions::mirror(const pixmo::ImageView& control) const {
    const Commands& commands = control.commands();
    for (const CommandRow& row : commandTable()) {
        QAction& action = *actions_.value(keyOf(row));
        action.setEnabled(commands.isEnabled(row.key));
        action.setVisible(commands.isOffered(row.key));
        if (action.isCheckable())
            action.setChecked(commands.isChecked(row.key));
    }
}

} // namespace pixmo::qt
