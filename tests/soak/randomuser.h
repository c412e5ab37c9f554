#pragma once

#include "faces/qt/widget/imageview.h"
#include "tests/qt/engineprocess.h"

#include <QPointer>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <random>

class QAbstractScrollArea;

namespace pixmo::qt {

/// Does whatever a user and a host can do, at random, while the engine fails at random. Everything may
/// happen inside of everything: windows are answered, and more is done, while a call waits.
class RandomUser {
public:
    explicit RandomUser(uint32_t seed);

    /// Whether the viewer still works afterwards and left nothing behind; prints what is wrong.
    bool run(int steps);

private:
    void begin();
    void step();
    void command();
    void key();
    void mouse();
    void wheel();
    void host();
    void fault();
    void attend();
    /// Whatever window or menu stands is used or closed.
    void answerWindows();
    void answerDialog(QWidget& dialog);
    bool isSane();
    bool worksAfterAll();

    QAbstractScrollArea& page() const;
    QPoint somewhere(const QWidget& widget);
    int chance(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    std::minstd_rand random_;
    EngineProcess engine_;
    QPointer<ImageView> view_;
    QTimer attention_;
    int depth_ = 0; ///< steps inside of steps
    int steps_ = 0;
    int windows_ = 0;
    bool sane_ = true;
};

} // namespace pixmo::qt
