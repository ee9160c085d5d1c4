// Makes the metafiles of tests/desktop/metafiles with the functions of Windows, and the pictures that the Windows
// players make of them. scripts/metafile-truth.sh builds and runs it.

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>

#include "drawing.h"

namespace {

void Save(const std::string& path, const void* head, std::size_t head_size, const void* bytes, std::size_t size) {
  FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return;
  if (head_size > 0) std::fwrite(head, 1, head_size, file);
  std::fwrite(bytes, 1, size, file);
  std::fclose(file);
}

// A white bitmap in memory.
struct Sheet {
  HDC dc = CreateCompatibleDC(nullptr);
  std::uint32_t* pixels = nullptr;

  Sheet() {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    SelectObject(dc, CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    pixels = static_cast<std::uint32_t*>(bits);
    for (int i = 0; i < kWidth * kHeight; ++i) pixels[i] = 0xFFFFFFFF;
  }

  void Save(const std::string& path) const {
    GdiFlush();
    std::vector<std::uint8_t> bytes;
    for (int i = 0; i < kWidth * kHeight; ++i) {
      for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<std::uint8_t>(pixels[i] >> shift));
    }
    const std::string head = "P6\n200 150\n255\n";
    ::Save(path, head.data(), head.size(), bytes.data(), bytes.size());
  }
};

#pragma pack(push, 2)
struct Placeable {
  std::uint32_t key = 0x9AC6CDD7;
  std::uint16_t handle = 0;
  std::int16_t left = 0, top = 0, right = kWidth, bottom = kHeight;
  std::uint16_t inch = 96;
  std::uint32_t reserved = 0;
  std::uint16_t checksum = 0;
};
#pragma pack(pop)

// Replaces plain pens by extended ones.
void PutExtendedPens(std::vector<std::uint8_t>& bytes) {
  std::vector<std::uint8_t> made;
  std::size_t next = 0;
  for (std::size_t at = 0; at + 8 <= bytes.size();) {
    DWORD head[3];
    memcpy(head, bytes.data() + at, sizeof(head));
    const DWORD size = head[1];
    if (head[0] == EMR_CREATEPEN && next < ExtendedPens().size()) {
      const std::vector<DWORD>& pen = ExtendedPens()[next++];
      head[0] = EMR_EXTCREATEPEN;
      head[1] = static_cast<DWORD>(sizeof(head) + pen.size() * sizeof(DWORD));
      const auto append = [&](const void* data, std::size_t count) {
        made.insert(made.end(), static_cast<const std::uint8_t*>(data), static_cast<const std::uint8_t*>(data) + count);
      };
      append(head, sizeof(head));
      append(pen.data(), pen.size() * sizeof(DWORD));
    } else {
      const auto* record = bytes.data() + at;
      made.insert(made.end(), record, record + size);
    }
    at += size;
  }
  const auto size = static_cast<DWORD>(made.size());
  memcpy(made.data() + offsetof(ENHMETAHEADER, nBytes), &size, sizeof(size));
  bytes = made;
  ExtendedPens().clear();
}

void MakeWmf(const Family& family) {
  HDC dc = CreateMetaFileA(nullptr);
  family.draw(dc, false);
  HMETAFILE made = CloseMetaFile(dc);
  std::vector<std::uint8_t> bytes(GetMetaFileBitsEx(made, 0, nullptr));
  GetMetaFileBitsEx(made, static_cast<UINT>(bytes.size()), bytes.data());
  Placeable head;
  std::uint16_t words[10];
  memcpy(words, &head, sizeof(words));
  for (const std::uint16_t word : words) head.checksum ^= word;
  Save(std::string(family.name) + ".wmf", &head, sizeof(head), bytes.data(), bytes.size());
  Sheet sheet;
  SetMapMode(sheet.dc, MM_ANISOTROPIC);
  SetWindowExtEx(sheet.dc, kWidth, kHeight, nullptr);
  SetViewportExtEx(sheet.dc, kWidth, kHeight, nullptr);
  if (family.truth == nullptr) {
    PlayMetaFile(sheet.dc, made);
  } else {
    family.truth(sheet.dc, false);
  }
  sheet.Save(std::string(family.name) + ".wmf.ppm");
}

void MakeEmf(const Family& family) {
  HDC screen = GetDC(nullptr);
  // The bitmap's size in hundredths of a millimetre.
  const int mm_x = GetDeviceCaps(screen, HORZSIZE), mm_y = GetDeviceCaps(screen, VERTSIZE);
  const int px_x = GetDeviceCaps(screen, HORZRES), px_y = GetDeviceCaps(screen, VERTRES);
  const RECT frame{0, 0, static_cast<LONG>(std::lround(100.0 * kWidth * mm_x / px_x)),
                   static_cast<LONG>(std::lround(100.0 * kHeight * mm_y / px_y))};
  HDC dc = CreateEnhMetaFileA(screen, nullptr, &frame, nullptr);
  family.draw(dc, true);
  HENHMETAFILE made = CloseEnhMetaFile(dc);
  std::vector<std::uint8_t> bytes(GetEnhMetaFileBits(made, 0, nullptr));
  GetEnhMetaFileBits(made, static_cast<UINT>(bytes.size()), bytes.data());
  if (!ExtendedPens().empty()) PutExtendedPens(bytes);
  Save(std::string(family.name) + ".emf", nullptr, 0, bytes.data(), bytes.size());
  Sheet sheet;
  const RECT box{0, 0, kWidth, kHeight};
  if (family.truth == nullptr) {
    PlayEnhMetaFile(sheet.dc, made, &box);
  } else {
    family.truth(sheet.dc, true);
  }
  sheet.Save(std::string(family.name) + ".emf.ppm");
}

}  // namespace

int main() {
  for (const auto& families : {ShapeFamilies(), MappingFamilies(), TextAndBitmapFamilies()}) {
    for (const Family& family : families) {
      if (family.wmf) MakeWmf(family);
      if (family.emf) MakeEmf(family);
    }
  }
  return 0;
}
