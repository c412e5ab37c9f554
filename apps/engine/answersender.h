#pragma once

#include "apps/engine/connection.h"
#include "apps/engine/delivery.h"

#include <chrono>
#include <cstddef>
#include <httplib.h>
#include <string>

namespace pixmo {

/// The body of one answer on its way: the HTTP library asks for it piece by piece.
class AnswerSender {
public:
    /// The connection outlives this.
    AnswerSender(std::string body, const Delivery& delivery, Connection& connection)
        : body_(std::move(body)), delivery_(delivery), connection_(connection) {}

    size_t size() const { return body_.size(); }

    /// Sends bytes from `offset` on, at most `length`; false ends the connection.
    bool sendPiece(size_t offset, size_t length, httplib::DataSink& sink) const;

private:
    size_t pieceSize() const;
    std::chrono::milliseconds timeOf(size_t bytes) const;

    std::string body_;
    Delivery delivery_;
    Connection& connection_;
};

} // namespace pixmo
