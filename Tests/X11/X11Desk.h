#pragma once

#include "Platform.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"
#include "X11Platform.h"

#include <QtCore/QCoreApplication>

#include <gmock/gmock.h>

namespace corvane {

/// A virtual desktop under openbox, with the back end in this process.
struct X11Desk : testing::Test {
    expected<std::unique_ptr<desktop::VirtualDesktop>, QString> desk =
        desktop::VirtualDesktop::start({});
    expected<std::unique_ptr<desktop::WindowManagerProcess>, QString> windowManager;
    expected<std::unique_ptr<Platform>, QString> platform;

    void SetUp() override
    {
        ASSERT_TRUE(desk) << qPrintable(desk.error());
        windowManager = desktop::WindowManagerProcess::start(**desk, QStringLiteral("openbox"));
        ASSERT_TRUE(windowManager) << qPrintable(windowManager.error());
        qputenv("DISPLAY", (*desk)->displayName().toLocal8Bit());
        platform = openX11Platform([] {});
        ASSERT_TRUE(platform) << qPrintable(platform.error());
    }
    static bool eventually(const std::function<bool()> &condition)
    {
        return desktop::waitUntil([&] {
            QCoreApplication::processEvents();
            return condition();
        });
    }
};

} // namespace corvane
