#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace pixmo::qt {

class ThumbsView;

/// One page of the list of thumbnails. Its action, press, shows the page in the viewer; toggle selects it or
/// no longer.
class ThumbAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ThumbAccessible(ThumbsView* view, int item) : view_(view), item_(item) {}

    int item() const { return item_; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override { return {pressAction(), toggleAction()}; }
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    int16_t page() const { return static_cast<int16_t>(item_ + 1); }

    QPointer<ThumbsView> view_;
    int item_;
};

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

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QAccessible::State state() const override;

private:
    ThumbsView* view() const;

    mutable QHash<int, QAccessible::Id> items_;
};

} // namespace pixmo::qt
