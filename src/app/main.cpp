#include "app/main_dialog.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zunbrix"));
    zunbrix::CMainDialog window;
    window.show();
    return QApplication::exec();
}
