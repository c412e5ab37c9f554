#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pixmo {

namespace log_mode {
inline constexpr int32_t Automatic = 0;
inline constexpr int32_t Off = 1;
inline constexpr int32_t ToFile = 2;
inline constexpr int32_t ToSystem = 3; ///< to standard error, as is Automatic
} // namespace log_mode

namespace log_level {
inline constexpr int32_t Error = 1;
inline constexpr int32_t Warning = 2;
inline constexpr int32_t Information = 4;
} // namespace log_level

/// The log service that all controls of a process share. It writes one line an entry: the text, a tab, and
/// the level in brackets.
class ApplicationLog {
public:
    static ApplicationLog& instance();

    /// The path is UTF-8. Mode Off keeps it. Entries are appended to what the file has.
    void StartLogging(const std::string& path, int32_t mode);
    int32_t LogMode() const { return mode_; }
    const std::string& LogPath() const { return path_; }

    /// Throws path/file access (75) when the file cannot be opened, disk full (61) when it cannot be
    /// written. Control characters of the text are written as their Unicode pictures, so that one entry
    /// stays one line.
    void LogEvent(std::string_view text, int32_t level);

private:
    void writeToFile(const std::string& line);

    int32_t mode_ = log_mode::Automatic;
    std::string path_;
    bool torn_ = false; ///< the last entry could not be written whole
};

} // namespace pixmo
