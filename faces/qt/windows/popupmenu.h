#pragma once

#include "core/control/menus.h"

#include <QPoint>
#include <functional>

class QWidget;

namespace pixmo::qt {

/// Shows the menu without waiting; the key of what is chosen is handed on. Nothing opens without an item.
void popUp(const std::vector<MenuItem>& items, QPoint place, QWidget* parent,
           const std::function<void(const std::string& key)>& run);

} // namespace pixmo::qt
