#include "tests/com/behaviour/enginecontrol.h"

#include <winsock2.h>

#include <sstream>
#include <stdexcept>

namespace pixmo::com::test {

namespace {

class Connection {
public:
    Connection(const std::string& host, uint16_t port) : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = inet_addr(host.c_str());
        if (connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            throw std::runtime_error("the engine is not there");
    }
    ~Connection() { closesocket(socket_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void send(const std::string& text) const {
        for (size_t sent = 0; sent < text.size();) {
            const int more = ::send(socket_, text.data() + sent, static_cast<int>(text.size() - sent), 0);
            if (more <= 0)
                throw std::runtime_error("the engine takes no orders");
            sent += static_cast<size_t>(more);
        }
    }
    std::string receive() const {
        std::string text;
        char part[4096];
        for (int more = 0; (more = recv(socket_, part, sizeof part, 0)) > 0;)
            text.append(part, static_cast<size_t>(more));
        return text;
    }

private:
    SOCKET socket_;
};

} // namespace

EngineControl::EngineControl(const std::string& address) {
    WSADATA facts{};
    WSAStartup(MAKEWORD(2, 2), &facts);
    const size_t host = address.find("://") + 3;
    const size_t port = address.find(':', host) + 1;
    host_ = address.substr(host, port - 1 - host);
    port_ = static_cast<uint16_t>(std::stoi(address.substr(port)));
}

std::string EngineControl::ask(const std::string& request) const {
    const Connection connection(host_, port_);
    connection.send(request);
    const std::string answer = connection.receive();
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
    for (std::string name, count; lines >> name >> count;)
        if (name == kind)
            return std::stoi(count);
    return 0;
}

} // namespace pixmo::com::test
