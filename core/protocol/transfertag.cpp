#include "core/protocol/transfertag.h"

#include "core/base/error.h"
#include "core/base/text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace pixmo {

namespace {

using Kind = TransferTag::Kind;

constexpr std::array<std::pair<std::string_view, Kind>, 4> Codes = {
    {{"IC", Kind::InitialContact}, {"PC", Kind::PageCount}, {"GP", Kind::Page}, {"PP", Kind::Ignored}}};

} // namespace

TransferTag::TransferTag(const std::string& name, const std::string& delimiter)
    : name_(name), fields_(split(name, delimiter)) {}

TransferTag TransferTag::initialContact() {
    return {"IC", {}};
}

TransferTag TransferTag::pageCount(int32_t document, const std::string& delimiter) {
    return {"PC" + delimiter + std::to_string(document), delimiter};
}

TransferTag TransferTag::page(int32_t document, int16_t page, const std::string& delimiter) {
    return {"GP" + delimiter + std::to_string(document) + delimiter + std::to_string(page), delimiter};
}

Kind TransferTag::kind() const {
    const auto* known = std::ranges::find_if(
        Codes, [this](const auto& code) { return !fields_.empty() && code.first == fields_[0]; });
    return known == Codes.end() ? Kind::Unknown : known->second;
}

int32_t TransferTag::document() const {
    return toLong(field(1));
}

int16_t TransferTag::page() const {
    return toInteger(field(2));
}

const std::string& TransferTag::field(size_t index) const {
    if (index >= fields_.size())
        throw subscriptError();
    return fields_[index];
}

} // namespace pixmo
