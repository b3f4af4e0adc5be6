#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QVBoxLayout>

/// An ordinary window of Qt's, as any Qt program has; its title is the first argument.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle(application.arguments().value(1));
    QVBoxLayout column(&window);
    QTextEdit text(QStringLiteral("A window of Qt's"));
    QPushButton button(QStringLiteral("Button"));
    column.addWidget(&text);
    column.addWidget(&button);
    window.setGeometry(250, 200, 520, 360);
    window.show();
    return application.exec();
}
