#include "BoardStyle.h"
#include "BoardText.h"
#include "Card.h"
#include "Catalogues.h"
#include "KeySentence.h"
#include "LayoutList.h"
#include "LayoutPicture.h"
#include "ModelDesk.h"
#include "PaneOverlay.h"
#include "ReportScreens.h"
#include "ScrollFade.h"
#include "SettingsWindow.h"
#include "StealSheet.h"
#include "TourScreens.h"
#include "UpdateScreens.h"

#include <QtCore/QDir>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include <cstdio>

using namespace corvane;

namespace {

QMap<QString, QString> failures; ///< and the first picture in which each shows

void expect(bool holds, const QString &picture, const QString &subject, const QString &rule)
{
    const QString failure = subject + u": "_s + rule;
    if (!holds && !failures.contains(failure))
        failures.insert(failure, picture);
}

QString nameOf(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        return label->text().isEmpty() ? label->accessibleName() : label->text();
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    return button && !button->text().isEmpty() ? button->text() : widget.accessibleName();
}

/// Whether the widget shows all of what it has to show.
bool isWhole(const QWidget &widget)
{
    if (widget.hasHeightForWidth())
        return widget.height() >= widget.heightForWidth(widget.width());
    const QSize wanted = widget.sizeHint();
    return widget.width() >= wanted.width() && widget.height() >= wanted.height();
}

/// Whether the rows of a card end at one line, as their controls are to stand below each other.
bool endsInOneColumn(const Card &card)
{
    QSet<int> ends;
    for (const QWidget *row : card.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (row->findChild<LayoutPicture *>() || row->findChild<LayoutList *>())
            continue; // they fill the card
        QRect content;
        for (const QWidget *child : row->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            if (child->isVisible())
                content |= child->geometry();
        }
        if (!content.isEmpty())
            ends << (card.isRightToLeft() ? content.left() : content.right());
    }
    return ends.size() <= 1;
}

/// What must hold of every text and control that is shown, in any language and size.
void check(const QWidget &parent, const QString &picture)
{
    const auto expect = [&](bool holds, const QString &subject, const QString &rule) {
        ::expect(holds, picture, subject, rule);
    };
    if (const auto *card = qobject_cast<const Card *>(&parent))
        expect(endsInOneColumn(*card), card->accessibleName(), u"ends in one column"_s);
    QList<const QWidget *> shown;
    for (const QWidget *child : parent.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (!child->isVisible() || child->isWindow() || qobject_cast<const ScrollFade *>(child)
            || qobject_cast<const QFocusFrame *>(child) || qobject_cast<const QMenuBar *>(child))
            continue;
        if (qobject_cast<const QLabel *>(child) || qobject_cast<const QAbstractButton *>(child))
            expect(isWhole(*child), nameOf(*child), u"is shown whole"_s);
        if (qobject_cast<const Card *>(parent.parentWidget()))
            expect(parent.rect().contains(child->geometry()), nameOf(*child), u"is in its row"_s);

        for (const QWidget *other : std::as_const(shown))
            expect(!other->geometry().intersects(child->geometry()), nameOf(*child),
                u"stands clear of "_s + nameOf(*other));
        if (!child->geometry().isEmpty())
            shown << child;
        if (!qobject_cast<const QLineEdit *>(child)) // its own buttons come and go
            check(*child, picture);
    }
}

/// Two displays, as the sketch of the editor has them; one of them is not there.
WindowLayout largeLayout(const QList<DisplayKey> &connected)
{
    WindowLayout layout = ModelDesk::leftHalfLayout(connected);
    layout.name = u"Desk & Chat with Two Displays"_s;
    layout.displays << DisplayKey{u"DELL U2720Q"_s, 2560, 1440};
    const auto pane = [](const QString &app, int display, const UnitRect &rect,
                          const std::optional<QString> &title = {}) {
        return Pane{
            .display = display, .rect = rect, .app = AppRef{app, app}, .titleContains = title};
    };
    layout.panes = {pane(u"Terminal"_s, 0, {0, 0, 0.4, 1}, u"build"_s),
        pane(u"Editor"_s, 0, {0.4, 0, 0.3, 1}), pane(u"Browser"_s, 0, {0.7, 0, 0.3, 1}),
        pane(u"Mail"_s, 1, {0, 0, 1, 0.5}), pane(u"Chat"_s, 1, {0, 0.5, 1, 0.5})};
    return layout;
}

QList<ActivityEntry> entries()
{
    QList<ActivityEntry> entries;
    const QDateTime first(QDate(2026, 11, 20), QTime(16, 47));
    const auto add = [&](Placement placement, const QString &app, const QString &window,
                         int minutes) {
        entries << ActivityEntry::moved({first.addSecs(60 * minutes), placement, app, window,
            {100, 100, 600, 500}, {0, 25, 720, 875}, u"DELL U2720Q"_s});
    };
    add(Placement::leftThird, u"Files"_s, u"Downloads"_s, 0);
    entries << ActivityEntry::refused(Placement::leftHalf, u"Calculator"_s,
        u"cannot be that large"_s, u"DELL U2720Q"_s, first.addSecs(4260));
    add(Placement::maximize, u"Browser"_s, u"Calendar"_s, 85);
    add(Placement::snapBack, u"Mail"_s, u"Inbox"_s, 60 * 16);
    add(Placement::leftHalf, u"Terminal"_s, u"build"_s, 60 * 18);
    return entries;
}

/// A layout with a pane for everything that can become of one.
WindowLayout applied()
{
    WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
    layout.name = u"Streaming"_s;
    layout.displays << DisplayKey{u"DELL U2720Q"_s, 1920, 1080};
    layout.panes.clear();
    for (const auto &[name, display, rect] :
        {std::tuple(u"Terminal"_s, 0, UnitRect{0, 0, 0.4, 1}), {u"Editor"_s, 0, {0.4, 0, 0.6, 0.5}},
            {u"Browser"_s, 0, {0.4, 0.5, 0.3, 0.5}}, {u"Music"_s, 0, {0.7, 0.5, 0.3, 0.5}},
            {u"Mail"_s, 1, {0, 0, 1, 0.5}}, {u"Sketch"_s, 1, {0, 0.5, 0.3, 0.5}},
            {u"Files"_s, 1, {0.3, 0.5, 0.4, 0.5}}, {QString(), 1, {0.7, 0.5, 0.3, 0.5}}}) {
        Pane pane{.display = display, .rect = rect};
        if (!name.isEmpty())
            pane.app = AppRef{u"org.example."_s + name, name};
        layout.panes << pane;
    }
    return layout;
}

AppModel::LastApply lastApply(const WindowLayout &layout, const QList<PaneStatus> &statuses)
{
    AppModel::LastApply apply{layout.id, {}, QDateTime(QDate(2026, 11, 20), QTime(10, 42))};
    for (const Pane &pane : layout.panes)
        apply.results << PaneResult{pane, statuses[apply.results.size() % statuses.size()]};
    return apply;
}

/// The pictures of one look.
struct SettingsScreens {
    QString folder;
    QString name; ///< of the look, the language, the scale and the size of text

    void shoot(QWidget &window, const QString &what) const
    {
        // What changes places with the room asks for other room.
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
        const QString picture = u"settings-%1-%2"_s.arg(what, name);
        check(window, picture);
        const QString file = folder + u'/' + picture + u".png"_s;
        expect(window.grab().save(file), picture, file, u"can be written"_s);
    }
    void draw(AppModel &model) const;
    void drawLayouts(AppModel &model) const;
    void drawOverlay() const;
    void drawPicker(ModelDesk &desk, AppModel &model) const;
    void drawApply(SettingsWindow &window, AppModel &model) const;
    void turnTo(const DesktopLook &look, AppModel &model) const;
};

SettingsWindow &open(AppModel &model)
{
    auto &window = *new SettingsWindow(model, {});
    window.resize(Board::length(880), Board::length(620));
    window.setVisible(true);
    return window;
}

QImage pictureOf(SettingsWindow &window, SettingsPane pane)
{
    window.show(pane);
    QApplication::processEvents();
    return window.grab().toImage();
}

/// A window that is open when the look changes is then like one that is opened in that look.
void SettingsScreens::turnTo(const DesktopLook &look, AppModel &model) const
{
    const QFont font = QApplication::font();
    QFont larger = font;
    larger.setPixelSize(font.pixelSize() + 3);
    QApplication::setFont(larger);
    BoardStyle::shared().setLook({.isDark = !look.isDark});
    model.post({u"a"_s, u"The disk is full."_s, {}});
    SettingsWindow &old = open(model);
    for (const SettingsPane pane : settingsPanes)
        std::ignore = pictureOf(old, pane);
    QApplication::setFont(font);
    BoardStyle::shared().setLook(look);
    SettingsWindow &fresh = open(model);
    old.resize(fresh.size());
    for (const SettingsPane pane : settingsPanes)
        expect(pictureOf(old, pane) == pictureOf(fresh, pane), name, rawValue(pane),
            u"follows the look"_s);
    model.dismissNotice(u"a"_s);
    old.close();
    fresh.close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// An apply under way, and reports on it.
void SettingsScreens::drawApply(SettingsWindow &window, AppModel &model) const
{
    using Status = PaneStatus;
    WindowLayout edited = applied();
    edited.id = model.newEmptyLayout().id;
    model.updateLayout(edited, u"Edit"_s);
    const QSize size = window.size();
    window.resize(size * 5 / 4);
    window.show(SettingsPane::layouts);
    model.pendingLayout = edited.id;
    const auto placed = lastApply(edited, {{Status::Placed{}}});
    model.applyProgress = {{placed.results.first(3)}, 4};
    model.applying = edited.id;
    shoot(window, u"applying"_s);
    model.applying = QUuid();
    model.lastApply = placed;
    shoot(window, u"placed"_s);
    const auto shootReport = [&](const QString &what) {
        QApplication::processEvents();
        for (const QScrollArea *area : window.findChildren<QScrollArea *>())
            area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
        shoot(window, what);
    };
    model.lastApply = lastApply(edited,
        {{Status::Placed{}}, {Status::NoWindow{}}, {Status::Refused{u"cannot be that small"_s}},
            {Status::NotRunning{}}, {Status::DisplayMissing{}}, {Status::NotInstalled{}},
            {Status::Launched{}}, {Status::Empty{}}});
    shootReport(u"report"_s);
    window.resize(Board::length(720), Board::length(480));
    shootReport(u"narrowReport"_s);
    window.findChild<QPushButton *>(u"fold"_s)->click();
    shootReport(u"unfolded"_s);
    window.resize(size * 5 / 4);
    model.accessibilityTrusted = false;
    model.lastApply = lastApply(edited, {{Status::Refused{u"accessibility not granted"_s}}});
    shootReport(u"distrusted"_s);
    model.accessibilityTrusted = true;
    model.lastApply = std::nullopt;
    model.deleteLayout(edited.id);
    window.resize(size);
}

void SettingsScreens::draw(AppModel &model) const
{
    SettingsWindow &window = open(model);
    for (const SettingsPane pane : settingsPanes) {
        window.show(pane);
        shoot(window, rawValue(pane));
    }
    drawApply(window, model);
    model.activity = entries();
    window.show(SettingsPane::tremorLog);
    shoot(window, u"moves"_s);
    window.show(SettingsPane::shortcuts);
    model.recording = Placement::topHalf;
    shoot(window, u"recording"_s);
    model.assign(model.settings().shortcuts.value(Placement::maximize), {Placement::topHalf});
    shoot(*window.findChild<StealSheet *>(), u"steal"_s);
    model.cancelSteal();
    model.endRecording();
    drawUpdateStates(
        window, model, [this](QWidget &shown, const QString &what) { shoot(shown, what); });
    model.accessibilityTrusted = false;
    model.competitors = QList<Competitor::Running>{{Competitor::known().front(), {}}};
    model.loginItemNote = u"Your desktop is waiting for you to allow Corvane."_s;
    model.unregistered = UnregisteredShortcuts{{{Placement::leftHalf}, {}}};
    model.post({.id = u"crash"_s,
        .text = u"Corvane ended without being asked to."_s,
        .reveal = {},
        .offer = Notice::Offer::report});
    model.post({u"save-failed"_s,
        u"Corvane could not save to ~/.local/share/Corvane/settings.json: The disk is full. "
        "Changes work until Corvane quits."_s,
        QUrl(u"file:///x"_s)});
    window.show(SettingsPane::general);
    shoot(window, u"trouble"_s);
    window.show(SettingsPane::shortcuts);
    shoot(window, u"taken"_s);
    window.resize(Board::length(720), Board::length(480));
    shoot(window, u"narrow"_s);
    window.close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The drawing board with each kind of layout, and in the middle of what is done there.
void SettingsScreens::drawLayouts(AppModel &model) const
{
    SettingsWindow &window = open(model);
    window.show(SettingsPane::layouts);
    const WindowLayout simple = model.layouts().first();
    const WindowLayout large = largeLayout(simple.displays);
    WindowLayout added = model.newEmptyLayout();
    added.displays = large.displays;
    added.panes = large.panes;
    added.name = large.name;
    model.updateLayout(added, {});
    model.pendingLayout = added.id;
    shoot(window, u"layouts-missing"_s);
    auto *picture = window.findChild<LayoutPicture *>();
    const auto press = [&](int key, Qt::KeyboardModifiers modifiers = {}) {
        picture->setFocus();
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(picture, &event);
    };
    window.resize(Board::length(1120), Board::length(768));
    shoot(window, u"layouts-wide"_s);
    press(Qt::Key_Right, Qt::AltModifier);
    press(Qt::Key_Left, Qt::ShiftModifier);
    shoot(window, u"layouts-edge"_s);
    press(Qt::Key_Return);
    model.deleteLayout(added.id);
    model.undo();
    picture->setCurrentPane(added.panes[0].id);
    picture->split(CutLines::horizontal);
    shoot(window, u"layouts-ungridded"_s);
    for (const WindowLayout &layout : QList(model.layouts()))
        model.deleteLayout(layout.id);
    window.resize(Board::length(880), Board::length(620));
    shoot(window, u"layouts-empty"_s);
    while (model.undoTitle())
        model.undo();
    window.close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// What stands over the desktop for a pane, with a compositing manager and without, in several sizes.
void SettingsScreens::drawOverlay() const
{
    const Pane pane{.rect = {0, 0, 0.375, 1},
        .app = {{u"org.example.Editor"_s, u"Editor"_s}},
        .titleContains = u"Letter to the editor of a newspaper"_s};
    QImage image(Board::length(1000), Board::length(420), QImage::Format_RGB32);
    image.fill(QColor(0x3A6E7A));
    QPainter painter(&image);
    double top = 10;
    for (const auto behind : {PaneOverlay::Behind::shinesThrough, PaneOverlay::Behind::cutOut}) {
        double left = 10;
        for (const double width : {480, 230, 130, 70}) {
            const QRectF rect(0, 0, Board::length(width), Board::length(190));
            painter.save();
            painter.translate(Board::length(left), Board::length(top));
            if (behind == PaneOverlay::Behind::cutOut)
                painter.setClipRegion(PaneOverlay::shape(rect.size(), pane));
            PaneOverlay::paint(painter, rect, pane, behind);
            painter.restore();
            left += width + 10;
        }
        top += 205;
    }
    painter.end();
    const QString file = folder + u"/settings-overlay-"_s + name + u".png"_s;
    expect(image.save(file), name, file, u"can be written"_s);
}

/// Some that run and some that are only installed; two of one name.
void installApps(SimulatedDesktop &desktop)
{
    const std::tuple<QString, QString, QString> apps[]{
        {u"org.example.Editor"_s, u"Editor"_s, u"Write text and programs"_s},
        {u"org.example.Terminal"_s, u"Terminal"_s, u"Type commands"_s},
        {u"org.example.Chat"_s, u"Chat"_s, {}},
        {u"org.example.Browser"_s, u"Browser"_s, u"Browse the web"_s},
        {u"org.example.Calculator"_s, u"Calculator"_s, u"Perform arithmetic"_s},
        {u"org.example.Calendar"_s, u"Calendar"_s,
            u"Appointments, birthdays and everything else "
            "that has a day and wants to be remembered"_s},
        {u"com.example.files"_s, u"Files"_s, {}},
        {u"org.example.Files"_s, u"Files"_s, u"Organise what lies on your disks"_s},
        {u"org.example.Viewer"_s, u"Überblick"_s, u"See all pictures"_s},
        {u"plain"_s, u"An application whose name is longer than any list has room for it"_s, {}}};
    for (const auto &[id, name, purpose] : apps)
        desktop.install({.bundleIdentifier = id, .name = name, .purpose = purpose});
    const pid_t terminal = desktop.start(u"org.example.Terminal"_s, u"Terminal"_s);
    for (int i = 0; i < 2; ++i)
        desktop.openWindow(terminal, {.title = u"Shell"_s});
    desktop.closeWindow(
        desktop.openWindow(desktop.start(u"org.example.Chat"_s, u"Chat"_s), {.title = u"Room"_s}));
}

void SettingsScreens::drawPicker(ModelDesk &desk, AppModel &model) const
{
    SettingsWindow &window = open(model);
    window.show(SettingsPane::layouts);
    SimulatedDesktop &desktop = desk.platform.desktop();
    desktop.quit(desk.editor);
    for (const bool hasApps : {false, true}) {
        if (hasApps)
            installApps(desktop);
        model.pendingAppPicker = true;
        QApplication::processEvents();
        auto &picker = *window.findChild<QDialog *>();
        shoot(picker, hasApps ? u"picker"_s : u"picker-no-apps"_s);
        auto &field = *picker.findChild<QLineEdit *>();
        for (const auto &[text, what] :
            {std::pair(u"fil"_s, u"picker-found"_s), {u"teminal"_s, u"picker-nothing"_s}}) {
            field.setText(text);
            if (hasApps)
                shoot(picker, what);
        }
        picker.reject();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    window.close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

/// settings-screens FOLDER PIXELS [LANGUAGE [rtl]]: text of so many pixels, perhaps from right to left.
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.at(1);
    const QString language = arguments.value(3, u"en"_s);
    const bool isMirrored = arguments.size() > 4;
    const Catalogues catalogues({language});
    QLocale::setDefault(QLocale(language));
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(arguments.at(2).toInt());
    QApplication::setFont(font);
    QApplication::setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
    QDir().mkpath(folder);

    const QString kind = u"%1-%2x-%3px%4"_s.arg(language)
                             .arg(qApp->devicePixelRatio())
                             .arg(font.pixelSize())
                             .arg(isMirrored ? u"-rtl"_s : QString());
    for (const auto &[name, look] : {std::pair(u"light"_s, DesktopLook{.reducesMotion = true}),
             {u"dark"_s, {true, false, {}, true}}, {u"contrast"_s, {false, true, {}, true}}}) {
        ModelDesk desk;
        desk.save({ModelDesk::leftHalfLayout(Screens::signature())});
        AppModel model = desk.model();
        model.accessibilityTrusted = true;
        const SettingsScreens screens{folder, name + u'-' + kind};
        screens.turnTo(look, model);
        const auto shoot = [&](QWidget &window, const QString &what) {
            screens.shoot(window, what);
        };
        drawTour(model, shoot);
        screens.drawLayouts(model);
        screens.draw(model);
        screens.drawOverlay();
        screens.drawPicker(desk, model);
        drawReports(shoot);
        drawUpdates(shoot);
    }
    for (auto failure = failures.cbegin(); failure != failures.cend(); ++failure)
        std::fprintf(stderr, "%s (%s)\n", qUtf8Printable(failure.key()), qUtf8Printable(*failure));
    return failures.isEmpty() ? 0 : 1;
}
