#include "faces/qt/ports/eventloop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>

namespace pixmo::qt {

// A running loop of its own, unlike a row of processEvents, ends when the program quits and deletes what is
// to be deleted later.
void EventLoop::pumpUntil(const std::function<bool()>& done) {
    if (done())
        return;
    QEventLoop loop;
    const auto look = [&] {
        if (done())
            loop.quit();
    };
    const QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &loop, look);
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop, look);
    loop.exec();
}

void EventLoop::handlePending() {
    QCoreApplication::processEvents();
}

} // namespace pixmo::qt
