#include "faces/qt/windows/accessible.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/thumbsview.h"

namespace pixmo::qt {

namespace {

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* const view = qobject_cast<ThumbsView*>(object);
    return view ? new ThumbsAccessible(view) : nullptr;
}

} // namespace

bool ThumbAccessible::isValid() const {
    const auto thumbs = view_ ? view_->thumbs() : nullptr;
    return thumbs && item_ < thumbs->grid().itemCount();
}

QAccessibleInterface* ThumbAccessible::parent() const {
    return view_ ? QAccessible::queryAccessibleInterface(view_) : nullptr;
}

QString ThumbAccessible::text(QAccessible::Text kind) const {
    if (!isValid())
        return {};
    if (kind == QAccessible::Name)
        return toQt(dlgThumbs::name(page()));
    return kind == QAccessible::Description ? linesToQt(view_->thumbs()->description(page())) : QString();
}

QRect ThumbAccessible::rect() const {
    if (!isValid())
        return {};
    const QRect cell = toQt(view_->thumbs()->grid().cell(item_));
    return {view_->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State ThumbAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const dlgThumbs::Facts facts = view_->thumbs()->facts(page());
    state.selectable = true;
    state.multiSelectable = true;
    state.focusable = true;
    state.selected = facts.selected;
    state.focused = view_->hasFocus() && facts.focus;
    state.busy = facts.loading;
    state.offscreen = !facts.seen;
    state.invisible = !view_->isVisible();
    return state;
}

void* ThumbAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

void ThumbAccessible::doAction(const QString& name) {
    if (!isValid())
        return;
    const auto thumbs = view_->thumbs();
    if (name == toggleAction())
        thumbs->setSelected(page(), !thumbs->selection().isSelected(item_));
    else if (name == pressAction())
        thumbs->ItemSelected.raise(page());
}

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
    return child(thumbs->pageAt(place.x(), place.y()) - 1);
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
