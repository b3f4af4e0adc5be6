#pragma once

#include <QtCore/QString>

#include <array>

namespace corvane {

/// The pages of the tour, in their order.
enum class TourPage {
    welcome,
    accessibility,
    alsoRunning,
    shortcuts,
    layouts,
};

inline constexpr std::array tourPages{TourPage::welcome, TourPage::accessibility,
    TourPage::alsoRunning, TourPage::shortcuts, TourPage::layouts};

/// One illustrated line of a page.
struct TourRow {
    QString symbol; ///< its name
    QString text; ///< with keys between "[[" and "]]"
};

} // namespace corvane
