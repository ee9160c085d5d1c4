#pragma once

#include "platform/desktop/metafile/byte_reader.h"
#include "platform/desktop/metafile/playback.h"

namespace quorvale {

// What both kinds of file hold of objects.

Pen SimplePen(unsigned style, double width, ColourReference colour);
// Styles and hatches by GDI's numbers.
Brush SimpleBrush(unsigned style, ColourReference colour, unsigned hatch);
// Nothing is drawn with a brush without an image.
Brush PatternBrush(const QImage& image, bool two_colours);
// From the slant to the pitch and the kind of typeface: eight bytes.
void ReadFontFlags(Font& font, ByteReader& reader);

std::shared_ptr<const Palette> ReadPalette(ByteReader& reader, std::size_t count);
std::shared_ptr<const Palette> ChangedPalette(const Palette& palette, std::size_t start, ByteReader& reader,
                                              std::size_t count);
void UsePalette(const Playback& playback, const GdiObject& object);

}  // namespace quorvale
