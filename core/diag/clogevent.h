#pragma once

#include "core/diag/applicationlog.h"
#include "core/platform/clock.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pixmo {

/// The diagnostic log of one control: a level filter and time stamps in front of the application log.
/// Making and ending any instance switches the shared log off, whoever started it.
class cLogEvent {
public:
    /// The clock outlives the instance.
    explicit cLogEvent(const Clock& clock);
    ~cLogEvent();
    cLogEvent(const cLogEvent&) = delete;
    cLogEvent& operator=(const cLogEvent&) = delete;

    int32_t LogMode() const;
    void setLogMode(int32_t mode);
    const std::string& LogPath() const;
    /// A new path leaves logging off until it is started again.
    void setLogPath(const std::string& path);

    /// Whether the mode is anything but off.
    bool IsLogging() const;
    /// An empty target keeps the path, mode -1 keeps the mode.
    void StartLogging(const std::string& target, int32_t mode);
    void StopLogging();

    /// Entries of a greater level are dropped; 4 at first.
    int32_t MinimumEventLevel() const { return minimumEventLevel_; }
    void setMinimumEventLevel(int32_t level) { minimumEventLevel_ = level; }

    /// Never throws: a line that cannot be written is lost and leaves its error for GetLastError.
    void LogEvent(std::string_view message, int32_t level);
    void GetLastError(int32_t& number, std::string& source, std::string& description) const;

private:
    int32_t RecordError(const std::string& source);

    const Clock& clock_;
    int32_t minimumEventLevel_ = log_level::Information;
    int32_t lastErrorNumber_ = 0;
    std::string lastErrorSource_;
    std::string lastErrorDescription_;
};

} // namespace pixmo
