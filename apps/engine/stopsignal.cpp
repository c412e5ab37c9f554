#include "apps/engine/stopsignal.h"

#include <cerrno>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace pixmo {

StopSignal::StopSignal() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (descriptor_ < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
}

StopSignal::~StopSignal() {
    close(descriptor_);
}

void StopSignal::raise() {
    eventfd_write(descriptor_, 1);
}

} // namespace pixmo
