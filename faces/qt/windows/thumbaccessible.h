#pragma once

#include <QAccessibleInterface>
#include <QPointer>

namespace pixmo {
class dlgThumbs;
}

namespace pixmo::qt {

class ThumbsView;

/// One page of the list of thumbnails. Its action, press, shows the page in the viewer; toggle selects it or
/// no longer.
class ThumbAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ThumbAccessible(ThumbsView* view, int item);

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

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    QPointer<ThumbsView> view_;
    int item_;
};

} // namespace pixmo::qt
