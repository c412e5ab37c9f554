#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace pixmo {

/// What goes back to a viewer, before it takes the form of the wire.
struct Answer {
    enum class Form {
        Text, ///< `text` under `key`, in hexadecimal
        Page, ///< `page`, protected
        Raw,  ///< `text` byte for byte
    };

    Form form = Form::Text;
    std::string text;
    std::string key;
    std::vector<uint8_t> page; ///< the clear file
    int httpStatus = 200;
    std::string contentType = "text/plain";
    std::vector<std::pair<std::string, std::string>> headers; ///< further ones of HTTP
    std::string summary;                                      ///< for the log: "OK", "ER2042"
};

} // namespace pixmo
