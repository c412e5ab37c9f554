#include "bench/view/viewbench.h"

#include <QApplication>
#include <QTemporaryDir>
#include <array>
#include <cstdio>
#include <exception>
#include <utility>

// view_bench [turns|drawing|thumbnails]
int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* folder : {"TMPDIR", "XDG_CONFIG_HOME"})
        qputenv(folder, home.path().toLocal8Bit());
    const QApplication application(argc, argv);
    const QString wanted = QApplication::arguments().value(1);
    const std::array<std::pair<const char*, void (*)()>, 3> parts = {
        {{"turns", pixmo::bench::turnPages},
         {"drawing", pixmo::bench::moveOverLargeDrawing},
         {"thumbnails", pixmo::bench::openManyThumbnails}}};
    try {
        for (const auto& [name, run] : parts)
            if (wanted.isEmpty() || wanted == QLatin1String(name))
                run();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "view_bench: %s\n", failure.what());
        return 1;
    }
}
