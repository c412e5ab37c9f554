#include "apps/engine/httpserver.h"

#include <sys/socket.h>
#include <utility>

namespace pixmo {

namespace {

/// Each connection holds a thread, a stalled one for as long as the client likes.
constexpr size_t Threads = 64;
constexpr std::chrono::seconds KeepAlivePatience{15};
constexpr size_t MostRequests = 1000; // over one connection
constexpr size_t MostPostedBytes = size_t{64} << 10U;

/// A handler of the library is not told its connection, but runs on the connection's thread.
thread_local Connection* servedConnection = nullptr;

class ServedConnection {
public:
    explicit ServedConnection(Connection& connection) { servedConnection = &connection; }
    ~ServedConnection() { servedConnection = nullptr; }
    ServedConnection(const ServedConnection&) = delete;
    ServedConnection& operator=(const ServedConnection&) = delete;
};

void shareNothing(socket_t socket) {
    // The library's own choice would let two servers listen on one port.
    const int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

} // namespace

HttpServer::HttpServer() {
    new_task_queue = [] { return new httplib::ThreadPool(Threads); };
    set_socket_options(shareNothing);
    set_tcp_nodelay(true);
    set_keep_alive_timeout(KeepAlivePatience.count());
    set_keep_alive_max_count(MostRequests);
    set_payload_max_length(MostPostedBytes);
}

int HttpServer::bind(const std::string& address, int port) {
    const int bound = port == 0 ? bind_to_any_port(address) : bind_to_port(address, port) ? port : -1;
    // The library's queue of five makes clients that come together wait for a second.
    if (bound > 0)
        ::listen(svr_sock_, SOMAXCONN);
    return bound;
}

void HttpServer::serve(const std::string& path, ConnectionHandler handler) {
    Get(path, [handler = std::move(handler)](const httplib::Request& request, httplib::Response& response) {
        handler(request, response, *servedConnection);
    });
}

void HttpServer::stopAll() {
    stop_.raise();
    stop();
}

bool HttpServer::process_and_close_socket(socket_t socket) {
    Connection connection(socket, stop_);
    const ServedConnection served(connection);
    bool closed = false;
    for (size_t left = MostRequests; left > 0 && !closed && connection.awaitRequest(KeepAlivePatience);
         --left)
        if (!process_request(connection, left == 1, closed, nullptr))
            return false;
    return true;
}

} // namespace pixmo
