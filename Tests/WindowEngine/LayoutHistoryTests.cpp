#include "LayoutHistory.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

TEST(LayoutHistoryTests, aNewActionEndsWhatCouldBeRedone)
{
    LayoutHistory history;
    history.record(u"Rename"_s, {});
    EXPECT_TRUE(history.undo({}));
    EXPECT_EQ(history.redoTitle(), u"Rename"_s);

    history.record(u"Split"_s, {});

    EXPECT_EQ(history.redo({}), std::nullopt);
    EXPECT_EQ(history.undoTitle(), u"Split"_s);
}

TEST(LayoutHistoryTests, theOldestPointsAreForgotten)
{
    LayoutHistory history;
    for (int i = 0; i <= LayoutHistory::depth; ++i)
        history.record(QString::number(i), {});

    while (history.undoTitle() != u"1"_s)
        ASSERT_TRUE(history.undo({}));

    EXPECT_TRUE(history.undo({}));
    EXPECT_EQ(history.undo({}), std::nullopt);
}

TEST(LayoutHistoryTests, revertPutsOneLayoutBackAndCanItselfBeUndone)
{
    const WindowLayout saved{.name = u"Desk"_s};
    const WindowLayout other{.name = u"Other"_s};
    WindowLayout edited = saved;
    edited.name = u"Work"_s;
    LayoutHistory history;
    history.setSaved({saved});

    EXPECT_EQ(history.revert(saved.id, {other, saved}), std::nullopt);
    EXPECT_EQ(history.revert(other.id, {other, edited}), std::nullopt);
    const auto reverted = history.revert(saved.id, {other, edited});

    EXPECT_EQ(reverted, (LayoutHistory::Layouts{other, saved}));
    EXPECT_EQ(history.undoTitle(), u"Revert Work"_s);
    EXPECT_EQ(history.undo(*reverted), (LayoutHistory::Layouts{other, edited}));
}

} // namespace corvane
