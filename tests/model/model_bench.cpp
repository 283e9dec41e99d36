#include "model/model_bench.h"

#include <algorithm>
#include <sstream>

#include "model/model_acts.h"

namespace tandem::model {

namespace {

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + ' ';
  return text;
}

std::string table_differences(const PanelModel& model, test::TestPanel& panel) {
  std::string text;
  for (std::size_t i = 0; i < model.SongTable.size(); ++i) {
    const auto& found = panel.program.SongTable.at(static_cast<int>(i));
    const Song& expected = model.SongTable.at(i);
    if (expected.SongFile == found.SongFile && expected.SongLength == found.SongLength) continue;
    text += "  SongTable(" + std::to_string(i) + "): expected \"" + expected.SongFile + "\" " +
            std::to_string(expected.SongLength) + ", found \"" + found.SongFile + "\" " +
            std::to_string(found.SongLength) + '\n';
  }
  return text;
}

std::string all_differences(const PanelModel& model, Acting& real) {
  std::string text;
  const PanelLook found = look_at(real.panel);
  if (!(model.look == found)) text += differences(model.look, found);
  text += table_differences(model, real.panel);
  const std::vector<std::string> calls = transport_calls(real.panel.sound);
  if (calls != model.calls) text += "  calls: expected " + joined(model.calls) + ", found " + joined(calls) + '\n';
  const bool ended = !real.panel.silent_errors.empty();
  if (ended != model.ended)
    text += ended ? "  ended by an error, expected none\n" : "  not ended by the error expected\n";
  if (!real.panel.messages.empty()) text += "  message: " + real.panel.messages.front() + '\n';
  return text;
}

void tally(Reached& reached, const Event& event, const PanelLook& before, const PanelModel& model) {
  const PanelLook& after = model.look;
  const bool tick = event.act == Act::Tick;
  ++reached.events;
  reached.mixes += tick && before.MixStarted == 0 && after.MixStarted != 0;
  reached.mix_errors += tick && model.ended && before.CurrentSong != after.CurrentSong;
  reached.changes += before.ActiveDeck != after.ActiveDeck;
  reached.ends += event.act == Act::Finished && before.MixTimer != 0 && after.MixTimer == 0;
  reached.errors += model.ended;
  reached.full_tables += after.PlayList.size() > 200;
  reached.unequal_lists += after.ListAux2.size() > after.PlayList.size();
  reached.negative_counts += after.SongCount < 0;
}

}  // namespace

std::optional<Difference> first_difference(const std::vector<Event>& events, Reached* reached) {
  Acting real;
  PanelModel model(real.panel.sound.files);
  model.look = look_at(real.panel);
  for (std::size_t i = 0; i < events.size(); ++i) {
    if (!real.possible(events[i])) continue;
    real.act(events[i]);
    const PanelLook before = reached != nullptr ? model.look : PanelLook{};
    act_on_model(model, events[i], real.saved_path());
    if (reached != nullptr) tally(*reached, events[i], before, model);
    std::string text = all_differences(model, real);
    if (text.empty()) text = real.compare_saved(model);
    if (!text.empty()) return Difference{i, text};
  }
  return {};
}

std::string shrunk_difference(std::vector<Event> events) {
  std::optional<Difference> difference = first_difference(events);
  if (!difference) return "no difference";
  events.resize(difference->event + 1);
  for (std::size_t i = events.size(); i-- > 0;) {
    std::vector<Event> fewer = events;
    fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
    const std::optional<Difference> still = first_difference(fewer);
    if (!still) continue;
    fewer.resize(still->event + 1);
    events = fewer;
    difference = still;
    i = std::min(i, events.size());
  }
  std::ostringstream out;
  for (const Event& event : events)
    out << event_text(event) << "   {" << static_cast<int>(event.act) << ", " << event.first << ", " << event.second
        << "}\n";
  out << difference->text;
  return out.str();
}

}  // namespace tandem::model
