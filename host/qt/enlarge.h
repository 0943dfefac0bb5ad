// Enlarging pictures of few pixels, so that their edges stay as crisp as the factor allows.
#pragma once

#include <QImage>

namespace kvqt {

// Pixels become rectangles of one colour that pass into each other over a short stretch, so that
// upright lines stay crisp and slanted ones do not show steps. `size` is at least that of the picture
// in both directions.
QImage Enlarge(const QImage& picture, const QSize& size);

}  // namespace kvqt
