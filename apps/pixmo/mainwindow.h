#pragma once

#include "apps/pixmo/commandline.h"
#include "apps/pixmo/recentdocuments.h"
#include "faces/qt/widget/imageview.h"

#include <QKeySequence>
#include <QMainWindow>

namespace pixmo::viewer {

/// Gives the view what the command line says of the server.
void configure(qt::ImageView& view, const Options& options);

/// The viewer's window: the view and its menus.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(const Options& options);

    void open(const DocumentAddress& document);
    qt::ImageView& view() { return *view_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeView();
    void makeFileMenu();
    void makeViewMenu();
    void makeGoMenu();
    void makeHelpMenu();
    void addCommand(QMenu& menu, const char* key, const QKeySequence& shortcut = {});
    void fillRecentMenu();
    void restorePlace();
    void askForDocument();
    void showState();

    const Options options_;
    RecentDocuments recent_;
    qt::ImageView* view_ = nullptr;
    QString engine_; ///< that the view has been told
    QMenu* recentMenu_ = nullptr;
    struct Command {
        QAction* action;
        QLatin1String key;
    };
    QList<Command> commands_; ///< mirror the view's own
};

} // namespace pixmo::viewer
