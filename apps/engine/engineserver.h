#pragma once

#include "apps/engine/engine.h"
#include "apps/engine/fault.h"
#include "apps/engine/faultinjector.h"
#include "apps/engine/faultplan.h"
#include "apps/engine/httpserver.h"
#include "apps/engine/requestlog.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace pixmo {

struct ServerOptions {
    EngineSettings engine;
    std::string address = "127.0.0.1";
    int port = 0; ///< 0 for any free one
    std::filesystem::path log;
    std::chrono::milliseconds delay{0}; ///< before every answer
    std::vector<Fault> faults;
    bool control = false; ///< whether POST /faults and GET /stats are served
};

/// The sample imaging server: the engine behind HTTP on threads of its own, with the faults that it is told.
class EngineServer {
public:
    /// Listens as soon as it exists. Throws std::runtime_error when it cannot.
    explicit EngineServer(ServerOptions options);
    /// Stops at once, whatever its clients wait for.
    ~EngineServer();
    EngineServer(const EngineServer&) = delete;
    EngineServer& operator=(const EngineServer&) = delete;

    int port() const { return port_; }

    /// "http://HOST:PORT/engine"
    std::string address() const;

    /// Requests of that kind so far, faulty ones too.
    uint64_t requests(RequestKind kind) const { return requests_[static_cast<size_t>(kind)]; }

private:
    void addRoutes();
    void addControl();
    void listen();
    void answer(const httplib::Request& request, httplib::Response& response, Connection& connection);
    std::string statistics() const;

    ServerOptions options_;
    Engine engine_;
    FaultInjector injector_;
    FaultPlan plan_;
    RequestLog log_;
    std::array<std::atomic<uint64_t>, 4> requests_{};
    int port_ = 0;
    HttpServer http_;
    std::thread listener_;
};

} // namespace pixmo
