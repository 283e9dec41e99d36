// The panel's four timers.
#include "model/panel_model.h"

namespace tandem::model {

void PanelModel::start_list_timer() {
  look.ListTimer = true;
  list_due_ = now_ + 2500;
}

// A reset during the delay does not make it longer.
void PanelModel::start_delay() {
  if (!look.TimerDelay) delay_due_ = now_ + 1500;
  look.TimerDelay = true;
}

void PanelModel::wait(std::int64_t milliseconds) {
  for (const std::int64_t end = now_ + milliseconds; now_ < end;) {
    now_ += 10;
    if (look.MixTimer != 0 && now_ >= mix_due_) {
      mix_due_ = now_ + 10;
      handle([this] { tick(); });
    }
    if (now_ >= refresh_due_) {
      refresh_due_ += 200;
      handle([this] { refresh(); });
    }
    if (look.ListTimer && now_ >= list_due_) {
      list_due_ += 2500;
      handle([this] { resynchronise(); });
    }
    if (look.TimerDelay && now_ >= delay_due_) handle([this] { delay_over(); });
  }
}

}  // namespace tandem::model
