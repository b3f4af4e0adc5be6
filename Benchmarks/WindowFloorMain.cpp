// Shows an empty window of Qt's in the middle of the screen for each line that comes, and deletes it
// when it is closed: what no code of ours can shorten of the time that a window takes to open.
//
//   corvane-window-floor WIDTH HEIGHT

#include <QtCore/QSocketNotifier>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>

#include <cstdio>
#include <unistd.h>

int main(int argc, char **argv)
{
    qputenv("QT_NO_GLIB", "1");
    QApplication::setDesktopSettingsAware(false);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = application.arguments();
    QSocketNotifier line(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&line, &QSocketNotifier::activated, &application, [&] {
        char text[16];
        if (read(STDIN_FILENO, text, sizeof text) <= 0)
            return QCoreApplication::quit();
        auto *window = new QMainWindow;
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->resize(arguments.value(1).toInt(), arguments.value(2).toInt());
        window->move(window->screen()->availableGeometry().center() - window->rect().center());
        window->show();
    });
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}
