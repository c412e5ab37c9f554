#pragma once

// The sockets of this system under the names of POSIX.
#ifdef _WIN32
#include <winsock2.h>

namespace pixmo::transfers {

using Socket = SOCKET;
using SocketLength = int; ///< of an address
using Length = int;       ///< of data

inline void closeSocket(Socket socket) {
    closesocket(socket);
}

/// As long as sockets are used.
class Network {
public:
    Network() {
        WSADATA facts{};
        WSAStartup(MAKEWORD(2, 2), &facts);
    }
    ~Network() { WSACleanup(); }
    Network(const Network&) = delete;
    Network& operator=(const Network&) = delete;
};

} // namespace pixmo::transfers
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>

namespace pixmo::transfers {

using Socket = int;
using SocketLength = socklen_t;
using Length = size_t;

inline void closeSocket(Socket socket) {
    close(socket);
}

class Network {};

} // namespace pixmo::transfers
#endif
