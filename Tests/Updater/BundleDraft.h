#pragma once

#include "ArchiveDraft.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMap>

namespace corvane {

inline QByteArray sha256(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

inline QByteArray manifestLine(const QByteArray &path, const QByteArray &content)
{
    return path + ' ' + QByteArray::number(content.size()) + ' ' + sha256(content).toHex() + '\n';
}

/// A small bundle with everything that a real one has one of. Its program is a script.
struct BundleDraft {
    QMap<QByteArray, QByteArray> files;

    explicit BundleDraft(qint64 build, const QByteArray &kind = "bundle")
    {
        const QByteArray number = QByteArray::number(build);
        files = {{"bin/corvane", "#!/bin/sh\n[ \"$1\" = --self-test ] && echo " + number + '\n'},
            {"share/corvane/install.json",
                "{\"kind\": \"" + kind + "\", \"build\": " + number + "}\n"},
            {"share/applications/app.corvane.Corvane.desktop",
                "[Desktop Entry]\nType=Application\nName=Corvane\nExec=corvane %u\n"
                "Actions=maximize;\n\n[Desktop Action maximize]\nName=Maximize\n"
                "Exec=corvane --place maximize\n"},
            {"share/dbus-1/services/app.corvane.Corvane.service",
                "[D-BUS Service]\nName=app.corvane.Corvane\nExec=/usr/bin/corvane\n"},
            {"share/icons/hicolor/scalable/apps/app.corvane.Corvane.svg", "<svg/>"},
            {"share/man/man1/corvane.1", ".TH corvane"},
            {"share/bash-completion/completions/corvane", "complete corvane"}};
    }

    [[nodiscard]] QByteArray manifest() const
    {
        QByteArray text;
        for (auto file = files.cbegin(); file != files.cend(); ++file)
            text += manifestLine(file.key(), file.value());
        return text;
    }

    /// Leaves in the folder what unpacking an archive by hand leaves.
    void write(const QString &folder) const
    {
        auto all = files;
        all.insert("MANIFEST", manifest());
        for (auto each = all.cbegin(); each != all.cend(); ++each) {
            QFile file(folder + u'/' + QString::fromUtf8(each.key()));
            QDir().mkpath(QFileInfo(file).path());
            if (!file.open(QFile::WriteOnly) || file.write(each.value()) != each.value().size())
                qFatal("cannot write %s", each.key().constData());
            if (each.key().startsWith("bin/"))
                file.setPermissions(file.permissions() | QFile::ExeOwner);
        }
    }

    [[nodiscard]] QByteArray archive() const
    {
        QList<EntryDraft> entries{{.path = "MANIFEST", .content = manifest()}};
        for (auto file = files.cbegin(); file != files.cend(); ++file) {
            const QByteArray &path = file.key();
            for (qsizetype at = path.indexOf('/'); at >= 0; at = path.indexOf('/', at + 1)) {
                const EntryDraft folder{.path = path.first(at), .mode = 0755, .type = AE_IFDIR};
                if (!std::ranges::count(entries, folder.path, &EntryDraft::path))
                    entries << folder;
            }
            entries << EntryDraft{.path = path,
                .content = file.value(),
                .mode = path.startsWith("bin/") ? mode_t(0755) : mode_t(0644)};
        }
        return archiveOf(entries);
    }
};

} // namespace corvane
