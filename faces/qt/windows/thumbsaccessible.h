#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace pixmo::qt {

class ThumbsView;

/// The thumbnails as assistive programs see them: a list whose items are "Page 1" and so on. Items are made
/// when they are asked for.
class ThumbsAccessible : public QAccessibleWidget {
public:
    explicit ThumbsAccessible(ThumbsView* view);
    ~ThumbsAccessible() override;
    ThumbsAccessible(const ThumbsAccessible&) = delete;
    ThumbsAccessible& operator=(const ThumbsAccessible&) = delete;

    /// Makes the list known for every ThumbsView.
    static void install();

    ThumbsView* view() const;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QAccessible::State state() const override;

private:
    mutable QHash<int, QAccessible::Id> items_;
};

} // namespace pixmo::qt
