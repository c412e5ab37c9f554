#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pixmo::transfers {

/// A server on the loopback that keeps what it is sent byte for byte and answers every request with the same
/// bytes, whatever they are.
class RawServer {
public:
    enum class Then : uint8_t { KeepOpen, Close, Reset };
    struct Reply {
        std::string bytes;
        Then then = Then::KeepOpen;
    };

    RawServer();
    ~RawServer();
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    /// "http://127.0.0.1:PORT" + path
    std::string address(const std::string& path = "/engine") const;
    /// For every request from now on; an empty answer is none.
    void answerWith(const std::string& answer, Then then = Then::KeepOpen);
    void answerWithBody(const std::string& body);
    /// From now on each answer is made for its request; on the server's own thread.
    void answerBy(std::function<Reply(const std::string& request)> maker);
    /// The heads of the requests so far.
    std::vector<std::string> requests() const;
    size_t connections() const;

private:
    class Service;
    std::unique_ptr<Service> service_;
};

} // namespace pixmo::transfers
