#include "Accessibility.h"
#include "Buttons.h"
#include "Drawing.h"
#include "KeyCaps.h"
#include "KeySentence.h"
#include "OnboardingView.h"
#include "Platform.h"

#include <algorithm>
#include <iterator>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double titleSize = 24; // of capitals
constexpr double symbolSize = 18;
constexpr QLatin1StringView rectangleID{"com.knollsoft.Rectangle"};

/// Whether the icon in the panel is there to be clicked.
bool hasMenuBarIcon(const AppModel &model)
{
    const Tray tray = Platform::current().ownWindows().tray();
    return model.settings().showMenuBarIcon && (!tray.isKnown || tray.isThere());
}

QList<Placement> takenPlacements(const AppModel &model)
{
    QList<Placement> taken;
    std::ranges::copy_if(allPlacements(), std::back_inserter(taken), [&model](Placement each) {
        return model.unregistered.value().contains({each})
            && model.settings().shortcuts.contains(each);
    });
    return taken;
}

QString markup(const KeyCombo &combo)
{
    return u"[[%1]]"_s.arg(KeyCaps::glyphsOf(combo));
}

/// Gives the placements these shortcuts in place of their own.
void take(AppModel &model, const ShortcutMap &combos)
{
    Settings settings = model.settings();
    for (const auto &[placement, combo] : combos.asKeyValueRange())
        settings.shortcuts.insert(placement, combo);
    model.setSettings(settings);
}

} // namespace

void OnboardingView::addHead(const QString &label, const QString &title)
{
    m_text->addWidget(new BoardText(label, Board::Type::label, &Board::Palette::muted));
    m_title = new BoardText(title, Board::Type::title);
    QFont font = m_title->font();
    font.setPixelSize(Board::length(titleSize));
    m_title->setFont(font);
    m_title->setWordWrap(true);
    m_title->setFocusPolicy(Qt::TabFocus); // so that it is read when the page has turned
    m_text->addWidget(m_title);
    m_text->addSpacing(Board::length(4));
}

void OnboardingView::addParagraph(const QString &sentence)
{
    auto *text = new KeySentence({});
    text->setLinkedSentence(sentence);
    connect(text, &KeySentence::linkFollowed, this, &OnboardingView::openLink);
    m_text->addWidget(text);
}

QBoxLayout &OnboardingView::addRow(const TourRow &row, BoardText::Tone tone)
{
    m_text->addSpacing(Board::length(2));
    auto *line = new QHBoxLayout;
    line->setSpacing(Board::length(12));
    line->addWidget(Drawing::ofSymbol(symbolSize, row.symbol, tone), 0, Qt::AlignTop);
    line->addWidget(new KeySentence(row.text), 1);
    m_text->addLayout(line);
    return *line;
}

void OnboardingView::addButton(const QString &title, std::function<void()> act)
{
    m_text->addWidget(pushButton(title, this, std::move(act)), 0, Qt::AlignLeading);
}

void OnboardingView::openLink(const QString &address)
{
    const QUrl url(address);
    if (url.scheme() == "corvane"_L1)
        m_model.pendingPane = url.fileName();
    else
        Platform::current().session().openAddress(url);
}

void OnboardingView::addWelcome()
{
    addHead(tr("WELCOME"), tr("WINDOWS WHERE YOU WANT THEM"));
    addParagraph(tr("Halves, quarters, thirds and sixths, and layouts that set up a whole desk.")
        + u' ' + tr("One shortcut each."));
    m_text->addSpacing(Board::length(8));
    addRow({u"network.slash"_s, tr("No telemetry, no analytics and no account")});
    addRow({u"internaldrive"_s, tr("Everything stays on this Mac, in files you can read")});
}

void OnboardingView::addAccessibility()
{
    addHead(tr("PERMISSION"), tr("MOVING WINDOWS"));
    addParagraph(tr("Moving another app's windows needs macOS's Accessibility permission.") + u' '
        + tr("Corvane uses it for nothing else."));
    if (m_model.accessibilityTrusted) {
        m_text->addSpacing(Board::length(8));
        const QString manager = Platform::current().session().systemFacts().windowManager;
        addRow({u"checkmark.seal.fill"_s,
                   manager.isEmpty() ? tr("Corvane can move windows")
                                     : tr("%1 moves windows for Corvane").arg(manager)},
            &Board::Palette::ready);
        return;
    }
    if (const QString why = Platform::current().windows().distrustReason(); !why.isEmpty())
        addRow({u"exclamationmark.triangle"_s, why}, &Board::Palette::attention);
    const QString list = u"[%1](%2)"_s.arg(Accessibility::paneName(),
        Platform::current().session().trustSettingsAddress().toString(QUrl::FullyEncoded));
    addParagraph(tr("Turn Corvane on in Privacy & Security → %1, then come back. This page notices "
                    "by itself.")
                     .arg(list));
    addButton(tr("Open Settings"), [] { std::ignore = Accessibility::openSettings(); });
}

void OnboardingView::addAlsoRunning()
{
    const QList<Competitor::Running> &running = m_model.competitors.value();
    if (running.isEmpty()) {
        addHead(tr("ALSO RUNNING"), tr("ALL CLEAR"));
        return addParagraph(tr("No other window manager is running."));
    }
    addHead(tr("ALSO RUNNING"), names(running).join(tr(" and ")));
    addParagraph((running.size() == 1 ? tr("It answers") : tr("They answer"))
        + tr(" the same kind of shortcuts, so two apps would move one window and the last one "
             "wins."));
    for (const Competitor::Running &each : running)
        addButton(tr("Quit %1").arg(each.competitor.name),
            [this, each] { m_model.quit(each.application); });
    const bool hasRectangle = std::ranges::any_of(running,
        [](const Competitor::Running &each) { return each.competitor.bundleID == rectangleID; });
    if (hasRectangle)
        addButton(tr("Use Rectangle's Shortcuts"),
            [this] { m_model.applyPreset(ShortcutPreset::rectangle); });
}

void OnboardingView::addShortcuts()
{
    addHead(tr("SHORTCUTS"), tr("A KEY FOR EVERY PLACE"));
    const auto preset = matching(m_model.settings().shortcuts);
    if (preset == ShortcutPreset::sizeUp)
        addParagraph(
            tr(" Corvane starts with SizeUp's shortcuts, so there is nothing to relearn."));
    else if (!preset)
        addParagraph(tr(" If your hands know Rectangle's keys, Corvane can use those instead."));
    addParagraph(tr("Change any of them in [Settings → Shortcuts](corvane://settings/shortcuts). "
                    "Press a half or a third again for 1/2 → 2/3 → 1/3."));
    addTakenShortcuts();
    addPractice();
    m_text->addSpacing(Board::length(4));
    const auto snapBack = m_model.settings().shortcuts.constFind(Placement::snapBack);
    addRow({u"arrow.uturn.backward"_s,
        snapBack == m_model.settings().shortcuts.cend()
            ? tr("Snap Back undoes the last move of any window")
            : tr("Snap Back %1 undoes the last move of any window").arg(markup(*snapBack))});
    addRow({u"menubar.rectangle"_s,
        hasMenuBarIcon(m_model)
            ? tr("Every placement and layout is also in the menu bar icon's menu")
            : tr("Every placement and layout is also in the Placements and Layouts menus")});
}

void OnboardingView::addTakenShortcuts()
{
    const QList<Placement> taken = takenPlacements(m_model);
    if (taken.isEmpty() || !m_model.findFreeCombos)
        return;
    const ShortcutMap free = m_model.findFreeCombos(taken);
    for (const Placement placement : taken) {
        const QString keys = markup(m_model.settings().shortcuts.value(placement));
        const QString title = corvane::title(placement);
        const auto combo = free.constFind(placement);
        const QString sentence = combo == free.cend()
            ? tr("%1: %2 does not work here.").arg(title, keys)
            : tr("%1: another program holds %2. Free: %3").arg(title, keys, markup(*combo));
        QBoxLayout &row =
            addRow({u"exclamationmark.triangle"_s, sentence}, &Board::Palette::attention);
        if (combo == free.cend())
            continue;
        QPushButton *button = pushButton(tr("Take It"), this,
            [this, own = ShortcutMap{{placement, *combo}}] { take(m_model, own); });
        button->setAccessibleName(tr("Take It for %1").arg(title));
        row.addWidget(button, 0, Qt::AlignTop);
    }
    if (free.size() > 1)
        addButton(tr("Take All That Are Free"), [this, free] { take(m_model, free); });
}

void OnboardingView::addPractice()
{
    if (m_practice)
        return void(m_text->addWidget(m_practice->makeList()));
    if (PracticeWindow::canPractise(m_model))
        addButton(tr("Try It"), [this] { practise(); });
}

void OnboardingView::practise()
{
    m_practice = new PracticeWindow(m_model);
    connect(m_practice, &PracticeWindow::progressed, this, &OnboardingView::showPage);
    connect(m_practice, &PracticeWindow::closed, this, [this] {
        m_practice = nullptr; // it deletes itself
        showPage();
        window()->activateWindow();
    });
    m_practice->show();
    showPage();
    Q_EMIT practiceShown(*m_practice);
}

void OnboardingView::addLayouts()
{
    addHead(tr("LAYOUTS"), tr("A WHOLE DESK, ONE SHORTCUT"));
    addRow({u"rectangle.split.3x1"_s,
        tr("Capture what is on screen now, or draw columns like 40 / 30 / 30 and pick an app for "
           "each")});
    addRow({u"display.2"_s,
        tr("Each layout remembers which displays it was made for: the laptop alone, or the laptop "
           "plus the big monitor")});
    addRow({u"bolt"_s,
        tr("Give it a shortcut, or let it apply by itself when those displays connect")});
}

} // namespace corvane
