#include "bench/imaging/rows.h"

#include <algorithm>
#include <iterator>

int main(int argc, char** argv) {
    using namespace pixmo::bench;
    std::vector<Row> rows;
    for (auto* make : {reductionRows, turningRows, cipherRows})
        std::ranges::move(make(), std::back_inserter(rows));
    return runRows(argc, argv, rows);
}
