#pragma once

#include "core/control/imageview.h"

#include <QAction>
#include <QHash>
#include <functional>

namespace pixmo::qt {

/// Every command of the control as an action that a host may put into its menus.
class CommandActions {
public:
    using Run = std::function<void(const std::string& key)>;

    /// The actions belong to the parent.
    CommandActions(QObject& parent, const Run& run);

    void mirror(const pixmo::ImageView& control) const;
    /// nullptr for an unknown key.
    QAction* find(const QString& key) const { return actions_.value(key); }

private:
    QHash<QString, QAction*> actions_;
};

} // namespace pixmo::qt
