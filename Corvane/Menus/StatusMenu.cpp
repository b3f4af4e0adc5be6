#include "StatusMenu.h"

#include "MenuParts.h"
#include "OneLine.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double minimumWidth = 300; // as drawn for text of 13 pixels

/// A group of placements that is a submenu, and the placement whose picture stands for it.
struct GroupRow {
    PlacementGroup group;
    Placement picture;
};

constexpr std::array groupTable{
    GroupRow{PlacementGroup::halves, Placement::leftHalf},
    GroupRow{PlacementGroup::quarters, Placement::topLeft},
    GroupRow{PlacementGroup::thirds, Placement::leftThird},
    GroupRow{PlacementGroup::sixths, Placement::topLeftSixth},
    GroupRow{PlacementGroup::screen, Placement::maximize},
    GroupRow{PlacementGroup::displays, Placement::nextDisplay},
};

} // namespace

StatusMenu::StatusMenu(RowForm form, const AppModel &model, MenuTarget target)
    : m_model(model), m_target(std::move(target)), m_rows(form), m_menu(m_rows.makeMenu(nullptr))
{
    connect(m_menu.get(), &QMenu::aboutToShow, this, &StatusMenu::refreshFlags);
}

void StatusMenu::fill()
{
    MenuRows::clear(*m_menu);
    m_flags.clear();
    m_rows.setLook(m_model.look);
    m_header = m_rows.addHeader(*m_menu, m_target.openSettings);
    m_menu->addSeparator();
    const qsizetype headRows = m_menu->actions().size();
    addUpdate();
    addSettings();
    addLayouts();
    addPlacements();
    addInformation();
    m_afterFlags = m_menu->actions().at(headRows);
    refreshFlags();
}

void StatusMenu::refreshFlags()
{
    for (QAction *flag : std::as_const(m_flags))
        MenuRows::remove(*m_menu, *flag);
    m_flags.clear();
    m_rows.setHeader(*m_header, MenuHeader::of(m_model));
    addFlags();
    if (needsAttention())
        m_flags << m_menu->insertSeparator(m_afterFlags);
    m_rows.layoutRows(*m_menu, Board::length(minimumWidth));
}

void StatusMenu::addFlags()
{
    const QColor tint = m_rows.palette().attention;
    if (!m_model.accessibilityTrusted) {
        addFlag({.title = tr("Accessibility Is Off: Open Accessibility Settings"),
                    .symbol = u"hand.raised"_s,
                    .tint = tint},
            m_target.grantAccess);
    }
    if (const qsizetype failed = m_model.unregistered.value().size()) {
        addFlag({.title = failed == 1 ? tr("A Shortcut Is Not Working: Open Shortcuts")
                                      : tr("Shortcuts Are Not Working: Open Shortcuts"),
                    .subtitle = failedShortcuts(),
                    .symbol = u"keyboard"_s,
                    .tint = tint},
            m_target.openShortcuts);
    }
    for (const Competitor::Running &running : m_model.competitors.value()) {
        addFlag({.title = tr("%1 Is Also Running: Quit It").arg(running.competitor.name),
                    .symbol = u"exclamationmark.triangle"_s,
                    .tint = tint},
            [quit = m_target.quitCompetitor, running] { quit(running); });
    }
}

void StatusMenu::addFlag(const MenuRow &row, std::function<void()> perform)
{
    m_flags << m_rows.add(*m_menu, row, std::move(perform), m_afterFlags);
}

// The placements come in their order, then the layouts in theirs.
QString StatusMenu::failedShortcuts() const
{
    const UnregisteredShortcuts &failed = m_model.unregistered.value();
    QStringList titles;
    for (const Placement placement : allPlacements()) {
        if (failed.contains({placement}))
            titles << title(placement);
    }
    for (const WindowLayout &layout : m_model.layouts()) {
        if (failed.contains({layout.id}))
            titles << oneLine(layout.name, 30);
    }
    constexpr qsizetype named = 2;
    const QString first = titles.mid(0, named).join(tr(", "));
    const qsizetype more = titles.size() - named;
    return more > 0 ? tr("%1 and %n more", nullptr, static_cast<int>(more)).arg(first) : first;
}

void StatusMenu::addUpdate()
{
    const UpdateStatus &status = m_model.updateStatus.value();
    if (!status.canUpdate)
        return;
    const auto *available = std::get_if<UpdateAvailability::Available>(&status.availability.value);
    m_rows.add(*m_menu,
        {.title = available ? tr("Update to Corvane %1").arg(available->version)
                            : tr("Check for Updates"),
            .subtitle = available ? QString() : status.statusLine(),
            .symbol = u"arrow.down.circle.fill"_s,
            .symbolColors = Symbol::Colors{m_rows.palette().accent}},
        m_target.openUpdates);
    m_menu->addSeparator();
}

void StatusMenu::addSettings()
{
    m_rows.add(*m_menu,
        {.title = tr("About Corvane"),
            .subtitle = tr("Version %1").arg(u"" CORVANE_VERSION ""_s),
            .symbol = u"info.circle"_s},
        m_target.openAbout);
    m_menu->addSeparator();
    m_rows.add(*m_menu, {.title = tr("Settings"), .symbol = u"gearshape"_s}, m_target.openSettings);
}

void StatusMenu::addLayouts()
{
    if (m_model.layouts().isEmpty())
        return MenuParts::addCapture(m_rows, *m_menu, m_model, m_target);
    QMenu *layouts =
        m_rows.addSubmenu(*m_menu, {.title = tr("Layouts"), .symbol = u"rectangle.split.3x1"_s});
    MenuParts::addLayouts(m_rows, *layouts, m_model, m_target, MenuParts::Shortcuts::shown);
    layouts->addSeparator();
    MenuParts::addCapture(m_rows, *layouts, m_model, m_target);
    m_rows.layoutRows(*layouts, 0);
}

void StatusMenu::addPlacements()
{
    for (const GroupRow &row : groupTable)
        addGroup(row.group, row.picture);
    for (const Placement placement : inGroup(PlacementGroup::history))
        addPlacement(*m_menu, placement);
    m_menu->addSeparator();
}

void StatusMenu::addGroup(PlacementGroup group, Placement picture)
{
    QMenu *submenu = m_rows.addSubmenu(*m_menu, {.title = title(group), .image = picture});
    for (const Placement placement : inGroup(group))
        addPlacement(*submenu, placement);
    if (group == PlacementGroup::screen) {
        submenu->addSeparator();
        for (const Placement placement : inGroup(PlacementGroup::size))
            addPlacement(*submenu, placement);
    }
    m_rows.layoutRows(*submenu, 0);
}

void StatusMenu::addPlacement(QMenu &menu, Placement placement)
{
    MenuParts::addPlacement(
        m_rows, menu, placement, m_model, m_target, MenuParts::Shortcuts::shown);
}

void StatusMenu::addInformation()
{
    m_rows.add(*m_menu, {.title = tr("Corvane Tour"), .symbol = u"sparkles"_s}, m_target.showTour);
    m_rows.add(*m_menu, {.title = tr("Report a Problem…"), .symbol = u"exclamationmark.bubble"_s},
        m_target.reportProblem);
    m_rows.add(*m_menu, {.title = tr("Tremor Log"), .symbol = u"waveform.path.ecg"_s},
        m_target.openTremorLog);
    m_rows.add(
        *m_menu, {.title = tr("Corvane Website"), .symbol = u"globe"_s}, m_target.openWebsite);
    m_menu->addSeparator();
    m_rows.add(*m_menu, {.title = tr("Quit Corvane"), .symbol = u"power"_s}, m_target.quit);
}

} // namespace corvane
