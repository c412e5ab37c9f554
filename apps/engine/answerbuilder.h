#pragma once

#include "apps/engine/answer.h"
#include "apps/engine/engineerror.h"
#include "apps/engine/enginerequest.h"
#include "apps/engine/property.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pixmo {

/// Makes the answers of the protocol, in the key and with the delimiter of the request that they answer.
class AnswerBuilder {
public:
    /// Leading bytes of a page that are protected; -1 for all.
    explicit AnswerBuilder(int32_t protectedBytes) : protectedBytes_(protectedBytes) {}

    static Answer contact(const EngineRequest& request, std::span<const Property> properties);
    /// A count that a viewer's 16-bit number cannot hold is answered as 32767.
    static Answer pageCount(const EngineRequest& request, size_t count, std::span<const Property> properties);
    static Answer page(std::vector<uint8_t> file);
    static Answer error(const EngineRequest& request, const EngineError& error);

    /// The bytes of the wire. A page is padded so that no viewer takes it for a text.
    std::string body(Answer answer) const;

private:
    int32_t protectedBytes_;
};

} // namespace pixmo
