// One event done to the real panel, and the same to the model.
#pragma once

#include <string>

#include "model/model_events.h"
#include "model/model_look.h"

namespace tandem::model {

class Acting {
 public:
  test::TestPanel panel;

  Acting();
  // A user cannot click a line that does not exist.
  bool possible(const Event& event) const;
  void act(const Event& event);

  std::string saved_path() const { return panel.directory.file("saved.m3l"); }
  // What differs between the file that was saved last and the model's.
  std::string compare_saved(const PanelModel& model) const;

 private:
  // Each passes what it does not handle to the next.
  void act_on_transport(const Event& event);
  void act_on_files(const Event& event);
  void act_on_player(const Event& event);
  void act_on_board(const Event& event);
  void choose(const std::string& answer, const Button& key);
};

void act_on_model(PanelModel& model, const Event& event, const std::string& saved_path);

}  // namespace tandem::model
