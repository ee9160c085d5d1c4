#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include "toolkit/bitmap.h"
#include "toolkit/units.h"

namespace quorvale {

// A toolkit pixel is one of two kinds. Qt has pixels of its own, each of which covers one or more device pixels.
enum class PixelKind {
  kPhysical,  // a device pixel: the show
  kLogical,   // a pixel of the dialog layout, which grows with the desktop's scale and font
};

// Qt pixels per pixel of the dialog layout. Dialogs are designed for 96 dots per inch and the usual font. The layout
// grows as a whole where the desktop's resolution or font asks for larger text, as far as the screen has room, and
// shrinks where the tallest dialog would not fit.
double LayoutScale();

// Device pixels per toolkit pixel.
double ToolkitScale(PixelKind kind, double device_pixel_ratio);

// Toolkit pixels per Qt pixel.
double ToolkitPixelRatio(PixelKind kind, double device_pixel_ratio);

// In Qt pixels, each edge rounded to the nearest one.
QRect ToQtPixels(const PixelRect& rect, double ratio);

inline QColor ToQtColour(Colour colour) { return QColor::fromRgb(ToPixel(colour)); }
inline Colour ToColour(const QColor& colour) {
  return static_cast<Colour>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

// Uses the pixels where they are; they outlive the image.
QImage ImageOver(const PixelView& pixels, QImage::Format format = QImage::Format_RGB32);
QImage ImageOver(const ConstPixelView& pixels);

// Draws the artwork at that many device pixels per toolkit pixel.
QImage ToImage(const Artwork& artwork, float scale);

}  // namespace quorvale
