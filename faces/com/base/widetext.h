#pragma once

#include <string>
#include <string_view>

namespace pixmo::com {

/// Ill-formed UTF-8 and lone surrogates become U+FFFD.
std::wstring toWide(std::string_view utf8);
std::string toUtf8(std::wstring_view wide);

} // namespace pixmo::com
