#pragma once

#include "core/platform/asyncreader.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>

namespace pixmo::qt {

/// What a transfer may take.
struct TransferLimits {
    int32_t stallMilliseconds = 60'000; ///< without any progress
    int64_t fileBytes = int64_t{1} << 30;
    int64_t textBytes = int64_t{1} << 20;
};

/// One download. Reports from the event loop only, and may be cancelled inside of its reports.
class Transfer : public QObject {
public:
    using Report = std::function<void(const AsyncProperty&)>;

    /// Starts. Throws invalid procedure call (5) for an address that cannot be asked, path/file access (75)
    /// when the file cannot be made.
    Transfer(QNetworkAccessManager& network, const AsyncRequest& request, const TransferLimits& limits,
             Report progress, Report completed);
    ~Transfer() override;
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    /// Nothing more is reported, and no file is left. The object deletes itself later.
    void cancel();

private:
    void openFile();
    void startTimers();
    void ask();
    void watch();
    bool diedBeforeAnswering() const;
    void receive();
    void keep(const QByteArray& data);
    void noteProgress();
    void finish();
    void fail(const QString& reason);
    void conclude();
    QString problem() const;
    qint64 announcedSize() const;
    AsyncProperty record(AsyncStatus status) const;

    const AsyncRequest request_;
    const TransferLimits limits_;
    Report progress_;
    Report completed_;
    const QPointer<QNetworkAccessManager> network_;
    QNetworkReply* reply_ = nullptr;
    bool askedAgain_ = false;
    QFile file_;
    QByteArray bytes_;
    int64_t received_ = 0;
    QString failure_;
    bool over_ = false; ///< only the report is outstanding
    QTimer stall_;
    QTimer progressPause_;
};

} // namespace pixmo::qt
