#pragma once

#include <QPageSize>
#include <cstdint>
#include <optional>

namespace pixmo::qt {

/// The paper of a code (vlPaperSize); none for those that say no size.
std::optional<QPageSize> paperOf(int32_t code);

/// Whether a printer's paper is what was asked for, whatever the printer calls it.
bool isSamePaper(const QPageSize& one, const QPageSize& other);

} // namespace pixmo::qt
