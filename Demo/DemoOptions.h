#pragma once

#include "Expected.h"

#include <QtCore/QStringList>

namespace corvane::demo {

struct DemoOptions {
    QString windowManager = QStringLiteral("openbox");
    QString pictureFolder = QStringLiteral("build/demo");
    QString reducedPicture; ///< where a picture for a page goes; empty for none
    QString layoutPicture; ///< the same for a layout, scattered and restored
    bool help = false;

    /// The error is a sentence.
    [[nodiscard]] static expected<DemoOptions, QString> parse(const QStringList &arguments);
    [[nodiscard]] static QString helpText();
};

} // namespace corvane::demo
