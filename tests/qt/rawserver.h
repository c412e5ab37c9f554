#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <functional>

class QTcpSocket;

namespace pixmo::qt {

/// A server that keeps what it is sent byte for byte and answers what it is told byte for byte.
class RawServer {
public:
    enum class Then { KeepOpen, Close, Reset };

    RawServer();
    ~RawServer();
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    /// For every request from now on; an empty answer is none.
    void answerWith(QByteArray answer, Then then = Then::KeepOpen);
    void answerWithBody(const QByteArray& body);

    /// "http://127.0.0.1:PORT" + path
    std::string address(const std::string& path = "/engine") const;
    const QList<QByteArray>& requests() const { return requests_; }
    int connections() const { return connections_; }

private:
    void serve(QTcpSocket& socket, QByteArray& received);

    QTcpServer server_;
    QByteArray answer_;
    Then then_ = Then::KeepOpen;
    QList<QByteArray> requests_;
    int connections_ = 0;
};

} // namespace pixmo::qt
