#include "tests/qt/accessible.h"

#include <array>
#include <atspi/atspi.h>
#include <utility>

namespace pixmo::qt {

namespace {

QString taken(char* text) {
    QString result = QString::fromUtf8(text);
    g_free(text);
    return result;
}

void forget(GError*& error) {
    g_clear_error(&error);
}

} // namespace

Accessible::Accessible(_AtspiAccessible* owned) {
    if (owned)
        object_.reset(owned, [](AtspiAccessible* object) { g_object_unref(object); });
}

Accessible Accessible::program(const QString& name) {
    static const int started = atspi_init();
    if (started > 1)
        return {};
    // A press that opens a modal window is answered when the window closes: nobody waits for that.
    constexpr int milliseconds = 3000;
    atspi_set_timeout(milliseconds, -1);
    const Accessible desktop(atspi_get_desktop(0));
    for (const Accessible& each : desktop.children())
        if (each.name() == name)
            return each;
    return {};
}

QString Accessible::name() const {
    GError* error = nullptr;
    char* const text = atspi_accessible_get_name(object_.get(), &error);
    forget(error);
    return taken(text);
}

QString Accessible::description() const {
    GError* error = nullptr;
    // What the cache holds may be old.
    atspi_accessible_clear_cache(object_.get());
    char* const text = atspi_accessible_get_description(object_.get(), &error);
    forget(error);
    return taken(text);
}

QString Accessible::parentName() const {
    GError* error = nullptr;
    const Accessible parent(atspi_accessible_get_parent(object_.get(), &error));
    forget(error);
    return parent ? parent.name() : QString();
}

QString Accessible::role() const {
    GError* error = nullptr;
    char* const text = atspi_accessible_get_role_name(object_.get(), &error);
    forget(error);
    return taken(text);
}

QStringList Accessible::states() const {
    constexpr std::array<std::pair<AtspiStateType, const char*>, 4> Names = {
        {{ATSPI_STATE_FOCUSED, "focused"},
         {ATSPI_STATE_SELECTED, "selected"},
         {ATSPI_STATE_FOCUSABLE, "focusable"},
         {ATSPI_STATE_SHOWING, "showing"}}};
    atspi_accessible_clear_cache(object_.get());
    AtspiStateSet* const set = atspi_accessible_get_state_set(object_.get());
    QStringList names;
    for (const auto& [state, text] : Names)
        if (set && atspi_state_set_contains(set, state))
            names.append(QLatin1String(text));
    if (set)
        g_object_unref(set);
    return names;
}

std::vector<Accessible> Accessible::children() const {
    GError* error = nullptr;
    const int count = atspi_accessible_get_child_count(object_.get(), &error);
    forget(error);
    std::vector<Accessible> result;
    for (int i = 0; i < count; ++i) {
        const Accessible child(atspi_accessible_get_child_at_index(object_.get(), i, &error));
        forget(error);
        if (child)
            result.push_back(child);
    }
    return result;
}

std::vector<Accessible> Accessible::showing() const {
    std::vector<Accessible> result;
    for (const Accessible& child : children()) {
        if (!child.states().contains(QStringLiteral("showing")))
            continue;
        result.push_back(child);
        for (Accessible& below : child.showing())
            result.push_back(std::move(below));
    }
    return result;
}

Accessible Accessible::find(const QString& role, const QString& name) const {
    for (const Accessible& each : showing())
        if (each.role() == role && (name.isEmpty() || each.name() == name))
            return each;
    return {};
}

void Accessible::press() const {
    GError* error = nullptr;
    AtspiAction* const action = atspi_accessible_get_action_iface(object_.get());
    if (!action)
        return;
    atspi_action_do_action(action, 0, &error);
    forget(error);
    g_object_unref(action);
}

void Accessible::grabFocus() const {
    GError* error = nullptr;
    AtspiComponent* const component = atspi_accessible_get_component_iface(object_.get());
    if (!component)
        return;
    atspi_component_grab_focus(component, &error);
    forget(error);
    g_object_unref(component);
}

} // namespace pixmo::qt
