#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

struct _AtspiAccessible;

namespace pixmo::qt {

/// Something in another program as assistive tools meet it, over the accessibility bus.
class Accessible {
public:
    /// The running program of that name; invalid while there is none.
    static Accessible program(const QString& name);

    Accessible() = default;
    explicit operator bool() const { return object_ != nullptr; }

    QString name() const;
    QString description() const;
    QString parentName() const;
    QString role() const; ///< "push button"
    QStringList
    states() const; ///< of those that tests ask for: "focused", "selected", "focusable", "showing"
    std::vector<Accessible> children() const;
    /// The first below it in document order that can be seen, of that role and name; an empty name means any.
    Accessible find(const QString& role, const QString& name = {}) const;
    /// All below it that can be seen.
    std::vector<Accessible> showing() const;

    /// As if pressed.
    void press() const;
    void grabFocus() const;

private:
    explicit Accessible(_AtspiAccessible* owned);

    std::shared_ptr<_AtspiAccessible> object_;
};

} // namespace pixmo::qt
