#pragma once

#include <QString>

#include "base/byte_reader.h"
#include "platform/desktop/metafile/objects.h"

namespace quorvale::metafile {

// Text in the code page of the font's character set. Bytes without a meaning in it become question marks.
QString DecodeText(ByteSpan bytes, const Font& font);
// UTF-16, little-endian.
QString DecodeWide(ByteSpan bytes);
// 16-bit glyph indices. They depend on the typeface, but the common ones agree on ASCII; other glyphs become blanks.
QString DecodeGlyphs(ByteSpan bytes);
// Whether the code page has characters of two bytes.
bool IsMultiByte(const Font& font);

// A face name up to its null character, without the '@' of vertical typefaces.
QString FamilyName(QString name);

}  // namespace quorvale::metafile
