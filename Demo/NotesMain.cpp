#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *note =
    "<h2>Moving windows</h2>"
    "<p>Press once and the window stands there. Press Left Half again, and it takes two "
    "thirds, then one.</p>"
    "<table cellpadding='4'>"
    "<tr><td><code>Ctrl Alt Super</code> + arrow</td><td>Halves</td></tr>"
    "<tr><td><code>Ctrl Alt Shift</code> + arrow</td><td>Quarters</td></tr>"
    "<tr><td><code>Ctrl Alt</code> + D, F, G</td><td>Thirds</td></tr>"
    "<tr><td><code>Ctrl Alt</code> + E, T</td><td>Two thirds</td></tr>"
    "<tr><td><code>Ctrl Alt Super</code> + M, C</td><td>Maximize, center</td></tr>"
    "<tr><td><code>Ctrl Alt</code> + left, right</td><td>Other display</td></tr>"
    "<tr><td><code>Ctrl Alt Super</code> + /</td><td>Snap back</td></tr>"
    "</table>";

constexpr const char *lightSheet = R"(
QWidget { background: #FBFAF6; color: #1B1D22; }
QWidget#sidebar, QWidget#sidebar * { background: #F4F2EC; }
QWidget#sidebar { border-right: 1px solid #DEDAD0; }
QLabel#heading { font-weight: 600; font-size: 15pt; }
QListWidget { border: none; outline: none; }
QListWidget::item { padding: 8px; border: 1px solid transparent; border-radius: 7px; }
QListWidget::item:selected { background: #FFFFFF; color: #1B1D22; border: 1px solid #DEDAD0; }
QPushButton { background: #2B55D9; color: #FFFFFF; border: none; border-radius: 7px; padding: 7px; }
QWidget#sidebar QPushButton { background: #2B55D9; }
QTextEdit { border: none; padding: 12px; }
)";

QWidget *sidebarWith(QListWidget *list)
{
    auto *sidebar = new QWidget;
    sidebar->setObjectName(u"sidebar"_s);
    sidebar->setAttribute(Qt::WA_StyledBackground);
    sidebar->setFixedWidth(190);
    auto *heading = new QLabel(u"Notes"_s);
    heading->setObjectName(u"heading"_s);
    auto *column = new QVBoxLayout(sidebar);
    column->setContentsMargins(12, 16, 12, 16);
    column->setSpacing(12);
    column->addWidget(heading);
    column->addWidget(list, 1);
    column->addWidget(new QPushButton(u"New note"_s));
    return sidebar;
}

} // namespace

/// A small application of Qt's: notes in a list, one of them in an editor.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Notes"_s);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setFont(QFont(u"DejaVu Sans"_s, 11));
    QApplication::setCursorFlashTime(0);
    auto *list = new QListWidget;
    auto *editor = new QTextEdit;
    list->addItems({u"Moving windows"_s, u"Two displays"_s, u"To do"_s, u"Reading"_s});
    list->setCurrentRow(0);
    editor->setHtml(QString::fromUtf8(note));
    QWidget window;
    window.setWindowTitle(u"Notes"_s);
    window.setStyleSheet(QString::fromLatin1(lightSheet));
    QHBoxLayout row(&window);
    row.setContentsMargins({});
    row.setSpacing(0);
    row.addWidget(sidebarWith(list));
    row.addWidget(editor, 1);
    editor->setFocus();
    window.resize(720, 480);
    window.show();
    return QApplication::exec();
}
