#include <QtWidgets/QApplication>
#include <QtWidgets/QTextEdit>

/// An ordinary window of Qt's, as any Qt program has; its title is the first argument.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QTextEdit window(QStringLiteral("A window of Qt's"));
    window.setWindowTitle(application.arguments().value(1));
    window.setGeometry(250, 200, 520, 360);
    window.show();
    return application.exec();
}
