#include "NotesWindow.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <array>

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

struct Note {
    const char *title;
    const char *html;
};

constexpr std::array notes{
    Note{"Moving windows",
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
        "</table>"},
    Note{"Two displays",
        "<h2>Two displays</h2><p>The left one is 1680 × 1050 with a panel along its top, the right "
        "one 1280 × 1024.</p>"},
    Note{"To do",
        "<h2>To do</h2><ul><li>Write to Ada about the drawings</li><li>Paper, A2, without "
        "lines</li><li>Back up the terminal's settings</li></ul>"},
    Note{"Reading",
        "<h2>Reading</h2><p>The chapter on window managers: focus, stacking, and who decides "
        "how large a window is.</p>"},
};

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

} // namespace

NotesWindow::NotesWindow() : m_list(new QListWidget), m_editor(new QTextEdit)
{
    setWindowTitle(u"Notes"_s);
    setStyleSheet(QString::fromLatin1(lightSheet));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(0);
    row->addWidget(sidebar());
    row->addWidget(m_editor, 1);
    for (const Note &note : notes)
        m_list->addItem(QString::fromUtf8(note.title));
    connect(m_list, &QListWidget::currentRowChanged, this, &NotesWindow::showNote);
    m_list->setCurrentRow(0);
    m_editor->setFocus();
    resize(720, 480);
}

QWidget *NotesWindow::sidebar()
{
    auto *sidebar = new QWidget;
    sidebar->setObjectName(u"sidebar"_s);
    sidebar->setAttribute(Qt::WA_StyledBackground);
    sidebar->setFixedWidth(190);
    auto *heading = new QLabel(u"Notes"_s);
    heading->setObjectName(u"heading"_s);
    auto *button = new QPushButton(u"New note"_s);
    connect(button, &QPushButton::clicked, this, [this] {
        m_list->addItem(u"New note"_s);
        m_list->setCurrentRow(m_list->count() - 1);
    });
    auto *column = new QVBoxLayout(sidebar);
    column->setContentsMargins(12, 16, 12, 16);
    column->setSpacing(12);
    column->addWidget(heading);
    column->addWidget(m_list, 1);
    column->addWidget(button);
    return sidebar;
}

void NotesWindow::showNote(int row)
{
    const auto index = static_cast<std::size_t>(row);
    m_editor->setHtml(index < notes.size() ? QString::fromUtf8(notes[index].html) : QString());
}

} // namespace corvane::demo
