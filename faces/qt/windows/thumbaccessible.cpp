#include "faces/qt/windows/thumbaccessible.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/thumbsview.h"

namespace pixmo::qt {

ThumbAccessible::ThumbAccessible(ThumbsView* view, int item) : view_(view), item_(item) {}

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
    const auto thumbs = view_->thumbs();
    const auto page = static_cast<int16_t>(item_ + 1);
    if (kind == QAccessible::Name)
        return ThumbsView::tr("Page %1").arg(page);
    if (kind != QAccessible::Description)
        return {};
    if (thumbs->state(page) == ThumbState::Failed)
        return linesToQt(thumbs->tip(page));
    return page == thumbs->currentPage() ? ThumbsView::tr("Shown in the viewer") : QString();
}

QRect ThumbAccessible::rect() const {
    if (!isValid())
        return {};
    const QRect cell = view_->cell(item_);
    return {view_->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State ThumbAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const auto thumbs = view_->thumbs();
    state.selectable = true;
    state.multiSelectable = true;
    state.focusable = true;
    state.selected = thumbs->selection().isSelected(item_);
    state.focused = view_->hasFocus() && thumbs->selection().focus() == item_;
    state.busy = thumbs->state(static_cast<int16_t>(item_ + 1)) == ThumbState::Loading;
    state.offscreen = !view_->viewport()->rect().intersects(view_->cell(item_));
    state.invisible = !view_->isVisible();
    return state;
}

void* ThumbAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList ThumbAccessible::actionNames() const {
    return {pressAction(), toggleAction()};
}

void ThumbAccessible::doAction(const QString& name) {
    if (!isValid())
        return;
    const auto thumbs = view_->thumbs();
    const auto page = static_cast<int16_t>(item_ + 1);
    if (name == toggleAction())
        thumbs->setSelected(page, !thumbs->selection().isSelected(item_));
    else if (name == pressAction())
        thumbs->ItemSelected.raise(page);
}

QStringList ThumbAccessible::keyBindingsForAction(const QString&) const {
    return {};
}

} // namespace pixmo::qt
