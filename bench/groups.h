#pragma once

#include "report.h"
#include "yardstick/x_display.h"

namespace quorvale {

// What a group of measurements works with.
struct Bench {
  Report& report;
  XDisplay& display;
  bool quick = false;     // fewer rounds, shorter shows
  bool thorough = false;  // what takes minutes as well
};

// Each prints a table of its own.
void MeasureLoading(Bench& bench);        // from the timer's event to the picture on the screen
void MeasureMetafiles(Bench& bench);      // loading and drawing them
void MeasureMemory(Bench& bench);         // the most memory that the program holds
void MeasureEffects(Bench& bench);        // steps a second and the time that each effect takes
void MeasureSpotlight(Bench& bench);      // beside filling its pixels
void MeasureLists(Bench& bench);          // directories, shuffling, the settings store
void MeasureShow(Bench& bench);           // CPU time of a running show
void MeasurePreview(Bench& bench);        // the show in miniature in a window of another program
void MeasureStart(Bench& bench);          // the window's coming and going
void MeasureConfiguration(Bench& bench);  // the configuration window, its lists, files and pane

}  // namespace quorvale
