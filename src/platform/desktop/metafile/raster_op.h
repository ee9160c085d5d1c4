#pragma once

#include <QRgb>

namespace quorvale {

// A ternary raster operation is the table of its results: bit number 4 P + 2 S + D holds the result for
// a bit of the pattern, of the source and of the destination.
namespace raster_op {
inline constexpr unsigned kBlackness = 0x00;
inline constexpr unsigned kInvertDestination = 0x55;
inline constexpr unsigned kNothing = 0xAA;
inline constexpr unsigned kSourceCopy = 0xCC;
inline constexpr unsigned kPatternCopy = 0xF0;
}  // namespace raster_op

// From a blit's 32 bits.
constexpr unsigned TernaryOp(unsigned blit) { return blit >> 16U & 0xFFU; }
// From the number of a drawing mode, 1 to 16.
unsigned TernaryOfMode(unsigned mode);

constexpr bool UsesDestination(unsigned op) { return ((op >> 1U ^ op) & 0x55U) != 0; }
constexpr bool UsesSource(unsigned op) { return ((op >> 2U ^ op) & 0x33U) != 0; }

// An opaque pixel.
QRgb ApplyRasterOp(unsigned op, QRgb pattern, QRgb source, QRgb destination);

}  // namespace quorvale
