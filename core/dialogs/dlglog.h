#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace pixmo {

/// The window with the tail of the log.
class dlgLog {
public:
    static constexpr size_t TailBytes = size_t{512} * 1024;

    explicit dlgLog(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }
    /// Reads the last lines anew; the text says so when there is no log.
    void refresh();
    const std::string& text() const { return text_; }

private:
    std::filesystem::path path_;
    std::string text_;
};

} // namespace pixmo
