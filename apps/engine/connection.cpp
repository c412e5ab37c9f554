#include "apps/engine/connection.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace pixmo {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// For a client that stops in the middle of its request, or does not take its answer.
constexpr milliseconds TransferPatience{30'000};
/// For what was written to reach the client before the connection is torn down.
constexpr milliseconds DeliveryPatience{1'000};

void readEndpoint(const sockaddr_storage& address, std::string& ip, int& port) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    if (address.ss_family == AF_INET) {
        sockaddr_in endpoint{};
        std::memcpy(&endpoint, &address, sizeof endpoint);
        inet_ntop(AF_INET, &endpoint.sin_addr, text.data(), text.size());
        port = ntohs(endpoint.sin_port);
    } else if (address.ss_family == AF_INET6) {
        sockaddr_in6 endpoint{};
        std::memcpy(&endpoint, &address, sizeof endpoint);
        inet_ntop(AF_INET6, &endpoint.sin6_addr, text.data(), text.size());
        port = ntohs(endpoint.sin6_port);
    }
    ip = text.data();
}

} // namespace

Connection::Connection(int socket, const StopSignal& stop) : socket_(socket), stop_(stop) {}

Connection::~Connection() {
    if (cut_ == Cut::Reset) {
        awaitDelivery();
        const linger tearDown{1, 0};
        setsockopt(socket_, SOL_SOCKET, SO_LINGER, &tearDown, sizeof tearDown);
    } else {
        shutdown(socket_, SHUT_RDWR);
    }
    close(socket_);
}

bool Connection::awaitRequest(milliseconds patience) {
    allowance_ = MostRequestBytes;
    return bufferedFrom_ < bufferedTo_ || await(POLLIN, patience);
}

bool Connection::pause(milliseconds time) {
    // A hang-up or the signal ends the wait early.
    const auto end = steady_clock::now() + time;
    await(POLLRDHUP, time);
    return steady_clock::now() >= end;
}

void Connection::awaitEnd() {
    await(POLLRDHUP, std::nullopt);
}

bool Connection::is_readable() const {
    return bufferedFrom_ < bufferedTo_ || await(POLLIN, TransferPatience);
}

bool Connection::is_writable() const {
    return await(POLLOUT, TransferPatience);
}

ssize_t Connection::read(char* target, size_t size) {
    if (allowance_ == 0 || !fillBuffer())
        return -1;
    const size_t count = std::min({size, bufferedTo_ - bufferedFrom_, allowance_});
    std::memcpy(target, buffer_.data() + bufferedFrom_, count);
    bufferedFrom_ += count;
    allowance_ -= count;
    return static_cast<ssize_t>(count);
}

bool Connection::fillBuffer() {
    if (bufferedFrom_ < bufferedTo_)
        return true;
    if (!await(POLLIN, TransferPatience))
        return false;
    const ssize_t count = recv(socket_, buffer_.data(), buffer_.size(), MSG_DONTWAIT);
    bufferedFrom_ = 0;
    bufferedTo_ = count > 0 ? static_cast<size_t>(count) : 0;
    return count > 0;
}

ssize_t Connection::write(const char* bytes, size_t size) {
    if (abandoned_)
        return -1;
    size_t written = 0;
    while (written < size) {
        const ssize_t count = send(socket_, bytes + written, size - written, MSG_DONTWAIT | MSG_NOSIGNAL);
        if (count > 0)
            written += static_cast<size_t>(count);
        else if (errno == EINTR)
            continue;
        else if ((errno != EAGAIN && errno != EWOULDBLOCK) || !await(POLLOUT, TransferPatience))
            return -1;
    }
    return static_cast<ssize_t>(written);
}

void Connection::get_remote_ip_and_port(std::string& ip, int& port) const {
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    if (getpeername(socket_, reinterpret_cast<sockaddr*>(&address), &length) == 0)
        readEndpoint(address, ip, port);
}

void Connection::get_local_ip_and_port(std::string& ip, int& port) const {
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    if (getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length) == 0)
        readEndpoint(address, ip, port);
}

bool Connection::await(short events, std::optional<milliseconds> patience) const {
    const auto end = steady_clock::now() + patience.value_or(milliseconds(0));
    while (true) {
        const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
        const int timeout = patience ? static_cast<int>(std::max<int64_t>(0, left.count())) : -1;
        std::array<pollfd, 2> watched = {pollfd{socket_, events, 0}, pollfd{stop_.descriptor(), POLLIN, 0}};
        const int ready = poll(watched.data(), watched.size(), timeout);
        if (ready < 0 && errno == EINTR)
            continue;
        return ready > 0 && watched[1].revents == 0 && watched[0].revents != 0;
    }
}

void Connection::awaitDelivery() const {
    const auto end = steady_clock::now() + DeliveryPatience;
    int unsent = 0;
    while (ioctl(socket_, SIOCOUTQ, &unsent) == 0 && unsent > 0 && steady_clock::now() < end)
        // The kernel has no event for an emptied queue.
        await(0, milliseconds(1));
}

} // namespace pixmo
