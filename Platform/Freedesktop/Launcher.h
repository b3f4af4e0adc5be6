#pragma once

#include "DesktopEntries.h"

#include <QtCore/QObject>

namespace corvane::freedesktop {

/// Opens applications. What it starts is nobody's child and outlives us.
class Launcher final : public QObject
{
    Q_OBJECT

public:
    explicit Launcher(DesktopEntries &entries) : m_entries(entries) { }

    /// The error is one sentence. An application that is opened over the session bus may still fail
    /// later; then its program is started.
    [[nodiscard]] expected<void, QString> open(const QString &id);
    /// One window more of an application that has some: by its action for that, else by a further
    /// start, unless it says that it has one window only.
    [[nodiscard]] expected<void, QString> openFurtherWindow(const QString &id);

private:
    [[nodiscard]] expected<DesktopEntry, QString> openable(const QString &id);
    [[nodiscard]] expected<void, QString> activateOrStart(
        const DesktopEntry &entry, const QString &method, const QVariantList &arguments);
    /// False where there is no bus, or the id is no name on it.
    bool activate(const DesktopEntry &entry, const QString &method, const QVariantList &arguments);
    [[nodiscard]] expected<void, QString> start(const DesktopEntry &entry);
    [[nodiscard]] static QString sentence(const DesktopEntry &entry, DesktopEntry::Fault fault);

    DesktopEntries &m_entries;
};

} // namespace corvane::freedesktop
