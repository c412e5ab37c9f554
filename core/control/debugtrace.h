#pragma once

#include "core/base/text.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace pixmo {

/// The lines of the control's debug pane `txtDebug`, the oldest dropped when there are too many.
class DebugTrace {
public:
    static constexpr size_t MostLines = 500;

    void add(std::string line) {
        lines_.push_back(std::move(line));
        if (lines_.size() > MostLines)
            lines_.pop_front();
    }
    void clear() { lines_.clear(); }
    const std::deque<std::string>& lines() const { return lines_; }
    /// All of them, with line breaks between them.
    std::string text() const {
        std::string joined;
        for (const std::string& line : lines_)
            joined.append(joined.empty() ? std::string_view() : LineBreak).append(line);
        return joined;
    }

private:
    std::deque<std::string> lines_;
};

} // namespace pixmo
