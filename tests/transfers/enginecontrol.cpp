#include "tests/transfers/enginecontrol.h"

#include "tests/transfers/sockets.h"

#include <sstream>
#include <stdexcept>

namespace pixmo::transfers {

namespace {

/// What the engine answers until it ends the connection.
std::string answerTo(const std::string& request, const std::string& host, uint16_t port) {
    [[maybe_unused]] const Network network{};
    const Socket connection = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(port);
    place.sin_addr.s_addr = inet_addr(host.c_str());
    std::string answer;
    // An order is small: it goes out in one piece.
    if (connect(connection, reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0 &&
        send(connection, request.data(), static_cast<Length>(request.size()), 0) > 0) {
        char part[4096];
        for (auto count = recv(connection, part, sizeof part, 0); count > 0;
             count = recv(connection, part, sizeof part, 0))
            answer.append(part, static_cast<size_t>(count));
    }
    closeSocket(connection);
    return answer;
}

} // namespace

EngineControl::EngineControl(const std::string& address) {
    const size_t host = address.find("://") + 3;
    const size_t port = address.find(':', host) + 1;
    host_ = address.substr(host, port - 1 - host);
    port_ = static_cast<uint16_t>(std::stoi(address.substr(port)));
}

std::string EngineControl::ask(const std::string& request) const {
    const std::string answer = answerTo(request, host_, port_);
    const size_t body = answer.find("\r\n\r\n");
    if (body == std::string::npos || answer.find(" 200 ") > answer.find('\r'))
        throw std::runtime_error("the engine refuses: " + answer);
    return answer.substr(body + 4);
}

void EngineControl::setFaults(const std::string& faults) const {
    ask("POST /faults HTTP/1.0\r\nContent-Type: text/plain\r\nContent-Length: " +
        std::to_string(faults.size()) + "\r\n\r\n" + faults);
}

int EngineControl::requests(const std::string& kind) const {
    std::istringstream lines(ask("GET /stats HTTP/1.0\r\n\r\n"));
    int sum = 0;
    for (std::string name, count; lines >> name >> count;)
        sum += kind.empty() || name == kind ? std::stoi(count) : 0;
    return sum;
}

} // namespace pixmo::transfers
