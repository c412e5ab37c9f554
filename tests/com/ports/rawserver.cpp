#include <winsock2.h>

#include "tests/com/ports/rawserver.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace pixmo::com {

RawServer::RawServer() {
    WSADATA facts{};
    WSAStartup(MAKEWORD(2, 2), &facts);
    listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int length = sizeof place;
    auto* const address = reinterpret_cast<sockaddr*>(&place);
    if (bind(listener_, address, length) != 0 || listen(listener_, 8) != 0 ||
        getsockname(listener_, address, &length) != 0)
        throw std::runtime_error("The test's server does not start.");
    port_ = ntohs(place.sin_port);
    thread_ = std::thread([this] { serve(); });
}

RawServer::~RawServer() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    thread_.join();
    for (const uintptr_t client : clients_)
        closesocket(client);
    closesocket(listener_);
    WSACleanup();
}

std::string RawServer::address(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

void RawServer::answerWith(const std::string& answer, Then then) {
    const std::lock_guard lock(mutex_);
    answer_ = answer;
    then_ = then;
}

void RawServer::answerWithBody(const std::string& body) {
    answerWith("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body);
}

void RawServer::answerBy(std::function<std::string(const std::string& request)> maker) {
    const std::lock_guard lock(mutex_);
    maker_ = std::move(maker);
}

std::vector<std::string> RawServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

void RawServer::serve() {
    for (;;) {
        fd_set ready;
        FD_ZERO(&ready);
        FD_SET(listener_, &ready);
        for (const uintptr_t client : clients_)
            FD_SET(client, &ready);
        timeval pause = {0, 20'000};
        const int count = select(0, &ready, nullptr, nullptr, &pause);
        const std::lock_guard lock(mutex_);
        if (ending_)
            return;
        if (count <= 0)
            continue;
        if (FD_ISSET(listener_, &ready))
            clients_.push_back(accept(listener_, nullptr, nullptr));
        for (const uintptr_t client : std::vector<uintptr_t>(clients_))
            if (FD_ISSET(client, &ready))
                readFrom(client);
    }
}

/// A request is small: it comes in one piece.
void RawServer::readFrom(uintptr_t client) {
    std::array<char, 16'384> bytes{};
    const int count = recv(client, bytes.data(), static_cast<int>(bytes.size()), 0);
    if (count > 0) {
        requests_.emplace_back(bytes.data(), static_cast<size_t>(count));
        if (maker_)
            answer_ = maker_(requests_.back());
        answer(client);
    }
    if (count <= 0 || then_ != Then::KeepOpen) {
        closesocket(client);
        clients_.erase(std::remove(clients_.begin(), clients_.end(), client), clients_.end());
    }
}

void RawServer::answer(uintptr_t client) {
    for (size_t sent = 0; sent < answer_.size();) {
        const int count = send(client, answer_.data() + sent,
                               static_cast<int>(std::min<size_t>(answer_.size() - sent, 65'536)), 0);
        if (count <= 0)
            return;
        sent += static_cast<size_t>(count);
    }
    if (then_ != Then::Reset)
        return;
    const linger at = {1, 0};
    setsockopt(client, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&at), sizeof at);
}

} // namespace pixmo::com
