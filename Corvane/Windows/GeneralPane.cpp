#include "GeneralPane.h"

#include "Accessibility.h"
#include "BoardText.h"
#include "Buttons.h"
#include "Card.h"
#include "Drawing.h"
#include "KeySentence.h"
#include "Platform.h"
#include "Segments.h"
#include "Switch.h"

#include <QtGui/QPainter>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// A point in the colour of a state, or a ring where the state needs the user.
Drawing *stateDot(bool isReady)
{
    return new Drawing(
        {16, 16}, [isReady](QPainter &painter, const QRectF &rect, const Board::Palette &palette) {
            const double inset = Board::length(4);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setBrush(isReady ? QBrush(palette.ready) : QBrush(Qt::NoBrush));
            painter.setPen(QPen(isReady ? palette.ready : palette.attention, 2));
            painter.drawEllipse(rect.adjusted(inset, inset, -inset, -inset));
        });
}

QString inPoints(double value)
{
    return GeneralPane::tr("%1 pt").arg(QLocale().toString(value, 'g', 6));
}

} // namespace

GeneralPane::GeneralPane(AppModel &model, QWidget *parent)
    : SettingsPage(SettingsPane::general, parent), m_model(model)
{
    addTrust();
    addCompetitors();
    addTiling();
    addAppearance();
    addPresence();
    scrolledContent().addStretch(1);
    connect(&model, &AppModel::accessibilityTrustedChanged, this, &GeneralPane::showTrust);
    connect(&model, &AppModel::competitorsChanged, this, &GeneralPane::showCompetitors);
    connect(&model, &AppModel::settingsChanged, this, &GeneralPane::showSettings);
    connect(&model, &AppModel::loginItemNoteChanged, this, &GeneralPane::showSettings);
    showTrust();
    showCompetitors();
    showSettings();
}

void GeneralPane::addTrust()
{
    m_trust = &addSection({});
    m_trust->setAccessibleName(tr("Accessibility"));
}

void GeneralPane::showTrust()
{
    empty(*m_trust->layout());
    if (m_model.accessibilityTrusted) {
        m_trust->addRow(tr("Accessibility access granted"),
            tr("Every shortcut and layout is live."), nullptr, stateDot(true));
        return;
    }
    auto *open = pushButton(tr("Open Accessibility Settings"), this,
        [] { std::ignore = Accessibility::openSettings(); });
    m_trust->addRow(tr("Corvane needs Accessibility access to move windows"),
        Platform::current().windows().distrustReason() + u' '
            + tr("This window notices by itself when that changes."),
        open, stateDot(false));
}

void GeneralPane::addCompetitors()
{
    m_competitors = new QWidget;
    auto *column = new QVBoxLayout(m_competitors);
    column->setContentsMargins(0, 0, 0, 0);
    scrolledContent().addWidget(m_competitors);
}

void GeneralPane::showCompetitors()
{
    auto &column = static_cast<QVBoxLayout &>(*m_competitors->layout());
    empty(column);
    m_competitors->setVisible(!m_model.competitors.value().isEmpty());
    if (m_competitors->isHidden())
        return;
    column.setSpacing(0);
    column.addSpacing(Board::length(20));
    column.addWidget(new BoardText(tr("Also Running"), Board::Type::label, &Board::Palette::faint));
    column.addSpacing(Board::length(8));
    auto *card = new Card;
    card->setAccessibleName(tr("Also Running"));
    for (const Competitor::Running &running : m_model.competitors.value()) {
        const QString name = running.competitor.name;
        auto *quit = pushButton(
            tr("Quit %1").arg(name), this, [this, running] { m_model.quit(running.application); });
        card->addRow(tr("%1 is running").arg(name),
            tr("Two programs that move windows by shortcuts get in each other's way."), quit,
            stateDot(false));
    }
    column.addWidget(card);
}

void GeneralPane::addTiling()
{
    Card &card = addSection(tr("Tiling"));
    addSlider(card, tr("Gap between windows"),
        tr("The space Corvane leaves at every shared edge and every screen edge."), &Settings::gap,
        0, 40, 1);
    addSwitch(card, tr("Repeat a shortcut to cycle sizes"),
        tr("A second press of Left Half goes 1/2 → 2/3 → 1/3 and round again."),
        &Settings::cycling);
    addSlider(card, tr("Larger / Smaller step"),
        tr("How much each axis grows or shrinks per press."), &Settings::sizeStep, 10, 200, 10);
}

void GeneralPane::addAppearance()
{
    Card &card = addSection(tr("Appearance"));
    QStringList titles;
    for (const Appearance appearance : appearances)
        titles << corvane::title(appearance);
    auto *choice = new Segments(tr("Theme"), titles);
    connect(choice, &Segments::chosen, this, [this](int number) {
        Settings settings = m_model.settings();
        settings.appearance = appearances[size_t(number)];
        m_model.setSettings(settings);
    });
    card.addRow(
        tr("Theme"), tr("Follow your Mac, or stay light or dark whatever it is set to."), choice);
    m_controls <<
        [choice](const Settings &settings) { choice->setCurrent(int(settings.appearance)); };
}

void GeneralPane::addPresence()
{
    Card &card = addSection(tr("Dock and Menu Bar"));
    addSwitch(card, tr("Launch at login"),
        tr("Starts Corvane when you log in, so the shortcuts work from the first window."),
        &Settings::launchAtLogin);
    auto *open = pushButton(
        tr("Open Login Items"), this, [] { Platform::current().session().openLoginItems(); });
    m_loginNote = card.addRow({}, {}, open, stateDot(false));
    addSwitch(card, tr("Show in the Dock and the app switcher"),
        tr("Off makes Corvane a menu bar app, out of the Dock and the app switcher ([[⌘⇥]])."),
        &Settings::showInDock);
    addSwitch(card, tr("Show icon in the menu bar"),
        tr("Shortcuts keep working without it. Opening Corvane from Applications brings this "
           "window "
           "back."),
        &Settings::showMenuBarIcon);
}

void GeneralPane::showSettings()
{
    m_loginNote->setVisible(m_model.loginItemNote.value().has_value());
    m_loginNote->findChild<BoardText *>()->setText(
        m_model.loginItemNote.value().value_or(QString()));
    for (const auto &show : std::as_const(m_controls))
        show(m_model.settings());
}

void GeneralPane::addSwitch(
    Card &card, const QString &title, const QString &explanation, bool Settings::*member)
{
    auto *lever = new Switch;
    // A click is only one way to toggle it; assistive technology has another one.
    connect(lever, &Switch::toggled, this, [this, member](bool isOn) {
        Settings settings = m_model.settings();
        settings.*member = isOn;
        m_model.setSettings(settings);
    });
    card.addRow(title, explanation, lever);
    m_controls <<
        [lever, member](const Settings &settings) { lever->setChecked(settings.*member); };
}

void GeneralPane::addSlider(Card &card, const QString &title, const QString &explanation,
    double Settings::*member, int least, int most, int step)
{
    auto *value = new BoardText({}, Board::Type::numerals);
    value->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(inPoints(most)));
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setFixedWidth(Board::length(140));
    // In points, as assistive technology tells them.
    slider->setRange(least, most);
    slider->setSingleStep(step);
    slider->setPageStep(5 * step);
    const auto save = [this, member, slider] {
        Settings settings = m_model.settings();
        settings.*member = slider->value();
        m_model.setSettings(settings);
    };
    // While it is dragged, only the number follows.
    connect(slider, &QSlider::valueChanged, this, [slider, value, step, save](int number) {
        if (number % step != 0)
            return slider->setValue(qRound(double(number) / step) * step);
        value->setText(inPoints(number));
        if (!slider->isSliderDown())
            save();
    });
    connect(slider, &QSlider::sliderReleased, this, save);
    QWidget *row = card.addRow(title, explanation, slider);
    row->layout()->addWidget(value);
    m_controls << [slider, value, member](const Settings &settings) {
        if (slider->isSliderDown())
            return;
        const QSignalBlocker blocker(slider);
        slider->setValue(qRound(settings.*member));
        value->setText(inPoints(settings.*member));
    };
}

} // namespace corvane
