#pragma once

#include "core/base/text.h"

#include <QString>
#include <string>

namespace pixmo::qt {

inline QString toQt(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

/// Lines of the core end in CR LF.
inline QString linesToQt(const std::string& utf8) {
    return toQt(utf8).replace(QLatin1String(LineBreak.data()), QLatin1String("\n"));
}

} // namespace pixmo::qt
