#pragma once

#include "tests/transfers/rawserver.h"

#include <cstdint>
#include <string>

namespace pixmo::com::test {

/// An imaging server of one document, number 7: three pages of one colour each.
class SmallEngine {
public:
    static constexpr int32_t Document = 7;
    static constexpr int32_t Pages = 3;

    SmallEngine();

    std::string address() const { return server_.address(); }
    size_t requests() const { return server_.requests().size(); }
    /// 0x00RRGGBB of a page, counted from 1.
    static uint32_t colourOf(int page);

private:
    std::string answer(const std::string& request) const;

    transfers::RawServer server_;
};

} // namespace pixmo::com::test
