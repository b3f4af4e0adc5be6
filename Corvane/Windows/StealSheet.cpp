#include "StealSheet.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "CorvaneMark.h"
#include "FocusRing.h"
#include "KeySentence.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double sheetWidth = 440;

} // namespace

StealSheet::StealSheet(AppModel &model, const ShortcutSteal &steal, QWidget *window)
    : QDialog(window), m_model(model)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(tr("Shortcut in Use"));
    setFixedWidth(Board::length(sheetWidth));
    new FocusRing(*this, true); // only keys lead here
    auto *column = new QVBoxLayout(this);
    const int margin = Board::length(24);
    column->setContentsMargins(margin, Board::length(20), margin, margin);
    column->setSpacing(Board::length(8));
    auto *head = new QHBoxLayout;
    head->setSpacing(Board::length(8));
    head->addWidget(CorvaneMark::widget(16));
    head->addWidget(new BoardText(u"Corvane"_s, Board::Type::label, &Board::Palette::muted), 1);
    head->addWidget(
        new BoardText(tr("SHORTCUT IN USE"), Board::Type::label, &Board::Palette::attention));
    column->addLayout(head);
    column->addSpacing(Board::length(8));
    const QString from = model.title(steal.from);
    column->addWidget(new KeySentence(
        tr("[[%1]] is currently assigned to %2.").arg(steal.combo.parts().join(QString()), from)));
    column->addWidget(new BoardText(
        tr("Move it to %1? %2 will be left with no shortcut.").arg(model.title(steal.to), from),
        Board::Type::body, &Board::Palette::muted));
    column->addSpacing(Board::length(12));
    auto *buttons = new QDialogButtonBox;
    QPushButton *cancel = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setAutoDefault(false);
    QPushButton *move = buttons->addButton(tr("Move It"), QDialogButtonBox::AcceptRole);
    move->setDefault(true);
    column->addWidget(buttons);
    move->setFocus(); // which it would not keep from before it was in the window
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::accepted, this, [this] { m_model.confirmSteal(); });
    connect(this, &QDialog::rejected, this, [this] { m_model.cancelSteal(); });
}

// Keys that are still held from the recording are not an answer.
void StealSheet::keyPressEvent(QKeyEvent *event)
{
    if (!event->isAutoRepeat())
        QDialog::keyPressEvent(event);
}

void StealSheet::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), BoardStyle::shared().colors().sheet);
}

} // namespace corvane
