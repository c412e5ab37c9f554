#pragma once

#include <cstdint>
#include <string>

namespace pixmo::transfers {

/// Orders to a sample engine that takes some, over HTTP/1.0 (RFC 1945).
class EngineControl {
public:
    /// "http://127.0.0.1:8080/page"
    explicit EngineControl(const std::string& address);

    /// One fault a line.
    void setFaults(const std::string& faults) const;
    /// Requests of a kind so far, of all kinds without a name.
    int requests(const std::string& kind = {}) const;

private:
    /// The body of the answer. Throws when there is none.
    std::string ask(const std::string& request) const;

    std::string host_;
    uint16_t port_;
};

} // namespace pixmo::transfers
