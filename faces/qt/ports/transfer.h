#pragma once

#include "core/control/download.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>

namespace pixmo::qt {

/// One download. Reports from the event loop only, and may be cancelled inside of its reports.
class Transfer : public QObject {
public:
    using Report = std::function<void(const AsyncProperty&)>;

    /// Starts. Throws as a Download does.
    Transfer(QNetworkAccessManager& network, const AsyncRequest& request, const TransferLimits& limits,
             Report progress, Report completed);
    ~Transfer() override;
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    /// Nothing more is reported, and no file is left. The object deletes itself later.
    void cancel();

private:
    void startTimers();
    void ask();
    void watch();
    bool diedBeforeAnswering() const;
    void receive();
    void finish();
    void conclude();
    void noteAnswer();

    Download download_;
    Report progress_;
    Report completed_;
    const QPointer<QNetworkAccessManager> network_;
    QNetworkReply* reply_ = nullptr;
    bool askedAgain_ = false;
    bool over_ = false; ///< only the report is outstanding
    QTimer stall_;
    QTimer progressPause_;
};

} // namespace pixmo::qt
