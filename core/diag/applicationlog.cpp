#include "core/diag/applicationlog.h"

#include "core/base/error.h"
#include "core/base/text.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace pixmo {

namespace {

/// C0 controls and DEL as the pictures that Unicode has for them; what else would break a line as U+FFFD.
char32_t printable(char32_t character) {
    if (character < 0x20 && character != '\t')
        return 0x2400 + character;
    if (character == 0x7F)
        return 0x2421;
    const bool breaksLines =
        (character >= 0x80 && character < 0xA0) || character == 0x2028 || character == 0x2029;
    return breaksLines ? ReplacementCharacter : character;
}

std::string oneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size() + 8);
    for (size_t at = 0; at < text.size();) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte >= 0x20 && byte < 0x7F) {
            line.push_back(text[at]);
            ++at;
        } else {
            appendCharacter(line, printable(nextCharacter(text, at)));
        }
    }
    return line;
}

} // namespace

ApplicationLog& ApplicationLog::instance() {
    static ApplicationLog log;
    return log;
}

void ApplicationLog::StartLogging(const std::string& path, int32_t mode) {
    if (path != path_)
        torn_ = false;
    path_ = path;
    mode_ = mode;
}

void ApplicationLog::LogEvent(std::string_view text, int32_t level) {
    if (mode_ == log_mode::Off)
        return;
    const std::string line = oneLine(text) + "\t[" + std::to_string(level) + "]\n";
    if (mode_ == log_mode::ToFile)
        writeToFile(line);
    else
        std::fputs(line.c_str(), stderr);
}

// The file is open no longer than it takes to write an entry: help desks clear, move and remove logs under
// running programs.
void ApplicationLog::writeToFile(const std::string& line) {
    std::ofstream file(std::filesystem::path(reinterpret_cast<const char8_t*>(path_.c_str())), std::ios::app);
    if (!file)
        throw pathFileAccessError();
    file << (torn_ ? "\n" + line : line);
    file.close();
    torn_ = !file;
    if (torn_)
        throw diskFullError();
}

} // namespace pixmo
