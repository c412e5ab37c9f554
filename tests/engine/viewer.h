#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pixmo {

/// What a viewer sends and how it reads the answers, kept apart from the code that viewers run.
struct Viewer {
    std::string key = "OrrelKeyset qFlow";
    std::string delimiter = "\u00B7";
    std::string user = "jdoe";
    std::string machine = "WS-0042";

    /// Behind the question mark, percent-encoded.
    std::string contact() const;
    std::string pageCount(const std::string& document) const;
    std::string getPage(const std::string& document, const std::string& page) const;
    std::string enciphered(const std::string& plain) const;

    std::string deciphered(const std::string& hex) const;
    /// With the delimiter shown as "|".
    std::string readable(const std::string& hex) const;

    /// A text whose fields are parted by "|", in this viewer's delimiter.
    std::string delimited(std::string text) const;
};

/// The page as it was before its leading bytes were reversed.
std::vector<uint8_t> restored(const std::string& body, size_t protectedBytes);

/// ANSI bytes of a text with all but letters and digits percent-encoded.
std::string percentEncoded(const std::string& text);

} // namespace pixmo
