#pragma once

#include "core/control/networkreader.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>

namespace pixmo::qt {

/// One request to Qt's network.
class Transfer : public QObject, public Connection {
public:
    Transfer(QNetworkAccessManager& network, const std::string& target, ConnectionListener& listener);
    ~Transfer() override;
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

private:
    void ask();
    void leave();
    bool diedBeforeAnswering() const;
    void receive();
    void finish();
    void noteAnswer();

    const QPointer<QNetworkAccessManager> network_;
    const std::string target_;
    ConnectionListener& listener_;
    QNetworkReply* reply_ = nullptr;
    bool hasReceived_ = false;
    bool askedAgain_ = false;
};

} // namespace pixmo::qt
