#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/pictures/byte_source.h"
#include "platform/pictures/row_source.h"
#include "toolkit/bitmap.h"

namespace quorvale {

// The header, masks and colour table of a device-independent bitmap, checked.
struct DibHeader {
  bool HasColourTable() const { return depth <= 8; }
  bool IsOpaque() const { return masks[3] == 0; }
  // Whether that many bytes can hold all the rows.
  bool FitsInto(std::size_t bytes) const;

  int width = 0;   // 1 to 2^20
  int height = 0;  // 1 to 2^20; both together no more than 2^30 pixels
  // The upper row is stored first. Otherwise the lower one is.
  bool top_down = false;
  int depth = 0;  // 1, 2, 4, 8, 16, 24 or 32 bits to the pixel
  // RLE4 or RLE8, by the depth.
  bool run_length = false;
  // The bits of red, green, blue and alpha in a pixel of 16 or 32 bits. No alpha: 0.
  std::array<Pixel, 4> masks{};
  // The colours of a pixel of 32 bits are multiplied by its alpha already.
  bool premultiplied = false;
  // 2^depth colours if the depth is 8 at most. Colours that the file leaves out are black.
  std::vector<Pixel> colours;
  // From one row to the next. Unused if they are run-length encoded.
  std::size_t row_bytes = 0;
  // The bytes of header, masks and colour table that were given.
  std::size_t size = 0;
};

// What a colour table holds: colours, 16-bit indices into a palette, or there is no table.
enum class ColorUsage : unsigned { DIB_RGB_COLORS, DIB_PAL_COLORS, DIB_PAL_INDICES };

// How the colour table of a bitmap is read.
struct ColourTableReading {
  ColorUsage usage = ColorUsage::DIB_RGB_COLORS;
  // The palette in force, if there is one.
  const std::vector<Pixel>* palette = nullptr;
  // The rows follow in the same bytes, so that the number of bytes shows whether a writer left the table out.
  bool rows_follow = false;
  // How many entries there is room for.
  std::size_t most_colours = 256;
};

// Reads the headers of OS/2 and of Windows, BITMAPCOREHEADER to BITMAPV5HEADER. The fields that a short header leaves
// out are 0. None if `info` is damaged or of an unknown kind.
std::optional<DibHeader> ReadDibHeader(std::span<const std::uint8_t> info, const ColourTableReading& reading = {});

// The rows in the order in which they are stored, from `offset` of `bytes` on. The picture ends where the bytes end.
// Pixels that run-length encoding leaves out have the first colour. `bytes` and `header` outlive the rows.
std::unique_ptr<RowSource> OpenDibRows(ByteSource& bytes, std::size_t offset, const DibHeader& header);

}  // namespace quorvale
