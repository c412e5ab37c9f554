#include "tests/transfers/rawserver.h"

#include "tests/transfers/sockets.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace pixmo::transfers {

namespace {

constexpr int Interval = 20'000; ///< microseconds between two looks at whether the end has come
constexpr size_t LargestPiece = 65'536;

#ifdef MSG_NOSIGNAL
constexpr int Quietly = MSG_NOSIGNAL;
#else
constexpr int Quietly = 0;
#endif

} // namespace

class RawServer::Service {
public:
    Service();
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    std::mutex mutex;
    uint16_t port = 0;
    Reply reply;
    std::function<Reply(const std::string&)> maker;
    std::vector<std::string> requests;
    size_t connections = 0;

private:
    void serve();
    void readFrom(Socket client);
    void send(Socket client);

    [[maybe_unused]] const Network network_{};
    const Socket listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    std::vector<Socket> clients_;
    bool ending_ = false;
    std::thread thread_;
};

RawServer::Service::Service() {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    SocketLength length = sizeof place;
    auto* const address = reinterpret_cast<sockaddr*>(&place);
    if (bind(listener_, address, length) != 0 || listen(listener_, 8) != 0 ||
        getsockname(listener_, address, &length) != 0)
        throw std::runtime_error("The test's server does not start.");
    port = ntohs(place.sin_port);
    thread_ = std::thread([this] { serve(); });
}

RawServer::Service::~Service() {
    {
        const std::lock_guard lock(mutex);
        ending_ = true;
    }
    thread_.join();
    for (const Socket client : clients_)
        closeSocket(client);
    closeSocket(listener_);
}

void RawServer::Service::serve() {
    for (;;) {
        fd_set ready;
        FD_ZERO(&ready);
        FD_SET(listener_, &ready);
        Socket last = listener_;
        for (const Socket client : clients_) {
            FD_SET(client, &ready);
            last = std::max(last, client);
        }
        timeval pause = {0, Interval};
        // The first argument means nothing on Windows.
        const int count = select(static_cast<int>(last) + 1, &ready, nullptr, nullptr, &pause);
        const std::lock_guard lock(mutex);
        if (ending_)
            return;
        if (count <= 0)
            continue;
        const std::vector<Socket> before = clients_;
        if (FD_ISSET(listener_, &ready)) {
            clients_.push_back(accept(listener_, nullptr, nullptr));
            ++connections;
        }
        for (const Socket client : before)
            if (FD_ISSET(client, &ready))
                readFrom(client);
    }
}

/// A request is small: it comes in one piece.
void RawServer::Service::readFrom(Socket client) {
    std::array<char, 16'384> bytes{};
    const auto count = recv(client, bytes.data(), static_cast<Length>(bytes.size()), 0);
    if (count > 0) {
        requests.emplace_back(bytes.data(), static_cast<size_t>(count));
        if (maker)
            reply = maker(requests.back());
        send(client);
    }
    if (count <= 0 || reply.then != Then::KeepOpen) {
        closeSocket(client);
        clients_.erase(std::remove(clients_.begin(), clients_.end(), client), clients_.end());
    }
}

void RawServer::Service::send(Socket client) {
    for (size_t sent = 0; sent < reply.bytes.size();) {
        const size_t piece = std::min(reply.bytes.size() - sent, LargestPiece);
        const auto count = ::send(client, reply.bytes.data() + sent, static_cast<Length>(piece), Quietly);
        if (count <= 0)
            return;
        sent += static_cast<size_t>(count);
    }
    if (reply.then != Then::Reset)
        return;
    const linger at = {1, 0};
    setsockopt(client, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&at), sizeof at);
}

RawServer::RawServer() : service_(std::make_unique<Service>()) {}

RawServer::~RawServer() = default;

std::string RawServer::address(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(service_->port) + path;
}

void RawServer::answerWith(const std::string& answer, Then then) {
    const std::lock_guard lock(service_->mutex);
    service_->maker = nullptr;
    service_->reply = {answer, then};
}

void RawServer::answerWithBody(const std::string& body) {
    answerWith("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body);
}

void RawServer::answerBy(std::function<Reply(const std::string& request)> maker) {
    const std::lock_guard lock(service_->mutex);
    service_->maker = std::move(maker);
}

std::vector<std::string> RawServer::requests() const {
    const std::lock_guard lock(service_->mutex);
    return service_->requests;
}

size_t RawServer::connections() const {
    const std::lock_guard lock(service_->mutex);
    return service_->connections;
}

} // namespace pixmo::transfers
