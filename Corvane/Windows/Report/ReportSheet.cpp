#include "ReportSheet.h"

#include "BoardStyle.h"
#include "Buttons.h"
#include "Drawing.h"
#include "Match.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QShortcut>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// A text to be selected and copied.
QLineEdit *readOnlyField(const QString &text, const QString &name)
{
    auto *field = new QLineEdit(text);
    field->setReadOnly(true);
    field->setFont(Board::font(Board::Type::numerals));
    field->setMinimumHeight(Board::length(36));
    field->setAccessibleName(name);
    field->setCursorPosition(0);
    return field;
}

void copyText(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace

ReportSheet::ReportSheet(ReportGoal goal, QWidget *window)
    : Sheet(tr("Report a Problem"), 500, window), m_goal(goal), m_form(new ReportForm(goal))
{
    addHead(tr("REPORT A PROBLEM"));
    content().addWidget(m_form);
    connect(&m_form->field(), &QPlainTextEdit::textChanged, this,
        [this] { Q_EMIT textChanged(text()); });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        connect(new QShortcut(Qt::CTRL | key, this), &QShortcut::activated, this, [this] {
            if (m_send)
                m_send->click();
        });
    }
    setPhase({});
}

// It goes with its window, without being closed.
ReportSheet::~ReportSheet()
{
    tellClosed();
}

void ReportSheet::done(int result)
{
    tellClosed();
    Sheet::done(result);
}

void ReportSheet::tellClosed()
{
    if (!std::exchange(m_isClosed, true) && onClose)
        onClose();
}

void ReportSheet::setText(const QString &text)
{
    if (text == this->text())
        return;
    m_form->field().setPlainText(text);
    m_form->field().moveCursor(QTextCursor::End);
}

void ReportSheet::setCanSend(bool canSend)
{
    m_canSend = canSend;
    if (m_send)
        m_send->setEnabled(canSend);
}

void ReportSheet::setPhase(const ReportSheetPhase &phase)
{
    clearButtons();
    m_send = nullptr;
    if (m_outcome) {
        m_outcome->hide();
        m_outcome->deleteLater();
        m_outcome = nullptr;
    }
    QWidget *focused = match(
        phase.value, [this](ReportSheetPhase::Writing) { return showWriting(); },
        [this](ReportSheetPhase::Sending) { return showSending(); },
        [this](const ReportSheetPhase::Sent &sent) { return showSent(sent); },
        [this](const ReportSheetPhase::Saved &saved) { return showSaved(saved); },
        [this](const ReportSheetPhase::Failed &failed) { return showFailed(failed); });
    m_form->setVisible(!m_outcome);
    if (m_outcome)
        m_outcome->setVisible(true);
    focused->setFocus();
}

QWidget *ReportSheet::showWriting()
{
    addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    m_send =
        addDefault(m_goal == ReportGoal::server ? tr("Send") : tr("Save"), &ReportSheet::onSend);
    m_send->setEnabled(m_canSend);
    m_form->field().setReadOnly(false);
    setAccessibleDescription({});
    return &m_form->field();
}

QWidget *ReportSheet::showSending()
{
    QPushButton *cancel = addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    const QString words = m_goal == ReportGoal::server ? tr("Sending…") : tr("Saving…");
    addButton(words, QDialogButtonBox::AcceptRole)->setEnabled(false);
    m_form->field().setReadOnly(true);
    setAccessibleDescription(words);
    return cancel;
}

QWidget *ReportSheet::showSent(const ReportSheetPhase::Sent &sent)
{
    addOutcome(u"checkmark"_s, &Board::Palette::ready, tr("Sent"), tr("Thanks."));
    addText(tr("Your report number"));
    QLineEdit *number = readOnlyField(sent.id, tr("Your report number"));
    m_outcome->layout()->addWidget(number);
    addText(tr("If anybody asks about this report, this is the number to give them."));
    addText(tr("It goes straight to the person building Corvane, with the log that explains it."),
        &Board::Palette::muted);
    addCopy(tr("Copy"), [id = sent.id] { copyText(id); });
    addButton(tr("Close"), QDialogButtonBox::RejectRole)->setDefault(true);
    number->selectAll();
    return number;
}

QWidget *ReportSheet::showSaved(const ReportSheetPhase::Saved &saved)
{
    addOutcome(u"internaldrive"_s, &Board::Palette::accentType,
        saved.isOnDesktop ? tr("Saved on your Desktop") : tr("Saved"), tr("Nothing is lost"));
    addText(saved.why, &Board::Palette::muted);
    addText(saved.isOnDesktop
            ? tr("Everything you wrote, and what Corvane attached, is in this file on your "
                 "Desktop:")
            : tr("Everything you wrote, and what Corvane attached, is in this file:"));
    QLineEdit *name = readOnlyField(saved.fileName, tr("File"));
    auto *inField = new QHBoxLayout(name);
    inField->setContentsMargins(Board::margins(0, 0, Board::length(6), 0));
    QToolButton *copy = symbolButton(u"doc.on.doc"_s, &Board::Palette::muted, tr("Copy"));
    inField->addWidget(copy, 0, Qt::AlignTrailing | Qt::AlignVCenter);
    name->setTextMargins(Board::margins(0, 0, copy->sizeHint().width() + Board::length(6), 0));
    connect(copy, &QToolButton::clicked, this, [file = saved.fileName] { copyText(file); });
    m_outcome->layout()->addWidget(name);
    if (onOpenPage) {
        connect(addButton(tr("Open the Report Page"), QDialogButtonBox::ResetRole),
            &QPushButton::clicked, this, [this] { onOpenPage(); });
    }
    addButton(tr("Close"), QDialogButtonBox::RejectRole);
    return addDefault(tr("Show in Finder"), &ReportSheet::onShowFile);
}

QWidget *ReportSheet::showFailed(const ReportSheetPhase::Failed &failed)
{
    addOutcome(u"exclamationmark.triangle"_s, &Board::Palette::attention, tr("Not sent"),
        tr("What you wrote is kept"));
    addText(failed.why, &Board::Palette::muted);
    addText(tr("Copy Report puts it, with what Corvane attaches, on the clipboard to paste into a "
               "mail."));
    addCopy(tr("Copy Report"), [this] { onCopyReport(); });
    addButton(tr("Close"), QDialogButtonBox::RejectRole);
    return addDefault(tr("Try Again"), &ReportSheet::onTryAgain);
}

/// What has become of the report, in one word and with one that consoles.
void ReportSheet::addOutcome(
    const QString &symbol, BoardText::Tone tone, const QString &title, const QString &comfort)
{
    m_outcome = new QWidget;
    auto *column = new QVBoxLayout(m_outcome);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Board::length(8));
    auto *head = new QHBoxLayout;
    head->setSpacing(Board::length(12));
    head->addWidget(Drawing::ofSymbol(20, symbol, tone), 0, Qt::AlignTop);
    auto *words = new QVBoxLayout;
    words->setSpacing(Board::length(2));
    words->addWidget(headline(title));
    auto *line = new BoardText(comfort);
    QFont font = line->font();
    font.setWeight(QFont::Medium);
    line->setFont(font);
    words->addWidget(line);
    head->addLayout(words, 1);
    column->addLayout(head);
    content().addWidget(m_outcome);
    setAccessibleDescription(title);
}

void ReportSheet::addText(const QString &text, BoardText::Tone tone)
{
    m_outcome->layout()->addWidget(new BoardText(text, Board::Type::body, tone));
}

QPushButton *ReportSheet::addDefault(const QString &title, std::function<void()> ReportSheet::*act)
{
    QPushButton *button = addButton(title, QDialogButtonBox::AcceptRole);
    connect(button, &QPushButton::clicked, this, [this, act] { (this->*act)(); });
    button->setDefault(true);
    return button;
}

void ReportSheet::addCopy(const QString &title, const std::function<void()> &copy)
{
    QPushButton *button = addButton(title, QDialogButtonBox::ActionRole);
    connect(button, &QPushButton::clicked, this, [button, copy] {
        copy();
        button->setText(tr("Copied"));
    });
}

} // namespace corvane
