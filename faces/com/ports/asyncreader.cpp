#include "faces/com/ports/asyncreader.h"

#include "faces/com/ports/timers.h"
#include "faces/com/ports/transfer.h"

#include <utility>

namespace pixmo::com {

namespace {

/// The moniker may hold its transfer longer than anybody listens.
class Binding : public Connection {
public:
    explicit Binding(ComPtr<Transfer> transfer) : transfer_(std::move(transfer)) {}
    ~Binding() override { transfer_->stop(); }
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;

private:
    ComPtr<Transfer> transfer_;
};

} // namespace

AsyncReader::AsyncReader() : NetworkReader(std::make_unique<Timers>()) {}

std::unique_ptr<Connection> AsyncReader::connect(const std::string& target, ConnectionListener& listener) {
    const auto transfer = ComPtr<Transfer>::attach(new Transfer(listener));
    transfer->start(target);
    return std::make_unique<Binding>(transfer);
}

} // namespace pixmo::com
