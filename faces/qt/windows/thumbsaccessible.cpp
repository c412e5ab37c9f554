#include "faces/qt/windows/thumbsaccessible.h"

#include "faces/qt/windows/thumbaccessible.h"
#include "faces/qt/windows/thumbsview.h"

namespace pixmo::qt {

namespace {

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* const view = qobject_cast<ThumbsView*>(object);
    return view ? new ThumbsAccessible(view) : nullptr;
}

} // namespace

ThumbsAccessible::ThumbsAccessible(ThumbsView* view) : QAccessibleWidget(view, QAccessible::List) {}

ThumbsAccessible::~ThumbsAccessible() {
    for (const QAccessible::Id id : std::as_const(items_))
        QAccessible::deleteAccessibleInterface(id);
}

void ThumbsAccessible::install() {
    static const bool installed = [] {
        QAccessible::installFactory(make);
        return true;
    }();
    Q_UNUSED(installed)
}

ThumbsView* ThumbsAccessible::view() const {
    return static_cast<ThumbsView*>(object());
}

int ThumbsAccessible::childCount() const {
    const auto thumbs = view()->thumbs();
    return thumbs ? thumbs->grid().itemCount() : 0;
}

QAccessibleInterface* ThumbsAccessible::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    const auto known = items_.constFind(index);
    if (known != items_.constEnd())
        return QAccessible::accessibleInterface(*known);
    auto* const item = new ThumbAccessible(view(), index);
    items_.insert(index, QAccessible::registerAccessibleInterface(item));
    return item;
}

int ThumbsAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const item = dynamic_cast<const ThumbAccessible*>(child);
    return item ? item->item() : -1;
}

QAccessibleInterface* ThumbsAccessible::childAt(int x, int y) const {
    const auto thumbs = view()->thumbs();
    const QPoint place = view()->viewport()->mapFromGlobal(QPoint(x, y));
    if (!thumbs || !view()->viewport()->rect().contains(place))
        return nullptr;
    return child(thumbs->grid().itemAt(place.x(), place.y()));
}

QAccessibleInterface* ThumbsAccessible::focusChild() const {
    const auto thumbs = view()->thumbs();
    return thumbs && view()->hasFocus() ? child(thumbs->selection().focus()) : nullptr;
}

QAccessible::State ThumbsAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = true;
    state.extSelectable = true;
    return state;
}

} // namespace pixmo::qt
