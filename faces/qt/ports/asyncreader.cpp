#include "faces/qt/ports/asyncreader.h"

#include "faces/qt/ports/systemproxies.h"

#include <system_error>
#include <utility>

namespace pixmo::qt {

AsyncReader::~AsyncReader() {
    for (const auto& [name, transfer] : std::exchange(running_, {}))
        if (transfer)
            transfer->cancel();
}

QNetworkAccessManager& AsyncReader::network() {
    if (hostNetwork_)
        return *hostNetwork_;
    if (!ownNetwork_) {
        ownNetwork_.reset(new QNetworkAccessManager);
        ownNetwork_->setProxyFactory(new SystemProxies);
    }
    return *ownNetwork_;
}

void AsyncReader::AsyncRead(const AsyncRequest& request) {
    CancelAsyncRead(request.PropertyName);
    running_[request.PropertyName] = new Transfer(
        network(), request, limits_, [this](const AsyncProperty& record) { progress(record); },
        [this](const AsyncProperty& record) { complete(record); });
}

void AsyncReader::CancelAsyncRead(const std::string& propertyName) {
    const auto found = running_.find(propertyName);
    if (found == running_.end())
        return;
    const QPointer<Transfer> transfer = found->second;
    running_.erase(found);
    if (transfer)
        transfer->cancel();
}

void AsyncReader::progress(const AsyncProperty& record) {
    if (listener_)
        listener_->AsyncReadProgress(record);
}

// The listener may end this reader.
void AsyncReader::complete(const AsyncProperty& record) {
    const auto found = running_.find(record.PropertyName);
    if (found->second)
        found->second->deleteLater();
    running_.erase(found);
    std::error_code ignored;
    if (listener_)
        listener_->AsyncReadComplete(record);
    else if (!record.File.empty())
        std::filesystem::remove(record.File, ignored);
}

} // namespace pixmo::qt
