#include "faces/com/ports/asyncreader.h"

#include <utility>

namespace pixmo::com {

AsyncReader::~AsyncReader() {
    for (const auto& [name, transfer] : std::exchange(running_, {}))
        transfer->cancel();
}

void AsyncReader::AsyncRead(const AsyncRequest& request) {
    CancelAsyncRead(request.PropertyName);
    const auto progress = [this](Download& download) {
        if (listener_)
            listener_->AsyncReadProgress(download.progress());
    };
    const auto completed = [this](Download& download) { complete(download); };
    const auto transfer = ComPtr<Transfer>::attach(new Transfer(request, limits_, progress, completed));
    running_[request.PropertyName] = transfer;
    transfer->start();
}

void AsyncReader::CancelAsyncRead(const std::string& propertyName) {
    const auto found = running_.find(propertyName);
    if (found == running_.end())
        return;
    const ComPtr<Transfer> transfer = found->second;
    running_.erase(found);
    transfer->cancel();
}

// The listener may end this reader.
void AsyncReader::complete(Download& download) {
    running_.erase(download.request().PropertyName);
    if (listener_)
        listener_->AsyncReadComplete(download.deliver());
}

} // namespace pixmo::com
