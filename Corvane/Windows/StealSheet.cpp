#include "StealSheet.h"

#include "KeyCaps.h"
#include "KeySentence.h"

#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace corvane {

StealSheet::StealSheet(AppModel &model, const ShortcutSteal &steal, QWidget *window)
    : Sheet(tr("Shortcut in Use"), 440, window), m_model(model)
{
    addHead(tr("SHORTCUT IN USE"), &Board::Palette::attention);
    const QString from = model.title(steal.from);
    content().addWidget(new KeySentence(
        tr("[[%1]] is currently assigned to %2.").arg(KeyCaps::glyphsOf(steal.combo), from)));
    content().addWidget(new BoardText(
        tr("Move it to %1? %2 will be left with no shortcut.").arg(model.title(steal.to), from),
        Board::Type::body, &Board::Palette::muted));
    addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    QPushButton *move = addButton(tr("Move It"), QDialogButtonBox::AcceptRole);
    move->setDefault(true);
    move->setFocus();
    connect(move, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::accepted, this, [this] { m_model.confirmSteal(); });
    connect(this, &QDialog::rejected, this, [this] { m_model.cancelSteal(); });
}

} // namespace corvane
