#pragma once

#include "bench/harness.h"

#include <vector>

namespace pixmo::bench {

/// Pages drawn smaller, and panning at their own size.
std::vector<Row> reductionRows();
/// Quarter turns of 1-bit pages.
std::vector<Row> turningRows();
/// The cipher, its hexadecimal form, and the order of protected bytes.
std::vector<Row> cipherRows();

} // namespace pixmo::bench
