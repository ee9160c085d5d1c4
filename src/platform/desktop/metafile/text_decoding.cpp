#include "platform/desktop/metafile/text_decoding.h"

#include <iconv.h>

#include <algorithm>
#include <iterator>

namespace quorvale::metafile {
namespace {

constexpr unsigned kSymbolCharset = 2;

struct CodePage {
  unsigned charset;
  const char* name;
};

constexpr CodePage kCodePages[] = {
    {77, "MACINTOSH"}, {128, "CP932"},  {129, "CP949"},  {130, "JOHAB"},  {134, "CP936"},  {136, "CP950"},
    {161, "CP1253"},   {162, "CP1254"}, {163, "CP1258"}, {177, "CP1255"}, {178, "CP1256"}, {186, "CP1257"},
    {204, "CP1251"},   {222, "CP874"},  {238, "CP1250"}, {255, "CP437"},
};

const char* CodePageOf(unsigned charset) {
  const auto* const page = std::find_if(std::begin(kCodePages), std::end(kCodePages),
                                        [&](const CodePage& entry) { return entry.charset == charset; });
  return page == std::end(kCodePages) ? "CP1252" : page->name;
}

class Converter {
 public:
  explicit Converter(const char* from) : handle_(iconv_open("UTF-16LE", from)) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (IsOpen()) iconv_close(handle_);
  }

  // NOLINTNEXTLINE(performance-no-int-to-ptr): this is how the library says that it failed.
  bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  QString Convert(ByteSpan bytes) {
    QString text(static_cast<qsizetype>(bytes.size()) * 2, u'\0');
    char* from = const_cast<char*>(reinterpret_cast<const char*>(bytes.data()));
    std::size_t left = bytes.size();
    char* to = reinterpret_cast<char*>(text.data());
    const std::size_t space = bytes.size() * 4;
    std::size_t room = space;
    while (left > 0 && iconv(handle_, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) {
      if (room < 2) break;
      // An invalid byte.
      ++from;
      --left;
      *to++ = '?';
      *to++ = '\0';
      room -= 2;
    }
    text.resize(static_cast<qsizetype>((space - room) / 2));
    return text;
  }

 private:
  iconv_t handle_;
};

// The encoding of the typeface Symbol: Greek letters in place of the Latin ones.
QString FromSymbol(ByteSpan bytes) {
  constexpr QStringView kUpper = u"ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ";
  constexpr QStringView kLower = u"αβχδεφγηιϕκλμνοπθρστυϖωξψζ";
  QString text;
  for (const unsigned byte : bytes) {
    if (byte >= 'A' && byte <= 'Z') {
      text += kUpper[byte - 'A'];
    } else if (byte >= 'a' && byte <= 'z') {
      text += kLower[byte - 'a'];
    } else if (byte == 0xB7) {
      text += QChar(0x2022);
    } else {
      text += QChar(static_cast<char16_t>(byte));
    }
  }
  return text;
}

}  // namespace

QString DecodeText(ByteSpan bytes, const Font& font) {
  if (font.charset == kSymbolCharset && font.family.compare(u"Symbol", Qt::CaseInsensitive) == 0) {
    return FromSymbol(bytes);
  }
  Converter converter(CodePageOf(font.charset));
  if (converter.IsOpen()) return converter.Convert(bytes);
  return QString::fromLatin1(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

QString DecodeWide(ByteSpan bytes) {
  ByteReader reader(bytes);
  QString text;
  for (std::size_t i = 0; i < bytes.size() / 2; ++i) text += QChar(static_cast<char16_t>(reader.U16()));
  return text;
}

QString DecodeGlyphs(ByteSpan bytes) {
  constexpr unsigned kFirst = 3;
  constexpr unsigned kLast = 97;
  constexpr unsigned kToCharacter = 29;
  ByteReader reader(bytes);
  QString text;
  for (std::size_t i = 0; i < bytes.size() / 2; ++i) {
    const unsigned glyph = reader.U16();
    text += glyph >= kFirst && glyph <= kLast ? QChar(static_cast<char16_t>(glyph + kToCharacter)) : QChar(u' ');
  }
  return text;
}

bool IsMultiByte(const Font& font) { return font.charset >= 128 && font.charset <= 136; }

QString FamilyName(QString name) {
  const qsizetype end = name.indexOf(u'\0');
  if (end >= 0) name.truncate(end);
  return name.startsWith(u'@') ? name.mid(1) : name;
}

}  // namespace quorvale::metafile
