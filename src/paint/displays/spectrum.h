// The moving part of the spectrum display: draws only what changed into an image at device resolution. UI thread.
#pragma once

#include <QImage>
#include <QRect>
#include <QVarLengthArray>

#include "paint/displays/spectrum_backdrop.h"
#include "paint/displays/spectrum_picture.h"

namespace tandem {

using ChangedRects = QVarLengthArray<QRect, 8>;

/// Brings the display area, whose top left is `origin` in the image, up to date and returns what changed in image
/// pixels: at most eight rectangles, none if nothing moved. The image is RGB32 or premultiplied ARGB32 and holds the
/// whole area. Allocates at the first call only.
ChangedRects update_spectrum(QImage& image, const QPoint& origin, const SpectrumBackdrop& backdrop,
                             const SpectrumPicture& picture, SpectrumTrace& standing);

}  // namespace tandem
