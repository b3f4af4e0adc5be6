#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

/// What is new in a version, read from a web page that anybody may have written. All that is left of the
/// page is text in one line each, and which of it is bold.
namespace corvane::ReleaseNotes {

/// No larger page is read further.
inline constexpr qsizetype sizeLimit = 64LL * 1024;

/// Some words in one weight.
struct Run {
    QString text;
    bool isBold = false;

    bool operator==(const Run &) const = default;
};

using Item = QList<Run>; ///< neighbours differ in weight

struct Section {
    QString heading; ///< empty for items that stand before the first one
    QList<Item> items = {};

    bool operator==(const Section &) const = default;
};

/// The page's second-level headings and list items, in the order of the page. In time that grows with
/// its length only.
[[nodiscard]] QList<Section> parse(const QByteArray &page);

} // namespace corvane::ReleaseNotes
