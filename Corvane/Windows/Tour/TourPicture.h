#pragma once

#include "AppModel.h"
#include "TourPage.h"

#include <QtGui/QPainter>

/// The picture beside the text of each page of the tour.
namespace corvane::TourPicture {

/// The placements whose keys are shown.
inline constexpr std::array shownPlacements{Placement::leftHalf, Placement::rightHalf,
    Placement::topLeft, Placement::leftThird, Placement::maximize};

void paint(QPainter &painter, const QRectF &rect, TourPage page, const AppModel &model);

} // namespace corvane::TourPicture
