#pragma once

#include <QTest>
#include <functional>

namespace pixmo::qt {

/// Longer than anything lasts that goes well.
inline constexpr int Patience = 15'000;

/// Handles events until the condition holds; false when it does not within the time.
inline bool waitFor(const std::function<bool()>& condition, int milliseconds = Patience) {
    return QTest::qWaitFor(condition, milliseconds);
}

} // namespace pixmo::qt
