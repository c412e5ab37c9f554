#pragma once

#include "apps/engine/connection.h"
#include "apps/engine/stopsignal.h"

#include <functional>
#include <httplib.h>
#include <string>

namespace pixmo {

/// The HTTP library's server with connections of our own: they can be paused, cut and stopped at once.
class HttpServer : public httplib::Server {
public:
    using ConnectionHandler = std::function<void(const httplib::Request&, httplib::Response&, Connection&)>;

    HttpServer();

    /// Listens on that port, 0 being any free one. The port, or -1 when it cannot be had.
    int bind(const std::string& address, int port);

    /// GET on that path, handled with the connection at hand.
    void serve(const std::string& path, ConnectionHandler handler);

    /// Ends every wait and transfer, then the listening; may be called from any thread.
    void stopAll();

private:
    bool process_and_close_socket(socket_t socket) override;

    StopSignal stop_;
};

} // namespace pixmo
