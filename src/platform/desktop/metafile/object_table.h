#pragma once

#include <vector>

#include "platform/desktop/metafile/gdi_objects.h"

namespace quorvale {

// The objects that a file has made.
class ObjectTable {
 public:
  // At the first free place, as WMF files expect it.
  void Add(GdiObject object);
  // At a place that the file names.
  void Set(std::uint32_t place, GdiObject object);
  void Remove(std::uint32_t place);
  // Empty where there is none.
  const GdiObject& Get(std::uint32_t place) const;

 private:
  struct Slot {
    bool used = false;
    GdiObject object;
  };
  std::vector<Slot> slots_;
};

}  // namespace quorvale
