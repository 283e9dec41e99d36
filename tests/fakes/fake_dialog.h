// A file dialog whose answers are given beforehand.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "controls/file_dialog.h"

namespace tandem::test {

class FakeDialog final : public FileDialog {
 public:
  std::deque<std::string> answers;  // of the next shows; without one: cancelled

  struct Show {
    std::string operation;  // "open" or "save"
    std::string InitDir;
    std::string Filter;
  };
  std::vector<Show> shows;
  std::function<void()> while_open;  // the program goes on while the dialog is open

 protected:
  std::string ask_open() override { return answer("open"); }
  std::string ask_save() override { return answer("save"); }

 private:
  std::string answer(const std::string& operation) {
    shows.push_back({operation, InitDir, Filter});
    if (while_open) while_open();
    if (answers.empty()) return {};
    const std::string next = answers.front();
    answers.pop_front();
    return next;
  }
};

}  // namespace tandem::test
