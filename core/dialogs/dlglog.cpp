#include "core/dialogs/dlglog.h"

#include "core/base/files.h"

#include <fstream>
#include <iterator>

namespace pixmo {

void dlgLog::refresh() {
    if (path_.empty() || !fileExists(path_)) {
        text_ = path_.empty() ? "No log is written." : "There is no log file yet.";
        return;
    }
    const auto size = std::filesystem::file_size(path_);
    std::ifstream file(path_, std::ios::binary);
    if (size > TailBytes)
        file.seekg(static_cast<std::streamoff>(size - TailBytes));
    text_.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    // The first line of a tail is rarely whole.
    if (size > TailBytes)
        text_.erase(0, text_.find('\n') + 1);
}

} // namespace pixmo
