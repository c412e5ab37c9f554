#pragma once

#include <QIcon>

namespace pixmo::qt {

/// A line drawing of that toolbar key in the palette's colours; empty for an unknown key.
QIcon commandIcon(const QString& key);

} // namespace pixmo::qt
