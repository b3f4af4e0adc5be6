#pragma once

#include <QtWidgets/QWidget>

namespace corvane {

class BoardText;

/// What the drawing board shows while there is no layout: how to get one.
class EmptyBoard final : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyBoard(QWidget *parent = nullptr);

    /// Says this in place of the invitation, from now on.
    void say(const QString &text);

Q_SIGNALS:
    void layoutAsked();
    void captureAsked();

private:
    BoardText *m_text;
};

} // namespace corvane
