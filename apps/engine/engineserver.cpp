#include "apps/engine/engineserver.h"

#include "apps/engine/answersender.h"

#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace pixmo {

namespace {

constexpr std::string_view Hello = "This is a sample imaging server. Viewers ask at /engine.\n";
constexpr std::string_view PlainText = "text/plain";

/// Behind the question mark, as it stands on the wire.
std::string_view queryOf(std::string_view target) {
    const size_t mark = target.find('?');
    return mark == std::string_view::npos ? std::string_view() : target.substr(mark + 1);
}

void fill(httplib::Response& response, const Answer& answer,
          const std::shared_ptr<const AnswerSender>& sender) {
    response.status = answer.httpStatus;
    response.set_header("Cache-Control", "no-store");
    for (const auto& [name, value] : answer.headers)
        response.set_header(name, value);
    if (sender->size() == 0) {
        response.set_content("", answer.contentType);
        return;
    }
    response.set_content_provider(sender->size(), answer.contentType,
                                  [sender](size_t offset, size_t length, httplib::DataSink& sink) {
                                      return sender->sendPiece(offset, length, sink);
                                  });
}

} // namespace

EngineServer::EngineServer(ServerOptions options)
    : options_(std::move(options)), engine_(options_.engine), injector_(engine_.builder()),
      log_(options_.log) {
    plan_.replace(options_.faults);
    addRoutes();
    if (options_.control)
        addControl();
    listen();
}

EngineServer::~EngineServer() {
    http_.stopAll();
    listener_.join();
}

std::string EngineServer::address() const {
    const bool bracketed = options_.address.find(':') != std::string::npos;
    const std::string host = bracketed ? '[' + options_.address + ']' : options_.address;
    return "http://" + host + ':' + std::to_string(port_) + "/engine";
}

void EngineServer::addRoutes() {
    http_.Get("/", [](const httplib::Request&, httplib::Response& response) {
        response.set_content(std::string(Hello), std::string(PlainText));
    });
    http_.serve("/engine", [this](const httplib::Request& request, httplib::Response& response,
                                  Connection& connection) { answer(request, response, connection); });
}

void EngineServer::addControl() {
    http_.Post("/faults", [this](const httplib::Request& request, httplib::Response& response) {
        try {
            plan_.replace(parseFaults(request.body));
            response.set_content("OK\n", std::string(PlainText));
        } catch (const std::invalid_argument& refusal) {
            response.status = 400;
            response.set_content(std::string(refusal.what()) + '\n', std::string(PlainText));
        }
    });
    http_.Get("/stats", [this](const httplib::Request&, httplib::Response& response) {
        response.set_content(statistics(), std::string(PlainText));
    });
}

void EngineServer::listen() {
    port_ = http_.bind(options_.address, options_.port);
    if (port_ <= 0)
        throw std::runtime_error("Cannot listen on " + options_.address + " port " +
                                 std::to_string(options_.port) + '.');
    listener_ = std::thread([this] { http_.listen_after_bind(); });
    // A stop that comes before the library's loop runs would be lost.
    while (!http_.is_running())
        std::this_thread::yield();
}

void EngineServer::answer(const httplib::Request& request, httplib::Response& response,
                          Connection& connection) {
    Engine::Reply reply = engine_.reply(queryOf(request.target), request.remote_addr);
    const RequestKind kind = reply.request.kind;
    ++requests_[static_cast<size_t>(kind)];
    const Delivery delivery = injector_.apply(plan_.take(kind), reply.request, request.target, reply.answer);
    std::string body = engine_.builder().body(reply.answer);
    log_.write(request.remote_addr, reply.request, reply.answer.summary, delivery.stall ? 0 : body.size());
    const auto delay = options_.delay + delivery.delay;
    if (delay.count() > 0 && !connection.pause(delay))
        return connection.abandon();
    if (delivery.stall) {
        connection.awaitEnd();
        return connection.abandon();
    }
    fill(response, reply.answer, std::make_shared<AnswerSender>(std::move(body), delivery, connection));
}

std::string EngineServer::statistics() const {
    std::string lines;
    for (const RequestKind kind :
         {RequestKind::InitialContact, RequestKind::PageCount, RequestKind::GetPage, RequestKind::Unknown})
        lines += std::string(requestCode(kind)) + ' ' + std::to_string(requests(kind)) + '\n';
    return lines;
}

} // namespace pixmo
