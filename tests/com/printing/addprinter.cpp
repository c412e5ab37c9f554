#include "tests/com/printing/testprinter.h"

#include <cstdio>
#include <filesystem>

/// addprinter PPD : adds the tests' printer to the system.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: addprinter description.ppd\n");
        return 2;
    }
    return pixmo::com::test_printer::add(std::filesystem::path(argv[1]).wstring()) ? 0 : 1;
}
