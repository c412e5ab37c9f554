#include "faces/qt/widget/imageview.h"

#include <QApplication>
#include <QMainWindow>
#include <QStatusBar>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    auto* const view = new pixmo::qt::ImageView(&window);
    window.setCentralWidget(view);
    QObject::connect(view, &pixmo::qt::ImageView::PageChanged, &window, [&window](int document, int page) {
        window.statusBar()->showMessage(QStringLiteral("Document %1, page %2").arg(document).arg(page));
    });
    window.resize(900, 700);
    window.show();

    view->setEngineAddress(QApplication::arguments().value(1));
    view->LoadDocumentByDocID(QApplication::arguments().value(2).toInt(), 1);
    return QApplication::exec();
}
