#pragma once

namespace quorvale {

// What has to happen before there is a QApplication.

// Whether there is a display to open. Qt would end the process with an abort.
bool HasDisplay();

// Makes a pixel of Qt's a pixel of the device, where Qt can do that. Gives by how much the user wants
// everything larger, so that text can still follow.
double TurnScalingOff();

}  // namespace quorvale
