#pragma once

#include <QtWidgets/QListWidget>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QWidget>

namespace corvane::demo {

/// A small application of Qt's: notes in a list, the chosen one in an editor.
class NotesWindow final : public QWidget
{
public:
    NotesWindow();

private:
    QWidget *sidebar();
    void showNote(int row);

    QListWidget *m_list;
    QTextEdit *m_editor;
};

} // namespace corvane::demo
