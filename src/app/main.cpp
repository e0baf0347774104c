#include "app/main_dialog.h"
#include "app/window_update.h"
#include "frame/crash_dump.h"

#include <QApplication>
#include <QFileInfo>

// Names given on the command line (games, folders, list files, as a desktop's "open with" passes them) are
// added to the list as a drop of them would be.
int main(int argc, char* argv[])
{
    zunbrix::InstallCrashHandler();
    zunbrix::CrashWhenTestAsks();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zunbrix"));
    // The window may live on hidden in the tray, with a dialog of the tray's menu the only one shown: the
    // program ends when the window exits, not when the last window closes.
    QApplication::setQuitOnLastWindowClosed(false);
    zunbrix::CMainDialog window(std::make_unique<zunbrix::DialogQuestions>());
    QObject::connect(&window, &zunbrix::CMainDialog::exited, &application, &QApplication::quit, Qt::QueuedConnection);
    window.show();
    zunbrix::WindowUpdate update(window);
    update.start();
    // Names on the command line are meant from the current folder, where the list's own relative paths start
    // at the program's folder.
    QStringList names;
    for (const QString& name : QApplication::arguments().mid(1))
        names.push_back(QFileInfo(name).absoluteFilePath());
    window.addFiles(names);
    return QApplication::exec();
}
