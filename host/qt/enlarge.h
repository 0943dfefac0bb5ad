// Enlarging pictures of few pixels, so that their edges stay as crisp as the factor allows.
#pragma once

#include <QImage>

namespace kvqt {

// Every pixel becomes a rectangle of the same colour; where one ends inside a pixel of the result,
// the colours mix by their shares. `size` is at least that of the picture in both directions.
QImage Enlarge(const QImage& picture, const QSize& size);

}  // namespace kvqt
