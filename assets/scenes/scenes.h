#pragma once

#include "picture/canvas.h"
#include "picture/develop.h"

namespace quorvale::samples {

// A picture and how to develop it.
struct Scene {
  Canvas canvas;
  FilmSettings film;
};

constexpr int kSceneWidth = 3840, kSceneHeight = 2160;

// First light on the mountains behind a lake.
Scene RenderDawnLake();
// Northern lights over a fjord in winter, and a hut where somebody is still awake.
Scene RenderAuroraFjord();
// A leaf against the light, with the dew on it.
Scene RenderDewLeaf();

}  // namespace quorvale::samples
