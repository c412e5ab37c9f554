#pragma once

#include "core/control/download.h"
#include "faces/com/base/comptr.h"
#include "faces/com/ports/transfer.h"

#include <map>
#include <string>

namespace pixmo::com {

/// Transfers over HTTP and HTTPS by the system's URL monikers, with its proxies, certificates and cookies.
class AsyncReader : public pixmo::AsyncReader {
public:
    AsyncReader() = default;
    /// Cancels what is under way.
    ~AsyncReader() override;
    AsyncReader(const AsyncReader&) = delete;
    AsyncReader& operator=(const AsyncReader&) = delete;

    void setListener(AsyncReadListener* listener) override { listener_ = listener; }
    void AsyncRead(const AsyncRequest& request) override;
    void CancelAsyncRead(const std::string& propertyName) override;

    TransferLimits& limits() { return limits_; }

private:
    void complete(Download& download);

    AsyncReadListener* listener_ = nullptr;
    std::map<std::string, ComPtr<Transfer>> running_;
    TransferLimits limits_;
};

} // namespace pixmo::com
