# Headers that most files of a target include are parsed once. That must not hide a missing include: core and
# codecs are built without it but for Windows, and the presets asan, windows32 and windows64 build everything without.
#
#     pixmo_precompile(target headers...)       the target's own
#     pixmo_precompile(target REUSE other)      another target's: this one has the same flags and at least its
#                                               definitions (so a target without GoogleTest takes no test's)
option(PIXMO_PRECOMPILE "Parse the headers that many files include once" ON)

# Only headers from outside stand here: a change of one of ours recompiles what includes it, and no more.
set(PIXMO_STANDARD_PRECOMPILED
    <algorithm> <array> <cmath> <cstdint> <filesystem> <fstream> <functional> <map> <memory> <optional> <span>
    <string> <string_view> <utility> <vector>)
set(PIXMO_QT_PRECOMPILED ${PIXMO_STANDARD_PRECOMPILED}
    <QAction> <QApplication> <QDialog> <QDir> <QHash> <QImage> <QKeyEvent> <QLabel> <QLineEdit> <QNetworkAccessManager>
    <QPainter> <QPointer> <QPushButton> <QScrollBar> <QTimer> <QToolBar> <QVBoxLayout>)
set(PIXMO_COM_PRECOMPILED [["faces/com/system.h"]] ${PIXMO_STANDARD_PRECOMPILED})
# After the headers of what is tested.
set(PIXMO_TEST_PRECOMPILED <gmock/gmock.h> <gtest/gtest.h>)

function(pixmo_precompile target)
    if(NOT PIXMO_PRECOMPILE)
        return()
    endif()
    if(ARGV1 STREQUAL "REUSE")
        target_precompile_headers(${target} REUSE_FROM ${ARGV2})
    else()
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
    set_target_properties(${target} PROPERTIES PIXMO_PRECOMPILED ON)
endfunction()
