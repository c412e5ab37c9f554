#include "faces/com/control/statestream.h"

#include "faces/com/base/boundary.h"
#include "faces/com/control/propertystate.h"

#include <array>

namespace pixmo::com {

namespace {

void readAll(IStream& stream, std::span<uint8_t> target) {
    while (!target.empty()) {
        ULONG count = 0;
        check(stream.Read(target.data(), static_cast<ULONG>(target.size()), &count));
        if (count == 0)
            throw errorOf(STG_E_READFAULT);
        target = target.subspan(count);
    }
}

void writeAll(IStream& stream, std::span<const uint8_t> source) {
    ULONG count = 0;
    check(stream.Write(source.data(), static_cast<ULONG>(source.size()), &count));
    if (count != source.size())
        throw errorOf(STG_E_WRITEFAULT);
}

} // namespace

void saveState(ControlContext& context, IStream& stream) {
    PropertyState state;
    context.write(state);
    state.width = static_cast<int32_t>(context.extent().cx);
    state.height = static_cast<int32_t>(context.extent().cy);
    const std::vector<uint8_t> bytes = state.toBytes();
    std::array<uint8_t, sizeof(uint32_t)> length{};
    for (size_t at = 0; at < length.size(); ++at)
        length[at] = static_cast<uint8_t>(bytes.size() >> (8U * at));
    writeAll(stream, length);
    writeAll(stream, bytes);
}

void loadState(ControlContext& context, IStream& stream) {
    std::array<uint8_t, sizeof(uint32_t)> length{};
    readAll(stream, length);
    size_t size = 0;
    for (size_t at = length.size(); at > 0; --at)
        size = size << 8U | length[at - 1];
    if (size > PropertyState::LargestSize)
        throw errorOf(STG_E_READFAULT);
    std::vector<uint8_t> bytes(size);
    readAll(stream, bytes);
    const PropertyState state = PropertyState::fromBytes(bytes);
    context.restoreExtent({state.width, state.height});
    context.read(state);
}

} // namespace pixmo::com
