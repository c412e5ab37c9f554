#include "faces/scripted/dialoguser.h"

#include <stdexcept>

namespace pixmo::scripted {

namespace {

/// With the parts in it, from the top.
void forEach(const DialogPart& part, const std::function<void(const DialogPart&, bool visible)>& act,
             bool visible = true) {
    visible = visible && part.visibleNow();
    act(part, visible);
    for (const DialogPart& each : part.parts)
        forEach(each, act, visible);
}

} // namespace

std::string DialogUser::texts() const {
    using enum DialogPart::Kind;
    std::string texts;
    forEach(description_.content, [&](const DialogPart& part, bool) {
        const bool isRead =
            part.kind == Label || part.kind == Heading || part.kind == Lines || part.kind == ScrolledText;
        if (isRead && !part.textNow().empty())
            texts += (texts.empty() ? ": " : "; ") + part.textNow();
    });
    return description_.title + texts;
}

bool DialogUser::isVisible(const std::string& name) const {
    bool found = false;
    forEach(description_.content, [&](const DialogPart& part, bool visible) {
        found = found || (visible && (part.name == name || part.textNow() == name));
    });
    return found;
}

const DialogPart& DialogUser::find(const std::string& name) const {
    const DialogPart* found = nullptr;
    forEach(description_.content, [&](const DialogPart& part, bool) {
        if (!found && (part.name == name || part.textNow() == name))
            found = &part;
    });
    if (!found)
        throw std::logic_error("no part " + name);
    return *found;
}

const DialogPart& DialogUser::usable(const std::string& name) const {
    const DialogPart& part = find(name);
    if (!isVisible(name) || !part.enabledNow())
        throw std::logic_error("hidden or disabled: " + name);
    return part;
}

bool DialogUser::press(int16_t keyCode, int16_t shift) const {
    for (const DialogKey& key : description_.keys)
        if (key.keyCode == keyCode && key.shift == shift) {
            key.pressed();
            return true;
        }
    return false;
}

} // namespace pixmo::scripted
