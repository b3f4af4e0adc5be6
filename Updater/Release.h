#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace corvane {

/// One file of a release, for one kind of computer.
struct Artefact {
    QString os, arch, glibc; ///< "linux", "x86_64", "2.36": the oldest glibc that it runs with
    QList<QUrl> addresses; ///< 1 to 3
    qint64 size = 0; ///< in bytes, as is unpackedSize
    QByteArray sha256; ///< 32 bytes
    qint64 unpackedSize = 0;

    bool operator==(const Artefact &) const = default;
};

struct Release {
    QString product, version;
    qint64 build = 0; ///< what is compared; never the version's text
    QDateTime date;
    qint64 minimumBuild = 0; ///< the oldest build that can become this one
    QList<Artefact> artefacts;

    bool operator==(const Release &) const = default;
};

} // namespace corvane
