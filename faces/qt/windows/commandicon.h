#pragma once

#include <QIcon>

namespace pixmo::qt {

/// The icon of that command in the palette's colours, sharp in every size; empty for an unknown key.
QIcon commandIcon(const QString& key);

} // namespace pixmo::qt
