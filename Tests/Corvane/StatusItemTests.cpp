#include "StatusItem.h"

#include "TrayServices.h"

#include <gmock/gmock.h>

namespace corvane {

TEST(StatusItemTests, exportsAMenuWherePanelsDrawThemAndDrawsItsOwnWherePanelsAskForIt)
{
    struct Case {
        const char *desktop;
        freedesktop::TrayServices services;
        MenuForm form;
    };
    const QString one = QStringLiteral(":1.5");
    const QString other = QStringLiteral(":1.9");
    const Case cases[]{
        {"GNOME with its extension", {.watcher = one, .shell = one}, MenuForm::exported},
        {"a panel beside GNOME", {.watcher = one, .shell = other}, MenuForm::drawnOrExported},
        {"indicators", {.watcher = one, .hasIndicators = true}, MenuForm::exported},
        {"Plasma", {.watcher = one, .hasPlasma = true}, MenuForm::drawn},
        {"another panel", {.watcher = one}, MenuForm::drawnOrExported},
        {"GNOME without a tray", {}, MenuForm::drawnOrExported},
    };
    for (const auto &[desktop, services, form] : cases)
        EXPECT_EQ(menuForm(services), form) << desktop;
}

TEST(StatusItemTests, opensTheMenuBesideTheIconAndWhollyOnItsDisplay)
{
    struct Case {
        const char *place;
        QRect anchor;
        QPoint origin;
    };
    const QSize menu(300, 600);
    const QRect screen(1920, 0, 1600, 900);
    const Case cases[]{
        {"top, in the middle", {2500, 0, 24, 24}, {2500, 24}},
        {"top right", {3490, 0, 24, 24}, {3220, 24}},
        {"bottom right", {3490, 876, 24, 24}, {3220, 276}},
        {"bottom left", {1920, 876, 24, 24}, {1920, 276}},
        {"half-way down, where there is no room on either side", {2500, 450, 24, 24}, {2500, 0}},
        {"partly off the display", {1910, 0, 24, 24}, {1920, 24}},
        {"the pointer in the corner", {3519, 899, 1, 1}, {3220, 299}},
    };
    for (const auto &[place, anchor, origin] : cases)
        EXPECT_EQ(menuOrigin(anchor, menu, screen), origin) << place;
}

} // namespace corvane
