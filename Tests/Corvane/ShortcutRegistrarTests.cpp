#include "ShortcutRegistrar.h"

#include "ModelDesk.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

constexpr quint16 leftArrow = 123;

class ShortcutRegistrarTests : public testing::Test
{
protected:
    void press(quint32 modifiers)
    {
        desk.platform.hotKeys().press(leftArrow, modifiers);
        desk.settle();
    }

    ModelDesk desk;
    AppModel model = desk.model();
};

} // namespace

TEST_F(ShortcutRegistrarTests, everyModifierIsPartOfTheCombination)
{
    model.assign(KeyCombo(leftArrow, KeyCombo::control), {Placement::center});
    model.assign(KeyCombo(leftArrow, KeyCombo::modifierMask), {Placement::maximize});
    ShortcutRegistrar shortcuts(model);
    QList<Placement> pressed;
    shortcuts.onPlacement = [&](Placement placement) { pressed << placement; };
    shortcuts.registerAll();

    press(HotKeys::controlKey);
    press(HotKeys::controlKey | HotKeys::optionKey | HotKeys::shiftKey | HotKeys::cmdKey);

    EXPECT_THAT(pressed, testing::ElementsAre(Placement::center, Placement::maximize));
}

TEST_F(ShortcutRegistrarTests, aPressMayRegisterTheWholeSetAfresh)
{
    model.assign(KeyCombo(leftArrow, KeyCombo::control), {Placement::center});
    ShortcutRegistrar shortcuts(model);
    QList<Placement> pressed;
    shortcuts.onPlacement = [&](Placement placement) {
        shortcuts.registerAll();
        pressed << placement;
    };
    shortcuts.registerAll();

    press(HotKeys::controlKey);
    press(HotKeys::controlKey);

    EXPECT_THAT(pressed, testing::ElementsAre(Placement::center, Placement::center));
}

} // namespace corvane
