#include "bench/imaging/leptonica.h"
#include "bench/imaging/rows.h"
#include "bench/pages.h"
#include "core/imaging/rotation.h"

namespace pixmo::bench {

std::vector<Row> turningRows() {
    std::vector<Row> rows;
    for (const Size size : {Size{2550, 3300}, Size{9934, 14042}}) {
        const auto page = std::make_shared<const Raster>(textPage(size.width, size.height));
        Row row{"quarter turn 1-bit " + std::to_string(size.width) + "x" + std::to_string(size.height), {}};
        row.contenders.push_back({"ours", [=] { rotated(*page, Turn::Right); }});
#ifdef PIXMO_BENCH_LEPTONICA
        row.contenders.push_back(leptonicaQuarterTurn(page));
#endif
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace pixmo::bench
