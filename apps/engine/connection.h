#pragma once

#include "apps/engine/delivery.h"
#include "apps/engine/stopsignal.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <httplib.h>
#include <optional>
#include <string>

namespace pixmo {

/// One client's connection: what the HTTP library reads from and writes to, and what a fault needs to reach
/// below it. Every wait ends at once when the server stops. Used by one thread.
class Connection : public httplib::Stream {
public:
    /// Owns the socket. The signal outlives this.
    Connection(int socket, const StopSignal& stop);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Whether a further request arrives within that time. Each may be of MostRequestBytes.
    bool awaitRequest(std::chrono::milliseconds patience);

    /// Waits that long; false when the client left or the server stops meanwhile.
    bool pause(std::chrono::milliseconds time);
    /// Waits until the client leaves or the server stops.
    void awaitEnd();

    /// How the connection ends: what was written so far still arrives, then it is torn down or closed.
    void cut(Cut how) { cut_ = how; }

    /// Nothing more is sent: the answer under way is dropped and the connection closed.
    void abandon() { abandoned_ = true; }

    bool is_readable() const override;
    bool is_writable() const override;
    ssize_t read(char* target, size_t size) override;
    ssize_t write(const char* bytes, size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;
    socket_t socket() const override { return socket_; }

    static constexpr size_t MostRequestBytes = size_t{128} << 10U;

private:
    /// False at the time-out (none when not given) and when the server stops.
    bool await(short events, std::optional<std::chrono::milliseconds> patience) const;
    bool fillBuffer();
    void awaitDelivery() const;

    int socket_;
    const StopSignal& stop_;
    Cut cut_ = Cut::None;
    bool abandoned_ = false;
    size_t allowance_ = 0; ///< bytes that may still be read for this request
    std::array<char, 4096> buffer_{};
    size_t bufferedFrom_ = 0;
    size_t bufferedTo_ = 0;
};

} // namespace pixmo
