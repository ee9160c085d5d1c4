#pragma once

#include <QString>

#include "platform/desktop/metafile/byte_reader.h"
#include "platform/desktop/metafile/gdi_objects.h"

namespace quorvale {

// Bytes in the code page of the font's character set.
QString DecodeText(ByteSpan bytes, const Font& font);
// Two bytes to the character.
QString DecodeWide(ByteSpan bytes);
// Numbers of glyphs, two bytes each. What they mean is the typeface's own, but most agree on the Latin
// letters.
QString DecodeGlyphs(ByteSpan bytes);
// Whether characters may take two bytes, so that bytes and characters don't go together.
bool IsMultiByte(const Font& font);

// The name of a typeface: up to its end mark, without the sign for vertical text.
QString FamilyName(QString name);

}  // namespace quorvale
