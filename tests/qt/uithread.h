#pragma once

#include <QCoreApplication>
#include <optional>
#include <type_traits>

namespace pixmo::qt {

/// Does it on the thread of the windows, inside whatever message loop runs there, and gives the result.
template <typename Function>
auto onUi(const Function& function) {
    using Result = std::invoke_result_t<Function>;
    if constexpr (std::is_void_v<Result>) {
        QMetaObject::invokeMethod(
            qApp, [&] { function(); }, Qt::BlockingQueuedConnection);
    } else {
        std::optional<Result> result;
        QMetaObject::invokeMethod(
            qApp, [&] { result.emplace(function()); }, Qt::BlockingQueuedConnection);
        return std::move(*result);
    }
}

/// Starts it there and goes on: it may open a modal window.
template <typename Function>
void startOnUi(Function&& function) {
    QMetaObject::invokeMethod(qApp, std::forward<Function>(function), Qt::QueuedConnection);
}

} // namespace pixmo::qt
