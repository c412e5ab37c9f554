#include "bench/view/viewbench.h"

#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* folder : {"TMPDIR", "XDG_CONFIG_HOME"})
        qputenv(folder, home.path().toLocal8Bit());
    const QApplication application(argc, argv);
    try {
        pixmo::bench::turnPages();
        pixmo::bench::moveOverLargeDrawing();
        pixmo::bench::openManyThumbnails();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "view_bench: %s\n", failure.what());
        return 1;
    }
}
