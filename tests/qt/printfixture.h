#pragma once

#include "core/printing/pageprinter.h"
#include "faces/qt/printing/printers.h"
#include "faces/scripted/scriptedports.h"
#include "faces/scripted/scriptedprinters.h"

#include <gtest/gtest.h>
#include <memory>

namespace pixmo::qt {

/// Paper by its code.
namespace paper {
inline constexpr int Letter = 1;
inline constexpr int Legal = 5;
inline constexpr int A3 = 8;
inline constexpr int A4 = 9;
} // namespace paper

/// Prints jobs on the face's printers.
class PrintFixture : public testing::Test {
protected:
    PrintResult print() {
        cPrinter printer(printers);
        return PagePrinter(errors, box, printer).imgPrintDoc(request, client);
    }

    scripted::MessageBox box;
    cErrObject errors{&box};
    Printers printers{std::make_shared<FaceLink>()};
    scripted::PrintClient client;
    PrintRequest request;
};

} // namespace pixmo::qt
