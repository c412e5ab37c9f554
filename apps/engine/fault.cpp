#include "apps/engine/fault.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <stdexcept>
#include <string>

namespace pixmo {

namespace {

/// How the value of a fault is written.
enum class ValueRule { None, Optional, Required };

struct FaultForm {
    std::string_view name;
    FaultKind kind;
    ValueRule rule = ValueRule::None;
    int32_t least = 0;
    int32_t most = 0;
    int32_t usual = 0; ///< where no value is written
};

constexpr int32_t Most = std::numeric_limits<int32_t>::max();

/// The first form of a kind bears its name.
constexpr std::array<FaultForm, 17> Forms = {{
    {"stall", FaultKind::Stall},
    {"delay", FaultKind::Delay, ValueRule::Required, 0, 3'600'000},
    {"drip", FaultKind::Drip, ValueRule::Required, 1, Most},
    {"reset", FaultKind::Reset},
    {"close", FaultKind::Close},
    {"empty", FaultKind::Empty},
    {"http", FaultKind::Http, ValueRule::Required, 400, 599},
    {"http500", FaultKind::Http, ValueRule::None, 0, 0, 500},
    {"http404", FaultKind::Http, ValueRule::None, 0, 0, 404},
    {"http401", FaultKind::Http, ValueRule::None, 0, 0, 401},
    {"errtext", FaultKind::ErrText},
    {"er", FaultKind::Er},
    {"wrongkey", FaultKind::WrongKey},
    {"garbage", FaultKind::Garbage, ValueRule::Optional, 0, Most, 1},
    {"truncated", FaultKind::Truncated},
    {"redirect", FaultKind::Redirect},
    {"html", FaultKind::Html},
}};

[[noreturn]] void refuse(std::string_view text, const std::string& reason) {
    throw std::invalid_argument("Fault '" + std::string(text) + "': " + reason);
}

int32_t number(std::string_view text, std::string_view digits, int32_t least, int32_t most) {
    int32_t value = 0;
    const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (problem != std::errc() || end != digits.data() + digits.size() || value < least || value > most)
        refuse(text, "'" + std::string(digits) + "' is not a number from " + std::to_string(least) + " to " +
                         std::to_string(most) + ".");
    return value;
}

/// What stands behind the last `mark`; takes it and the mark off the text.
std::optional<std::string_view> takeBehind(std::string_view& text, char mark) {
    const size_t at = text.rfind(mark);
    if (at == std::string_view::npos)
        return std::nullopt;
    const std::string_view behind = text.substr(at + 1);
    text = text.substr(0, at);
    return behind;
}

std::optional<RequestKind> parseTarget(std::string_view text, std::string_view name) {
    if (name == "ALL")
        return std::nullopt;
    for (const RequestKind kind : {RequestKind::InitialContact, RequestKind::PageCount, RequestKind::GetPage})
        if (name == requestCode(kind))
            return kind;
    refuse(text, "the request must be IC, PC, GP or ALL.");
}

int32_t parseValue(std::string_view text, const FaultForm& form, std::optional<std::string_view> digits) {
    if (digits && form.rule == ValueRule::None)
        refuse(text, "this kind takes no value.");
    if (!digits && form.rule == ValueRule::Required)
        refuse(text, "this kind needs a value.");
    return digits ? number(text, *digits, form.least, form.most) : form.usual;
}

} // namespace

std::string_view faultName(FaultKind kind) {
    return std::find_if(Forms.begin(), Forms.end(), [&](const FaultForm& form) { return form.kind == kind; })
        ->name;
}

Fault parseFault(std::string_view text) {
    std::string_view rest = text;
    const auto first = takeBehind(rest, '@');
    const auto value = takeBehind(rest, '=');
    const auto target = takeBehind(rest, ':');
    if (!target)
        refuse(text, "expected KIND:REQUEST[=VALUE][@N].");
    const auto* const form =
        std::find_if(Forms.begin(), Forms.end(), [&](const FaultForm& known) { return known.name == rest; });
    if (form == Forms.end())
        refuse(text, "'" + std::string(rest) + "' is no kind of fault.");
    Fault fault;
    fault.kind = form->kind;
    fault.request = parseTarget(text, *target);
    fault.value = parseValue(text, *form, value);
    if (first)
        fault.first = static_cast<uint32_t>(number(text, *first, 1, Most));
    return fault;
}

} // namespace pixmo
