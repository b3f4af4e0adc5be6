#pragma once

#include "ReleaseNotes.h"

#include <QtWidgets/QTextEdit>

namespace corvane {

/// What is new in a version, to be read and scrolled. Whatever the notes hold, it shows as text.
class NotesView final : public QTextEdit
{
    Q_OBJECT

public:
    explicit NotesView(QWidget *parent = nullptr);

    void setNotes(const QList<ReleaseNotes::Section> &notes);
};

} // namespace corvane
