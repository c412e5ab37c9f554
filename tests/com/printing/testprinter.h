#pragma once

#include <filesystem>
#include <string>

namespace pixmo::com {

/// A printer for tests that prints PostScript into a file, and is the user's usual one.
namespace test_printer {

inline constexpr const char* Name = "Pixmo Test Printer";

/// Adds it to the system. `description` is its PPD file. False, with the reason on standard error, when the
/// system refuses.
bool add(const std::wstring& description);

/// Where its jobs go, each in place of the one before; comes when the job ends.
std::filesystem::path spoolFile();
/// What was printed last, "" when nothing was; the file is removed.
std::string takeJob();

} // namespace test_printer

} // namespace pixmo::com
