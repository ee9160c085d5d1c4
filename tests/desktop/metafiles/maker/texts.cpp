// Texts.

#include "drawing.h"

namespace {

HFONT MakeFont(int height, int escapement, int weight, bool italic, const wchar_t* name, int width = 0) {
  return CreateFontW(height, width, escapement, escapement, weight, italic, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                     ANTIALIASED_QUALITY, 0, name);
}

void Texts(HDC dc, bool) {
  SetBkMode(dc, TRANSPARENT);
  Use(dc, MakeFont(-18, 0, 400, false, L"Liberation Sans"));
  TextOutA(dc, 5, 2, "Plain text", 10);
  SetTextColor(dc, RGB(200, 0, 0));
  Use(dc, MakeFont(-18, 0, 700, true, L"Liberation Serif"));
  SetTextAlign(dc, TA_RIGHT | TA_BASELINE);
  TextOutA(dc, 195, 20, "Bold", 4);
  SetTextAlign(dc, TA_CENTER | TA_BOTTOM);
  SetBkMode(dc, OPAQUE);
  SetBkColor(dc, RGB(255, 255, 0));
  TextOutA(dc, 100, 60, "Centred", 7);
  SetBkMode(dc, TRANSPARENT);
  SetTextAlign(dc, TA_LEFT | TA_TOP);
  Use(dc, MakeFont(20, 300, 400, false, L"Liberation Sans"));
  SetTextColor(dc, RGB(0, 0, 200));
  TextOutA(dc, 10, 130, "Turned", 6);
  Use(dc, MakeFont(-14, 0, 400, false, L"Liberation Sans"));
  const INT widths[] = {20, 14, 26, 14, 20};
  const RECT box{90, 70, 190, 95};
  SetBkColor(dc, RGB(180, 255, 180));
  ExtTextOutA(dc, 95, 75, ETO_OPAQUE | ETO_CLIPPED, &box, "Apart", 5, widths);
  Use(dc, MakeFont(-20, 0, 400, false, L"Liberation Sans", 16));
  TextOutA(dc, 70, 105, "Wide", 4);
}

void WideTexts(HDC dc, bool) {
  SetBkMode(dc, TRANSPARENT);
  Use(dc, MakeFont(-24, 0, 400, false, L"DejaVu Sans"));
  TextOutW(dc, 5, 5, L"\u00C4rger \u03A9\u0416", 8);
  SetTextAlign(dc, TA_UPDATECP);
  MoveToEx(dc, 5, 50, nullptr);
  SetTextColor(dc, RGB(160, 0, 0));
  TextOutW(dc, 0, 0, L"one ", 4);
  SetTextColor(dc, RGB(0, 0, 160));
  TextOutW(dc, 0, 0, L"two", 3);
  LineTo(dc, 190, 70);
  SetTextAlign(dc, TA_LEFT);
  SetTextCharacterExtra(dc, 5);
  TextOutW(dc, 5, 100, L"spaced", 6);
}

void TextPaths(HDC dc, bool) {
  SetBkMode(dc, TRANSPARENT);
  Use(dc, MakeFont(-60, 0, 700, false, L"Liberation Sans"));
  Brush(dc, RGB(255, 200, 0));
  Pen(dc, PS_SOLID, 2, RGB(120, 0, 0));
  BeginPath(dc);
  TextOutA(dc, 10, 10, "Path", 4);
  EndPath(dc);
  StrokeAndFillPath(dc);
  BeginPath(dc);
  TextOutA(dc, 10, 75, "Clip", 4);
  EndPath(dc);
  SelectClipPath(dc, RGN_COPY);
  Ground(dc);
}

constexpr Family kFamilies[] = {
    {"texts", Texts, true, true},
    {"wide_texts", WideTexts, false, true},
    {"text_paths", TextPaths, false, true},
};

}  // namespace

std::span<const Family> TextFamilies() { return kFamilies; }
