#include "DisplayCard.h"
#include "LayoutList.h"
#include "LayoutPicture.h"
#include "ModelDesk.h"
#include "PaneSpan.h"
#include "SettingsWindow.h"

#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

constexpr double rounding = 1e-6;
constexpr double nearlyMet = 2 * edgeTolerance; ///< that merging panes of nearly one size may lose
constexpr Qt::KeyboardModifiers none;
const Qt::KeyboardModifiers controlShift = Qt::ControlModifier | Qt::ShiftModifier;

Pane pane(const QString &app, int display, const UnitRect &rect)
{
    return {.display = display, .rect = rect, .app = AppRef{app, app}};
}

/// A simulated desk of two displays, with two layouts of three columns on the first one.
struct LayoutsDesk : ModelDesk {
    LayoutsDesk()
    {
        WindowLayout layout{.name = u"Work"_s, .displays = Screens::signature()};
        layout.panes = {pane(u"Terminal"_s, 0, {0, 0, 0.4, 1}),
            pane(u"Editor"_s, 0, {0.4, 0, 0.3, 1}), pane(u"Browser"_s, 0, {0.7, 0, 0.3, 1}),
            pane(u"Mail"_s, 1, {0, 0, 1, 1})};
        WindowLayout other = layout;
        other.id = QUuid::createUuid();
        other.name = u"Evening"_s;
        save({layout, other});
    }

    quint32 second = plugSecond();
};

/// The picture of the first layout, alone or in the settings window.
struct DrawingBoard : QObject {
    explicit DrawingBoard(bool isAlone = false)
    {
        if (isAlone) {
            shown = new LayoutPicture(model);
            shown->resize(640, 260);
            shown->setLayout(model.layouts().first().id);
            window.reset(shown);
        } else {
            auto *settings = new SettingsWindow(model, {});
            settings->resize(1120, 768);
            settings->show(SettingsPane::layouts);
            shown = settings->findChild<LayoutPicture *>();
            window.reset(settings);
        }
        window->setVisible(true);
        shown->installEventFilter(this);
        settle();
    }

    [[nodiscard]] LayoutPicture &picture() const { return *shown; }
    [[nodiscard]] LayoutList &list() const { return *window->findChild<LayoutList *>(); }
    [[nodiscard]] QString current() const
    {
        const auto pane = picture().currentPane();
        return pane && pane->app ? pane->app->name : u"-"_s;
    }

    void settle()
    {
        desk.settle();
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    void plugOrUnplug()
    {
        if (const quint32 display = std::exchange(desk.second, 0))
            desk.platform.desktop().unplug(display);
        else
            desk.second = desk.plugSecond();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = none, QWidget *on = nullptr)
    {
        const bool isText = modifiers == none && key < 0x100;
        QKeyEvent event(QEvent::KeyPress, key, modifiers, isText ? QString(QChar(key)) : QString());
        QApplication::sendEvent(on ? on : &picture(), &event);
        settle();
    }
    void mouse(QEvent::Type type, QPointF at, Qt::KeyboardModifiers modifiers = none)
    {
        const bool isDown = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, picture().mapToGlobal(at),
            type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
            isDown ? Qt::LeftButton : Qt::NoButton, modifiers);
        QApplication::sendEvent(&picture(), &event);
        QApplication::processEvents();
    }
    /// Where the first of its stretches has its middle.
    [[nodiscard]] QPointF middleOf(const PaneEdge &edge) const
    {
        return segmentsOf(edge, picture().shown(), picture().scene()).first().center();
    }
    [[nodiscard]] QImage image()
    {
        isGrabbing = true;
        QImage image = picture().grab().toImage().convertToFormat(QImage::Format_RGB32);
        isGrabbing = false;
        return image;
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !isGrabbing)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    /// Each pane of the first display, such as "Terminal 0-40".
    [[nodiscard]] QStringList columns() const
    {
        QStringList texts;
        for (const Pane &each : picture().shown().panesOn(0)) {
            const auto percent = [](double part) { return std::round(part * 1000) / 10; };
            texts << u"%1 %2-%3"_s.arg(each.app ? each.app->name : u"-"_s)
                         .arg(percent(each.rect.x))
                         .arg(percent(each.rect.x + each.rect.w));
        }
        return texts;
    }
    [[nodiscard]] QList<WindowLayout> inMemory() const { return model.layouts(); }

    LayoutsDesk desk;
    AppModel model = desk.model();
    std::unique_ptr<QWidget> window;
    LayoutPicture *shown = nullptr;
    QRegion painted;
    bool isGrabbing = false;
};

struct LayoutsPaneTests : testing::Test, DrawingBoard {
};

/// How much of the display the panes cover.
double covered(const WindowLayout &layout, int display)
{
    double area = 0;
    for (const Pane &pane : layout.panesOn(display))
        area += pane.rect.w * pane.rect.h;
    return area;
}

void checkPanes(const WindowLayout &layout)
{
    for (const Pane &pane : layout.panes) {
        RC_ASSERT(pane.rect.w >= EdgeDrag::minimum - rounding);
        RC_ASSERT(pane.rect.h >= EdgeDrag::minimum - rounding);
        for (const Pane &other : layout.panesOn(pane.display))
            RC_ASSERT(other.id == pane.id || !overlap(other.rect, pane.rect));
    }
}

/// What has changed to the eye was painted again, and panes that stayed as they are were not.
void checkPainting(
    const DrawingBoard &board, const QImage &before, const QImage &after, const QList<Pane> &panes)
{
    QImage mask(before.size(), QImage::Format_Grayscale8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setClipRegion(board.painted);
    painter.fillRect(mask.rect(), Qt::white);
    painter.end();
    const auto isSame = [&](int y, int from, int to) {
        const auto line = [from](const QImage &image, int at) {
            return image.constScanLine(at) + size_t(from) * sizeof(QRgb);
        };
        return std::memcmp(line(before, y), line(after, y), size_t(to - from) * sizeof(QRgb)) == 0;
    };
    for (int y = 0; y < before.height(); ++y) {
        bool isWhole = true;
        for (int x = 0; x < before.width() && !isSame(y, x, before.width()); ++x)
            isWhole &= mask.constScanLine(y)[x] != 0 || isSame(y, x, x + 1);
        RC_ASSERT(isWhole);
    }
    if (board.picture().currentEdge())
        return; // its marks lie over panes
    for (const Pane &pane : board.picture().shown().panes) {
        const QRect rect = board.picture().scene().rectOf(pane).toRect().adjusted(12, 12, -12, -12);
        bool isAsBefore = panes.contains(pane) && !rect.isEmpty();
        for (int y = rect.top(); y <= rect.bottom() && isAsBefore; ++y)
            isAsBefore = isSame(y, rect.left(), rect.right() + 1);
        RC_ASSERT(!isAsBefore || !board.painted.intersects(rect.adjusted(4, 4, -4, -4)));
    }
}

int any(int from, int to)
{
    return *rc::gen::inRange(from, to + 1);
}

void dragByMouse(DrawingBoard &board)
{
    const auto point = [&] {
        return QPointF(any(0, board.picture().width()), any(0, board.picture().height()));
    };
    const QList<PaneEdge> edges = edgesOf(board.picture().shown());
    const bool takesEdge = !edges.isEmpty() && any(0, 3) > 0;
    board.mouse(QEvent::MouseButtonPress,
        takesEdge ? board.middleOf(edges[any(0, int(edges.size()) - 1)]) : point());
    for (int moves = any(0, 4); moves > 0; --moves)
        board.mouse(QEvent::MouseMove, point(), any(0, 3) == 0 ? Qt::ControlModifier : none);
    switch (any(0, 6)) {
    case 0:
        board.press(Qt::Key_Escape);
        break;
    case 1: // somebody else's edit takes the ground from under it
        if (!board.picture().isDragging())
            break;
        board.model.renameLayout(board.model.layouts().first().id, u"Desk %1"_s.arg(any(0, 1000)));
        break;
    default:
        break;
    }
    board.mouse(QEvent::MouseButtonRelease, point());
}

/// Whether it may have left a hole.
bool pressAnyKey(DrawingBoard &board)
{
    const std::pair<int, Qt::KeyboardModifiers> keys[]{{Qt::Key_C, none}, {Qt::Key_R, none},
        {Qt::Key_Left, none}, {Qt::Key_Right, none}, {Qt::Key_Down, none},
        {Qt::Key_Left, Qt::AltModifier}, {Qt::Key_Right, Qt::AltModifier},
        {Qt::Key_Down, Qt::AltModifier}, {Qt::Key_Left, Qt::ControlModifier},
        {Qt::Key_Up, Qt::ShiftModifier}, {Qt::Key_Right, Qt::ShiftModifier},
        {Qt::Key_Right, controlShift}, {Qt::Key_Down, controlShift}, {Qt::Key_Home, none},
        {Qt::Key_End, none}, {Qt::Key_Return, none}, {Qt::Key_Delete, none}};
    const auto &[key, modifiers] = keys[size_t(any(0, int(std::size(keys)) - 1))];
    const bool isLooked = any(0, 9) == 0;
    board.settle();
    const QImage before = isLooked ? board.image() : QImage();
    const QList<Pane> panes = board.picture().shown().panes;
    board.painted = {};
    if (key != Qt::Key_Return || board.picture().currentEdge() || !board.picture().currentPane())
        board.press(key, modifiers);
    if (isLooked)
        checkPainting(board, before, board.image(), panes);
    return key == Qt::Key_Delete;
}

} // namespace

RC_GTEST_PROP(LayoutsPaneProperties, tenThousandGesturesKeepTheLayoutWholeAndTheFileEqual, ())
{
    DrawingBoard board(true);
    for (int gesture = 0; gesture < 100; ++gesture) {
        const QList<WindowLayout> before = board.inMemory();
        const WindowLayout shown = board.picture().shown();
        bool mayLeaveHole = false;
        const int kind = any(0, 19);
        if (kind < 6)
            dragByMouse(board);
        else if (kind < 18)
            mayLeaveHole = pressAnyKey(board);
        else if (kind == 18)
            board.model.undo();
        else
            board.plugOrUnplug();
        board.settle();
        board.picture().finish();

        const WindowLayout &now = board.picture().shown();
        RC_ASSERT(board.model.layouts().first() == now);
        RC_ASSERT(board.desk.saved() == board.inMemory());
        checkPanes(now);
        for (int display = 0; display < now.displays.size() && kind < 18 && !mayLeaveHole;
             ++display) {
            const double had = covered(shown, display);
            const bool hasHole = had < 1 - nearlyMet; // whose edge may have been moved
            RC_ASSERT(hasHole || covered(now, display) >= had - nearlyMet);
        }
        if (kind == 18 || before == board.inMemory())
            continue;
        const QList<WindowLayout> after = board.inMemory();
        board.model.undo();
        RC_ASSERT(board.inMemory() == before);
        board.model.redo();
        RC_ASSERT(board.inMemory() == after);
        RC_ASSERT(board.picture().shown() == now);
    }
}

TEST_F(LayoutsPaneTests, keysWalkOverAllDisplaysAndEditWhereTheyStand)
{
    struct Step {
        int key;
        Qt::KeyboardModifiers modifiers;
        QString current;
        QStringList columns;
    };
    const QStringList first = columns();
    for (const auto &[key, modifiers, expected, panes] :
        {Step{Qt::Key_Left, none, u"Terminal"_s, first}, {Qt::Key_Right, none, u"Editor"_s, first},
            {Qt::Key_Left, controlShift, u"Editor"_s,
                {u"Editor 0-40"_s, u"Terminal 40-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Right, Qt::ShiftModifier, u"Editor"_s,
                {u"Editor 0-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_C, none, u"Editor"_s, {u"Editor 0-35"_s, u"- 35-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Right, Qt::AltModifier, u"Editor"_s,
                {u"Editor 0-35"_s, u"- 35-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Right, Qt::ShiftModifier, u"Editor"_s,
                {u"Editor 0-50"_s, u"- 50-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_End, none, u"Editor"_s, {u"Editor 0-65"_s, u"- 65-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Left, Qt::ControlModifier, u"Editor"_s,
                {u"Editor 0-64.9"_s, u"- 64.9-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Escape, none, u"Editor"_s,
                {u"Editor 0-64.9"_s, u"- 64.9-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Right, none, u"-"_s,
                {u"Editor 0-64.9"_s, u"- 64.9-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_C, none, u"-"_s, // its halves would be too narrow
                {u"Editor 0-64.9"_s, u"- 64.9-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Delete, none, u"Editor"_s, {u"Editor 0-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Right, none, u"Browser"_s, {u"Editor 0-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Right, none, u"Mail"_s, {u"Editor 0-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Right, none, u"Mail"_s, {u"Editor 0-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Delete, none, u"-"_s, {u"Editor 0-70"_s, u"Browser 70-100"_s}},
            {Qt::Key_Return, none, u"-"_s, {u"Editor 0-70"_s, u"Browser 70-100"_s}}}) {
        SCOPED_TRACE(columns().join(u", "_s).toStdString());
        press(key, modifiers);

        EXPECT_EQ(current(), expected);
        EXPECT_EQ(columns(), panes);
    }
    EXPECT_EQ(picture().shown().panesOn(1).size(), 1) << "Return added a pane";
}

TEST_F(LayoutsPaneTests, aDraggedEdgeSnapsAndEndsWithWhatItStandsOn)
{
    const PaneEdge edge = edgesOf(picture().shown()).first();
    const QRectF area = picture().scene().display(0)->visible;
    const auto at = [&](double fraction) {
        return QPointF(area.left() + fraction * area.width(), area.center().y());
    };
    const auto startOf = [&] { return columns().first().section(u'-', 1); };
    struct Case {
        double fraction;
        Qt::KeyboardModifiers modifiers;
        QString end;
    };
    mouse(QEvent::MouseButtonPress, at(edge.at));
    for (const auto &[fraction, modifiers, end] :
        {Case{0.34, none, u"33.3"_s}, Case{0.3441, Qt::ControlModifier, u"34.4"_s},
            Case{0.584, none, u"58"_s}, Case{0.99, none, u"65"_s}, Case{-1, none, u"5"_s}}) {
        mouse(QEvent::MouseMove, at(fraction), modifiers);
        EXPECT_EQ(startOf(), end);
    }
    const auto before = model.layouts();
    EXPECT_EQ(desk.saved(), before) << "nothing is kept before the button is let go";

    desk.save({before[1], before[0]}); // by hand, meanwhile: the layout itself is as it was
    model.refreshLayouts();
    EXPECT_TRUE(picture().isDragging());
    desk.platform.desktop().unplug(desk.laptop);
    settle();
    EXPECT_FALSE(picture().isDragging());
    EXPECT_EQ(startOf(), u"40"_s);
    mouse(QEvent::MouseButtonRelease, at(0.2));
    EXPECT_NE(model.undoTitle(), u"Move Edge");

    const WindowLayout whole = picture().shown();
    mouse(QEvent::MouseButtonPress, at(edge.at));
    mouse(QEvent::MouseMove, at(0.2));
    model.deleteLayout(whole.id);
    EXPECT_FALSE(picture().isDragging());
    mouse(QEvent::MouseButtonRelease, at(0.2));
    model.undo();
    EXPECT_EQ(model.layout(whole.id), whole);
}

TEST_F(LayoutsPaneTests, percentsAreTypedAtAnEdgeAndInTheCardAndSayWhatIsWrong)
{
    press(Qt::Key_Right, Qt::AltModifier);
    press(Qt::Key_2);
    auto *percent = picture().findChild<QLineEdit *>();
    ASSERT_TRUE(percent->isVisible());
    percent->setText(u"25 %"_s);
    press(Qt::Key_Return, none, percent);
    EXPECT_EQ(columns(), (QStringList{u"Terminal 0-25"_s, u"Editor 25-70"_s, u"Browser 70-100"_s}));
    EXPECT_FALSE(percent->isVisible());

    auto *card = window->findChild<DisplayCard *>();
    const auto field = [&](const QString &name) {
        for (QLineEdit *each : card->findChildren<QLineEdit *>()) {
            if (each->accessibleName() == name)
                return each;
        }
        return static_cast<QLineEdit *>(nullptr);
    };
    struct Case {
        QString field;
        QString text;
        QStringList columns;
        QString complaint;
    };
    const QStringList halves{u"Terminal 0-50"_s, u"Editor 50-70"_s, u"Browser 70-100"_s};
    const QStringList narrow{u"Terminal 0-65"_s, u"Editor 65-70"_s, u"Browser 70-100"_s};
    const QString numbers = u". Numbers only; commas, slashes or spaces between them."_s;
    for (const auto &[name, text, panes, complaint] : {Case{u"Column 1"_s, u"50"_s, halves, {}},
             Case{u"Column 1"_s, u"wide"_s, halves, u"Column 1"_s + numbers},
             Case{u"Column 1"_s, u"90 %"_s, narrow, u"5 % is the smallest"_s},
             Case{u"Columns"_s, u"40 / x"_s, narrow, u"Columns"_s + numbers},
             Case{u"Columns"_s, u"60, 40"_s, {u"Terminal 0-60"_s, u"Editor 60-100"_s}, {}}}) {
        SCOPED_TRACE(text.toStdString());
        QLineEdit &typed = *field(name);
        typed.setFocus();
        typed.clear();
        typed.insert(text);
        press(Qt::Key_Return, none, &typed);

        EXPECT_EQ(columns(), panes);
        bool isSaid = complaint.isEmpty();
        for (const BoardText *each : card->findChildren<BoardText *>())
            isSaid |= each->isVisible() && each->text() == complaint;
        EXPECT_TRUE(isSaid);
        EXPECT_EQ(
            typed.accessibleDescription() == complaint || !complaint.contains(u"Numbers"_s), true);
    }
}

TEST_F(LayoutsPaneTests, theListRenamesMovesDeletesAndBringsBack)
{
    const auto names = [this] {
        QStringList all;
        for (const WindowLayout &layout : model.layouts())
            all << layout.name;
        return all;
    };
    press(Qt::Key_F2, none, &list());
    auto *editor = list().findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    model.updateLayout(model.layouts()[1], u"x"_s); // the name that is being typed stays
    settle();
    ASSERT_EQ(list().findChild<QLineEdit *>(), editor);
    editor->setText(u"Desk"_s);
    press(Qt::Key_Return, none, editor);
    EXPECT_THAT(names(), ElementsAre(u"Desk"_s, u"Evening"_s));

    press(Qt::Key_Down, Qt::AltModifier, &list());
    EXPECT_THAT(names(), ElementsAre(u"Evening"_s, u"Desk"_s));
    EXPECT_EQ(list().current(), model.layouts()[1].id) << "the one that was moved stays current";
    press(Qt::Key_Down, Qt::AltModifier, &list());
    EXPECT_THAT(names(), ElementsAre(u"Evening"_s, u"Desk"_s));

    press(Qt::Key_Delete, none, &list());
    EXPECT_THAT(names(), ElementsAre(u"Evening"_s));
    QWidget *undo = nullptr;
    for (QWidget *each : window->findChildren<QWidget *>()) {
        if (each->inherits("corvane::BoardLink") && each->isVisible())
            undo = each;
    }
    ASSERT_NE(undo, nullptr);
    press(Qt::Key_Space, none, undo);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Space, none);
    QApplication::sendEvent(undo, &release);
    settle();
    EXPECT_THAT(names(), ElementsAre(u"Evening"_s, u"Desk"_s));
    EXPECT_FALSE(undo->isVisible()) << "the strip stays until the next change";
}

TEST_F(LayoutsPaneTests, assistiveTechnologyReadsAndEditsThePicture)
{
    QAccessibleInterface *whole = QAccessible::queryAccessibleInterface(&picture());
    const auto names = [whole] {
        QStringList all;
        for (int i = 0; i < whole->childCount(); ++i)
            all << whole->child(i)->text(QAccessible::Name);
        return all;
    };
    EXPECT_EQ(whole->text(QAccessible::Name), u"Work, picture");
    EXPECT_EQ(names(),
        (QStringList{u"Terminal"_s, u"Editor"_s, u"Browser"_s, u"Mail"_s,
            u"Edge between Terminal and Editor"_s, u"Edge between Editor and Browser"_s}));
    QAccessibleInterface *editor = whole->child(1);
    EXPECT_EQ(editor->text(QAccessible::Description), u"Laptop, right, 30 by 100 percent");
    EXPECT_EQ(whole->childAt(editor->rect().center().x(), editor->rect().center().y()), editor);

    editor->actionInterface()->doAction(u"split rows"_s);
    EXPECT_EQ(whole->childCount(), 8);
    EXPECT_EQ(current(), u"Editor");
    whole->child(5)->valueInterface()->setCurrentValue(20);
    EXPECT_EQ(columns().first(), u"Terminal 0-20"_s);
    EXPECT_EQ(whole->child(5)->valueInterface()->currentValue().toDouble(), 20);
    editor->actionInterface()->doAction(u"remove"_s);
    EXPECT_FALSE(editor->isValid());
}

} // namespace corvane
