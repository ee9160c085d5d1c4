#include "transitions/effect_run.h"

#include "process/end_saver.h"
#include "process/process.h"
#include "toolkit/platform.h"

namespace quorvale {

void EffectRun::PumpStep() const {
  pace.PumpEvents();
  if (process.StopRequested) EndSaver(process);
}

void EffectRun::Pause() const {
  for (std::int32_t i = 0; i < DelayCount; ++i) pace.PumpEvents();
}

void EffectRun::EndStep() const {
  PumpStep();
  Pause();
}

}  // namespace quorvale
