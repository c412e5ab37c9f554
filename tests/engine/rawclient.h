#pragma once

#include <string>

namespace pixmo {

/// A client that sees the connection itself: bytes, and how they end.
class RawClient {
public:
    enum class End { Closed, Reset };

    /// Connects to this machine. Throws std::runtime_error.
    explicit RawClient(int port);
    ~RawClient();
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    void send(const std::string& bytes);
    void get(const std::string& target);
    bool hasData() const;
    /// All that comes until the connection ends.
    std::string receiveAll(End& end);
    /// Until the text has come; throws std::runtime_error when the connection ends before.
    std::string receiveUntil(const std::string& text);

private:
    int socket_;
};

/// Behind the empty line of an HTTP answer.
std::string bodyOf(const std::string& answer);

} // namespace pixmo
