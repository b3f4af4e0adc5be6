#pragma once

#include "Expected.h"
#include "VirtualDesktop.h"

#include <QtCore/QHash>

namespace corvane::bench {

/// Milliseconds by what they were taken for.
using TimedLines = QHash<QByteArray, QList<double>>;

/// What a program prints that measures itself: lines of a name and a time, the last one "done". The
/// error is a sentence.
[[nodiscard]] expected<TimedLines, QString> timedLines(
    desktop::VirtualDesktop &desktop, const QString &program, const QStringList &arguments);

} // namespace corvane::bench
