#include "LayoutTools.h"

#include "BoardStyle.h"
#include "Card.h"
#include "DesktopPreview.h"
#include "KeySentence.h"

#include <QtCore/QEvent>
#include <QtWidgets/QPushButton>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Tells whether the pointer or the keys are on a button.
class Attention final : public QObject
{
public:
    Attention(QWidget &widget, std::function<void(bool)> tell)
        : QObject(&widget), m_widget(widget), m_tell(std::move(tell))
    {
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::Enter:
        case QEvent::FocusIn:
            m_tell(m_widget.isEnabled());
            break;
        case QEvent::Leave:
        case QEvent::FocusOut:
        case QEvent::EnabledChange:
            m_tell(false);
            break;
        default:
            break;
        }
        return false;
    }

private:
    QWidget &m_widget;
    std::function<void(bool)> m_tell;
};

} // namespace

LayoutTools::LayoutTools(AppModel &model, LayoutPicture &picture, QWidget &list, QWidget *parent)
    : QWidget(parent), m_picture(picture)
{
    QHBoxLayout *line = Card::layoutRow(this, Board::length(42));
    line->setSpacing(Board::length(6));
    setMinimumWidth(Board::length(280)); // with words it would keep the room that they need
    const auto add = [&](const QString &symbol, const QString &title, const QString &tip) {
        auto *made = new QPushButton(title);
        made->setIcon(BoardStyle::icon(symbol, &Board::Palette::fore));
        made->setAccessibleName(title);
        made->setToolTip(tip);
        return made;
    };
    const auto withKey = [](const QString &title, const QString &key) {
        return tr("%1 (%2)").arg(title, key);
    };
    m_columns =
        add(u"rectangle.split.2x1"_s, tr("Split Columns"), withKey(tr("Split Columns"), u"C"_s));
    m_rows = add(u"rectangle.split.1x2"_s, tr("Split Rows"), withKey(tr("Split Rows"), u"R"_s));
    m_remove = add(u"trash"_s, tr("Remove"),
        withKey(tr("Remove"), QKeySequence(Qt::Key_Delete).toString(QKeySequence::NativeText)));
    m_preview = add(u"eye"_s, tr("Show on Desktop"), tr("Show on Desktop (hold Space)"));
    m_preview->setCheckable(true);
    m_hint = new KeySentence(
        tr("[[⌃]] no snapping [[⎋]] cancel"), Board::Type::secondary, &Board::Palette::muted);
    // It comes and goes while the picture is dragged, which is not to move by that.
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    m_hint->setSizePolicy(policy);
    m_hint->setFixedHeight(m_hint->sizeHint().height());
    m_hint->hide();
    for (QPushButton *each : {m_columns, m_rows, m_remove})
        line->addWidget(each);
    line->addWidget(m_hint, 1);
    line->addWidget(m_preview);
    connect(m_columns, &QPushButton::clicked, &picture,
        [&picture] { picture.split(CutLines::vertical); });
    connect(m_rows, &QPushButton::clicked, &picture,
        [&picture] { picture.split(CutLines::horizontal); });
    connect(m_remove, &QPushButton::clicked, &picture, &LayoutPicture::remove);
    new Attention(*m_remove, [&picture](bool isOn) { picture.showRemoval(isOn); });
    new DesktopPreview(model, picture, list, *m_preview);
    for (const auto signal : {&LayoutPicture::currentPaneChanged, &LayoutPicture::shownChanged})
        connect(&picture, signal, this, &LayoutTools::follow);
    follow();
}

void LayoutTools::follow()
{
    m_columns->setEnabled(m_picture.canSplit(CutLines::vertical));
    m_rows->setEnabled(m_picture.canSplit(CutLines::horizontal));
    m_remove->setEnabled(m_picture.currentPane().has_value());
    m_hint->setVisible(m_picture.isDragging() && m_hint->width() >= m_hint->sizeHint().width());
}

void LayoutTools::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const QList<QPushButton *> buttons{m_preview, m_remove, m_rows, m_columns};
    for (QPushButton *each : buttons)
        each->setText(each->accessibleName());
    for (QPushButton *each : buttons) {
        layout()->invalidate();
        if (layout()->sizeHint().width() > width())
            each->setText({});
    }
}

} // namespace corvane
