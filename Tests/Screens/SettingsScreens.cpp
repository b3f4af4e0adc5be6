#include "BoardStyle.h"
#include "BoardText.h"
#include "Card.h"
#include "Catalogues.h"
#include "KeySentence.h"
#include "ModelDesk.h"
#include "ScrollFade.h"
#include "SettingsWindow.h"
#include "StealSheet.h"

#include <QtCore/QDir>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>

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

/// The pictures of one look.
struct SettingsScreens {
    QString folder;
    QString name; ///< of the look, the language, the scale and the size of text

    void shoot(QWidget &window, const QString &what) const
    {
        QApplication::processEvents();
        const QString picture = u"settings-%1-%2"_s.arg(what, name);
        check(window, picture);
        const QString file = folder + u'/' + picture + u".png"_s;
        expect(window.grab().save(file), picture, file, u"can be written"_s);
    }
    void draw(AppModel &model) const;
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

void SettingsScreens::draw(AppModel &model) const
{
    SettingsWindow &window = open(model);
    for (const SettingsPane pane : settingsPanes) {
        window.show(pane);
        shoot(window, rawValue(pane));
    }
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
    model.onCheckForUpdatesNow = model.onInstallUpdate = [] {};
    model.automaticUpdateChecks = true;
    UpdateStatus checking;
    checking.checking = true;
    UpdateStatus failed;
    failed.failed = true;
    UpdateStatus available;
    available.availability = {UpdateAvailability::Available{u"1.3.0"_s}};
    available.lastChecked = QDateTime(QDate(2026, 11, 20), QTime(9, 12));
    for (const UpdateStatus &status : {checking, failed, available}) {
        model.updateStatus = status;
        window.show(SettingsPane::about);
        shoot(window, u"update%1%2"_s.arg(int(status.checking)).arg(int(status.failed)));
    }
    model.accessibilityTrusted = false;
    model.competitors = QList<Competitor::Running>{{Competitor::known().front(), {}}};
    model.loginItemNote = u"Your desktop is waiting for you to allow Corvane."_s;
    model.unregistered = QSet<ShortcutOwner>{{Placement::leftHalf}};
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

    ModelDesk desk;
    desk.save({ModelDesk::leftHalfLayout(Screens::signature())});
    const QString kind = u"%1-%2x-%3px%4"_s.arg(language)
                             .arg(qApp->devicePixelRatio())
                             .arg(font.pixelSize())
                             .arg(isMirrored ? u"-rtl"_s : QString());
    for (const auto &[name, look] : {std::pair(u"light"_s, DesktopLook{.reducesMotion = true}),
             {u"dark"_s, {true, false, {}, true}}, {u"contrast"_s, {false, true, {}, true}}}) {
        AppModel model = desk.model();
        model.accessibilityTrusted = true;
        const SettingsScreens screens{folder, name + u'-' + kind};
        screens.turnTo(look, model);
        screens.draw(model);
    }
    for (auto failure = failures.cbegin(); failure != failures.cend(); ++failure)
        std::fprintf(stderr, "%s (%s)\n", qUtf8Printable(failure.key()), qUtf8Printable(*failure));
    return failures.isEmpty() ? 0 : 1;
}
