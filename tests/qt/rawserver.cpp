#include "tests/qt/rawserver.h"

#include <QTcpSocket>
#include <memory>
#include <sys/socket.h>

namespace pixmo::qt {

namespace {

/// Torn down at once instead of closed: what is not read yet is lost.
void reset(QTcpSocket& socket) {
    const linger now{1, 0};
    socket.flush();
    setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &now, sizeof now);
    socket.abort();
}

} // namespace

RawServer::RawServer() {
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
        QTcpSocket* const socket = server_.nextPendingConnection();
        ++connections_;
        QObject::connect(
            socket, &QTcpSocket::readyRead, socket,
            [this, socket, received = std::make_shared<QByteArray>()] { serve(*socket, *received); });
    });
    server_.listen(QHostAddress::LocalHost);
}

RawServer::~RawServer() = default;

void RawServer::answerWith(QByteArray answer, Then then) {
    answer_ = std::move(answer);
    then_ = then;
}

void RawServer::answerWithBody(const QByteArray& body) {
    answerWith("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
}

std::string RawServer::address(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + path;
}

void RawServer::serve(QTcpSocket& socket, QByteArray& received) {
    received += socket.readAll();
    for (qsizetype end = received.indexOf("\r\n\r\n"); end >= 0; end = received.indexOf("\r\n\r\n")) {
        requests_.append(received.left(end));
        received.remove(0, end + 4);
        socket.write(answer_);
        if (then_ == Then::Close)
            socket.disconnectFromHost();
        else if (then_ == Then::Reset)
            reset(socket);
    }
}

} // namespace pixmo::qt
