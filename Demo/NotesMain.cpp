#include "NotesWindow.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Notes"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 11));
    QApplication::setCursorFlashTime(0);
    corvane::demo::NotesWindow window;
    window.show();
    return QApplication::exec();
}
