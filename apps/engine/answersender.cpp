#include "apps/engine/answersender.h"

#include <algorithm>
#include <cstdint>

namespace pixmo {

namespace {

constexpr int64_t DripsPerSecond = 50;

} // namespace

bool AnswerSender::sendPiece(size_t offset, size_t length, httplib::DataSink& sink) const {
    const bool drips = delivery_.bytesPerSecond > 0;
    size_t end = offset + (drips ? std::min(length, pieceSize()) : length);
    const size_t half = body_.size() / 2;
    const bool ends = delivery_.cut != Cut::None && end >= half;
    if (ends)
        end = std::max(offset, half);
    if (drips && !connection_.pause(timeOf(end - offset)))
        return false;
    if (end > offset && !sink.write(body_.data() + offset, end - offset))
        return false;
    if (ends)
        connection_.cut(delivery_.cut);
    return !ends;
}

size_t AnswerSender::pieceSize() const {
    return static_cast<size_t>(std::max<int64_t>(1, delivery_.bytesPerSecond / DripsPerSecond));
}

std::chrono::milliseconds AnswerSender::timeOf(size_t bytes) const {
    return std::chrono::milliseconds(static_cast<int64_t>(bytes) * 1000 / delivery_.bytesPerSecond);
}

} // namespace pixmo
