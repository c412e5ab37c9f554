#include "tests/engine/rawclient.h"

#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace pixmo {

RawClient::RawClient(int port) : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    if (connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("cannot connect");
}

RawClient::~RawClient() {
    close(socket_);
}

void RawClient::send(const std::string& bytes) {
    for (size_t sent = 0; sent < bytes.size();) {
        const ssize_t count = ::send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0)
            return; // the server may have had enough
        sent += static_cast<size_t>(count);
    }
}

void RawClient::get(const std::string& target) {
    send("GET " + target + " HTTP/1.1\r\nHost: engine\r\n\r\n");
}

bool RawClient::hasData() const {
    pollfd watched{socket_, POLLIN, 0};
    return poll(&watched, 1, 0) > 0;
}

std::string RawClient::receiveAll(End& end) {
    std::string all;
    std::array<char, 4096> piece{};
    while (true) {
        const ssize_t count = recv(socket_, piece.data(), piece.size(), 0);
        if (count > 0) {
            all.append(piece.data(), static_cast<size_t>(count));
            continue;
        }
        end = count < 0 && errno == ECONNRESET ? End::Reset : End::Closed;
        return all;
    }
}

std::string RawClient::receiveUntil(const std::string& text) {
    std::string all;
    char c = 0;
    while (all.find(text) == std::string::npos) {
        if (recv(socket_, &c, 1, 0) != 1)
            throw std::runtime_error("the connection ended after: " + all);
        all += c;
    }
    return all;
}

std::string bodyOf(const std::string& answer) {
    const size_t at = answer.find("\r\n\r\n");
    return at == std::string::npos ? "" : answer.substr(at + 4);
}

} // namespace pixmo
