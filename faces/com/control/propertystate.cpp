#include "faces/com/control/propertystate.h"

#include "core/base/error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>
#include <utility>

namespace pixmo::com {

namespace {

constexpr std::array<uint8_t, 4> Signature{'P', 'X', 'I', 'V'};
constexpr uint16_t Version = 1;
constexpr double SizeUnits = 10000; ///< in a point

enum FontStyle : uint8_t { Bold = 1, Italic = 2, Underline = 4, Strikethrough = 8 };

class Writer {
public:
    explicit Writer(std::vector<uint8_t>& bytes) : bytes_(bytes) {}

    template <class Number>
    void number(Number value) {
        auto rest = static_cast<std::make_unsigned_t<Number>>(value);
        for (size_t byte = 0; byte < sizeof(Number); ++byte, rest = static_cast<decltype(rest)>(rest >> 8U))
            bytes_.push_back(static_cast<uint8_t>(rest & 0xFFU));
    }
    template <class Length>
    void text(const std::string& value) {
        number(static_cast<Length>(value.size()));
        bytes_.insert(bytes_.end(), value.begin(), value.end());
    }

    void operator()(bool value) { number(static_cast<uint8_t>(value ? 1 : 0)); }
    void operator()(int16_t value) { number(value); }
    void operator()(int32_t value) { number(value); }
    void operator()(const std::string& value) { text<uint32_t>(value); }
    void operator()(const Colour& value) { number(value.value); }
    void operator()(const Font& value) {
        (*this)(value.Name);
        number(static_cast<int32_t>(std::lround(value.Size * SizeUnits)));
        number(static_cast<uint8_t>((value.Bold ? Bold : 0) | (value.Italic ? Italic : 0) |
                                    (value.Underline ? Underline : 0) |
                                    (value.Strikethrough ? Strikethrough : 0)));
    }

private:
    std::vector<uint8_t>& bytes_;
};

/// Throws when the bytes end too early.
class Reader {
public:
    explicit Reader(std::span<const uint8_t> bytes) : rest_(bytes) {}

    std::span<const uint8_t> take(size_t count) {
        if (count > rest_.size())
            throw invalidPropertyValueError();
        const auto taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }
    template <class Number>
    Number number() {
        std::make_unsigned_t<Number> value = 0;
        const auto bytes = take(sizeof(Number));
        for (size_t byte = 0; byte < sizeof(Number); ++byte)
            value = static_cast<decltype(value)>(
                value | static_cast<decltype(value)>(static_cast<uint32_t>(bytes[byte]) << (8U * byte)));
        return static_cast<Number>(value);
    }
    template <class Length>
    std::string text() {
        const auto bytes = take(number<Length>());
        return {bytes.begin(), bytes.end()};
    }
    Font font() {
        Font font;
        font.Name = text<uint32_t>();
        font.Size = number<int32_t>() / SizeUnits;
        const auto styles = number<uint8_t>();
        font.Bold = (styles & Bold) != 0;
        font.Italic = (styles & Italic) != 0;
        font.Underline = (styles & Underline) != 0;
        font.Strikethrough = (styles & Strikethrough) != 0;
        return font;
    }
    PropertyValue value(uint8_t type) {
        switch (type) {
        case 0:
            return number<uint8_t>() != 0;
        case 1:
            return number<int16_t>();
        case 2:
            return number<int32_t>();
        case 3:
            return text<uint32_t>();
        case 4:
            return Colour{number<uint32_t>()};
        case 5:
            return font();
        default:
            throw invalidPropertyValueError();
        }
    }
    bool atEnd() const { return rest_.empty(); }

private:
    std::span<const uint8_t> rest_;
};

} // namespace

PropertyValue PropertyState::ReadProperty(const std::string& key, const PropertyValue& defaultValue) const {
    const auto found = values_.find(key);
    return found == values_.end() ? defaultValue : found->second;
}

void PropertyState::WriteProperty(const std::string& key, const PropertyValue& value,
                                  const PropertyValue& defaultValue) {
    if (value != defaultValue)
        values_.insert_or_assign(key, value);
}

std::vector<uint8_t> PropertyState::toBytes() const {
    std::vector<uint8_t> bytes(Signature.begin(), Signature.end());
    Writer writer(bytes);
    writer.number(Version);
    writer.number(width);
    writer.number(height);
    writer.number(static_cast<uint16_t>(values_.size()));
    for (const auto& [key, value] : values_) {
        writer.text<uint16_t>(key);
        writer.number(static_cast<uint8_t>(value.index()));
        std::visit(writer, value);
    }
    return bytes;
}

PropertyState PropertyState::fromBytes(std::span<const uint8_t> bytes) {
    Reader reader(bytes);
    if (!std::ranges::equal(reader.take(Signature.size()), Signature) || reader.number<uint16_t>() != Version)
        throw invalidPropertyValueError();
    PropertyState state;
    state.width = reader.number<int32_t>();
    state.height = reader.number<int32_t>();
    for (uint16_t left = reader.number<uint16_t>(); left > 0; --left) {
        std::string key = reader.text<uint16_t>();
        const auto type = reader.number<uint8_t>();
        state.values_.insert_or_assign(std::move(key), reader.value(type));
    }
    if (!reader.atEnd())
        throw invalidPropertyValueError();
    return state;
}

} // namespace pixmo::com
