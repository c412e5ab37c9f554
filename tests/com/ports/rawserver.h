#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace pixmo::com {

/// A server on the loopback that answers every request with the same bytes, whatever they are.
class RawServer {
public:
    enum class Then { KeepOpen, Close, Reset };

    RawServer();
    ~RawServer();
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    std::string address(const std::string& path = "/engine") const;
    void answerWith(const std::string& answer, Then then = Then::KeepOpen);
    void answerWithBody(const std::string& body);
    /// From now on each answer is made for its request; on the server's own thread.
    void answerBy(std::function<std::string(const std::string& request)> maker);
    /// The heads of the requests so far.
    std::vector<std::string> requests() const;

private:
    void serve();
    void readFrom(uintptr_t client);
    void answer(uintptr_t client);

    uintptr_t listener_;
    uint16_t port_ = 0;
    mutable std::mutex mutex_;
    std::string answer_;
    std::function<std::string(const std::string&)> maker_;
    Then then_ = Then::KeepOpen;
    std::vector<std::string> requests_;
    std::vector<uintptr_t> clients_;
    bool ending_ = false;
    std::thread thread_;
};

} // namespace pixmo::com
