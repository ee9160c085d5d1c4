#pragma once

#include "report.h"
#include "yardstick/x_display.h"

namespace quorvale {

// What all groups of measurements use.
struct Bench {
  Report& report;
  XDisplay& display;
  bool quick = false;     // fewer rounds, shorter shows
  bool thorough = false;  // also the measurements that take minutes
};

// Each prints its own tables.
void MeasureLoading(Bench& bench);        // from the timer's event to the picture on the screen
void MeasureKinds(Bench& bench);          // pictures of the further kinds, and of other colours
void MeasureMetafiles(Bench& bench);      // loading and drawing them
void MeasureMemory(Bench& bench);         // the most memory that the program holds
void MeasureEffects(Bench& bench);        // steps a second and the time that each effect takes
void MeasureSpotlight(Bench& bench);      // compared with a bare loop over its pixels
void MeasureLists(Bench& bench);          // directories, shuffling, the settings store
void MeasureShow(Bench& bench);           // CPU time of a running show
void MeasurePreview(Bench& bench);        // the show in miniature in a window of another program
void MeasureStart(Bench& bench);          // until the window is there, and until it is gone
void MeasureConfiguration(Bench& bench);  // the configuration window, its lists, files and pane

}  // namespace quorvale
