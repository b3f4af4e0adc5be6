#pragma once

#include "LiveDesk.h"
#include "ScreenReader.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QSaveFile>

#include <algorithm>

namespace corvane::desktop {

/// The program with files of the test's own, and with a screen reader from when it is started.
class ScreenReaderTests : public LiveTests
{
protected:
    static inline const QString settingsFile = QStringLiteral("settings.json");
    static inline const QString layoutsFile = QStringLiteral("layouts.json");

    // The next test starts the program again, without the files.
    void TearDown() override
    {
        m_reader.reset();
        LiveTests::TearDown();
        corvane().stop();
        for (const QString &name : {settingsFile, layoutsFile})
            QFile::remove(pathOf(name));
    }

    void startReader() { m_reader = std::make_unique<ScreenReader>(desktop()); }
    ScreenReader &reader() { return *m_reader; }
    QString pathOf(const QString &name)
    {
        return session().dataFolder() + QStringLiteral("/Corvane/") + name;
    }
    /// As an editor does; the program notices. It may not have made the folder yet.
    void edit(const QString &name, const QByteArray &text)
    {
        QDir(session().dataFolder()).mkpath(QStringLiteral("Corvane"));
        QSaveFile file(pathOf(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) > 0 && file.commit());
    }
    QJsonDocument contents(const QString &name)
    {
        QFile file(pathOf(name));
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll())
                                              : QJsonDocument();
    }

    /// The first with this role and name, once it shows.
    Accessible find(const QString &title)
    {
        Accessible found;
        QList<Accessible> shown;
        EXPECT_TRUE(waitUntil([&] {
            shown = reader().shown();
            const auto first = std::ranges::find(shown, title, &Accessible::title);
            if (first != shown.end())
                found = *first;
            return first != shown.end();
        })) << qPrintable(title)
            << " is not among " << testing::PrintToString(titles(shown));
        return found;
    }
    bool comesTo(const Accessible &thing, Accessible::State state, bool has = true)
    {
        return waitUntil([&] { return reader().is(thing, state) == has; });
    }

private:
    static std::vector<std::string> titles(const QList<Accessible> &things)
    {
        std::vector<std::string> titles;
        for (const Accessible &each : things)
            titles.push_back(each.title().toStdString());
        return titles;
    }

    std::unique_ptr<ScreenReader> m_reader;
};

} // namespace corvane::desktop
