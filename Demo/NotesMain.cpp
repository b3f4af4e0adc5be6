#include <QtWidgets/QApplication>
#include <QtWidgets/QTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *note = R"(<h2>Moving windows</h2>
<p>Press once and the window stands there. Press Left Half again, and it takes two thirds, then
one.</p>
<table cellpadding='4'>
<tr><td><code>Ctrl Alt Super</code> + arrow</td><td>Halves</td></tr>
<tr><td><code>Ctrl Alt Shift</code> + arrow</td><td>Quarters</td></tr>
<tr><td><code>Ctrl Alt</code> + D, F, G</td><td>Thirds</td></tr>
<tr><td><code>Ctrl Alt</code> + left, right</td><td>Other display</td></tr>
<tr><td><code>Ctrl Alt Super</code> + /</td><td>Snap back</td></tr>
</table>)";

} // namespace

/// A small application of Qt's: a note in an editor.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setFont(QFont(u"DejaVu Sans"_s, 11));
    QApplication::setCursorFlashTime(0);
    QTextEdit editor(QString::fromUtf8(note));
    editor.setWindowTitle(u"Notes"_s);
    editor.setStyleSheet(u"background: #FBFAF6; color: #1B1D22; border: none; padding: 12px"_s);
    editor.resize(720, 480);
    editor.show();
    return QApplication::exec();
}
