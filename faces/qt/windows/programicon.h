#pragma once

#include <QIcon>

namespace pixmo::qt {

/// The host's icon, or, for a host without one, a drawn page.
QIcon programIcon();

} // namespace pixmo::qt
