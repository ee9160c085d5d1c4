#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iomanip>
#include <ostream>
#include <string>
#include <vector>

#include "platform/headless/headless_desktop.h"
#include "toolkit/form.h"
#include "toolkit/picture_box.h"

namespace quorvale {

// A test on a desktop of its own.
class HeadlessTest : public ::testing::Test {
 protected:
  HeadlessDesktop desktop;
};

// The surface of a form's picture box.
inline Surface& PixelsOf(const Form& form, const std::string& box = "PicBase") {
  return form.Find<PictureBox>(box).Pixels();
}

// A pixel as 0xRRGGBB.
inline Pixel RgbAt(const Surface& surface, int x, int y) { return surface.At(x, y) & 0xFFFFFFU; }

// Collects the drawing operations of a picture box for as long as it lives.
class DrawRecorder {
 public:
  explicit DrawRecorder(PictureBox& box) : box_(box) {
    box.Drawing = [this](const DrawOperation& operation) { operations.push_back(operation); };
  }
  ~DrawRecorder() { box_.Drawing = nullptr; }
  DrawRecorder(const DrawRecorder&) = delete;
  DrawRecorder& operator=(const DrawRecorder&) = delete;

  std::vector<DrawOperation> operations;

 private:
  PictureBox& box_;
};

// What gtest prints of an operation.
inline void PrintTo(const DrawOperation& operation, std::ostream* out) {
  static const char* const names[] = {"Cls", "Line", "Box", "Circle", "PSet", "Print"};
  *out << names[static_cast<int>(operation.kind)] << " (" << operation.x1 << ", " << operation.y1 << ")-("
       << operation.x2 << ", " << operation.y2 << ") r=" << operation.radius << " pen=" << operation.draw_width
       << " colour=" << std::hex << operation.colour << std::dec << " " << std::quoted(operation.text);
}

inline void PrintTo(const MessageBox& box, std::ostream* out) {
  *out << std::quoted(box.title) << " " << std::quoted(box.text);
}

}  // namespace quorvale
