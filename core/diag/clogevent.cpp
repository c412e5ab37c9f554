#include "core/diag/clogevent.h"

#include "core/base/error.h"
#include "core/diag/cutilities.h"

namespace pixmo {

namespace {

constexpr const char* SourcePrefix = "cLogEvent.";
constexpr int16_t StampWidth = 30;

ApplicationLog& service() {
    return ApplicationLog::instance();
}

} // namespace

cLogEvent::cLogEvent(const Clock& clock) : clock_(clock) {
    StopLogging();
}

cLogEvent::~cLogEvent() {
    StopLogging();
}

int32_t cLogEvent::LogMode() const {
    return service().LogMode();
}

const std::string& cLogEvent::LogPath() const {
    return service().LogPath();
}

bool cLogEvent::IsLogging() const {
    return LogMode() != log_mode::Off;
}

void cLogEvent::setLogMode(int32_t mode) {
    if (mode == LogMode())
        return;
    if (IsLogging())
        StopLogging();
    StartLogging({}, mode);
}

void cLogEvent::setLogPath(const std::string& path) {
    if (path == LogPath())
        return;
    if (IsLogging())
        StopLogging();
    StartLogging(path, -1);
}

void cLogEvent::StartLogging(const std::string& target, int32_t mode) {
    const std::string path = target.empty() ? LogPath() : target;
    service().StartLogging(path, mode == -1 ? LogMode() : mode);
}

void cLogEvent::StopLogging() {
    try {
        service().StartLogging(std::string(LogPath()), log_mode::Off);
    } catch (...) {
        RecordError(std::string(SourcePrefix) + "StopLogging");
    }
}

void cLogEvent::LogEvent(std::string_view message, int32_t level) {
    try {
        if (!IsLogging() || level > minimumEventLevel_)
            return;
        std::string line;
        if (LogMode() == log_mode::ToFile)
            line = cUtilities::PadString(clock_.generalDate(), StampWidth, " ") + " ";
        line += message;
        service().LogEvent(line, level);
    } catch (...) {
        RecordError(std::string(SourcePrefix) + "LogEvent");
    }
}

int32_t cLogEvent::RecordError(const std::string& source) {
    const Error error = currentError();
    lastErrorNumber_ = error.Number;
    lastErrorSource_ = source;
    lastErrorDescription_ = error.Description;
    return lastErrorNumber_;
}

void cLogEvent::GetLastError(int32_t& number, std::string& source, std::string& description) const {
    number = lastErrorNumber_;
    source = lastErrorSource_;
    description = lastErrorDescription_;
}

} // namespace pixmo
