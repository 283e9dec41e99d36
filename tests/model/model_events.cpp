#include "model/model_events.h"

#include <limits>

namespace tandem::model {

namespace {

constexpr std::int32_t kEnd = std::numeric_limits<std::int32_t>::max();

struct Chance {
  Act act;
  int weight;
};

// How often each act comes: mostly those that decide what sounds.
constexpr Chance kTransport[] = {
    {Act::Play, 8},        {Act::Pause, 1},     {Act::Stop, 2},        {Act::Next, 8},         {Act::Up, 5},
    {Act::Down, 5},        {Act::Tick, 24},     {Act::Finished, 12},   {Act::Select, 9},       {Act::Double, 5},
    {Act::Position, 16},   {Act::Add, 8},       {Act::AddMany, 3},     {Act::Drop, 1},         {Act::Cancel, 1},
    {Act::Open, 2},        {Act::OpenSaved, 2}, {Act::OpenMissing, 1}, {Act::Save, 2},         {Act::Resync, 5},
    {Act::Wait, 12},       {Act::Refresh, 5},   {Act::Lead, 3},        {Act::BufferSwitch, 1}, {Act::DelayOver, 1},
    {Act::DeviceLost, 1},  {Act::SeekPress, 2}, {Act::SeekMove, 2},    {Act::SeekRelease, 2},  {Act::PitchMove, 1},
    {Act::ShowPlayList, 1}};

using Random = std::mt19937_64;

std::int32_t below(Random& random, std::int32_t limit) {
  return static_cast<std::int32_t>(random() % static_cast<std::uint64_t>(limit));
}

Act random_act(Random& random) {
  if (below(random, 6) == 0) return static_cast<Act>(below(random, static_cast<std::int32_t>(Act::Count)));
  int sum = 0;
  for (const Chance& chance : kTransport) sum += chance.weight;
  int left = below(random, sum);
  for (const Chance& chance : kTransport) {
    left -= chance.weight;
    if (left < 0) return chance.act;
  }
  return Act::Tick;
}

// Near a mix point, at the ends, or anywhere.
std::int32_t random_position(Random& random, std::int32_t song) {
  constexpr std::array<std::int32_t, 4> kLeads{280, 1000, 2500, 3500};
  const std::int32_t length = pool_song(song + below(random, 4)).length;
  switch (below(random, 6)) {
    case 0:
      return below(random, 3) - 1;
    case 1:
      return kEnd;
    case 2:
      return below(random, length + 1);
    default:
      return length - kLeads.at(static_cast<std::size_t>(below(random, 4))) + below(random, 3) - 1;
  }
}

Event random_event(Random& random, std::int32_t song) {
  const Act act = random_act(random);
  switch (act) {
    case Act::Position:
      return {act, below(random, 2), random_position(random, song)};
    case Act::Add:
      return {act, below(random, 5) == 0 ? below(random, 99) : song + below(random, 4)};
    case Act::AddMany:
    case Act::Drop:
    case Act::Open:
      return {act, song + below(random, 4), below(random, 100) == 0 ? 199 + below(random, 6) : below(random, 6)};
    case Act::Wait:
      return {act, below(random, 3) == 0 ? below(random, 300) : below(random, 30)};
    case Act::PitchMove:
      return {act, below(random, 45) - 22};
    case Act::SeekMove:
      return {act, random_position(random, song)};
    case Act::Volume:
      return {act, below(random, 33000)};
    case Act::SpinnerMove:
      return {act, below(random, 8), below(random, 100) - 5};
    default:
      return {act, below(random, 240), below(random, 40) - 20};
  }
}

// A few songs, or about as many as the table holds with the selection near its end.
std::vector<Event> random_start(Random& random, std::int32_t song) {
  std::vector<Event> events;
  if (below(random, 30) == 0) {
    events.push_back({Act::Open, song, 195 + below(random, 8)});
    events.push_back({Act::AddMany, song, below(random, 6)});
    events.push_back({Act::Select, 190 + below(random, 15)});
    if (below(random, 2) == 0) events.push_back({Act::Play});
  } else {
    for (std::int32_t i = below(random, 6); i > 0; --i) events.push_back({Act::Add, song + below(random, 4)});
  }
  return events;
}

}  // namespace

std::vector<Event> random_events(std::uint64_t seed) {
  Random random(seed);
  const std::int32_t song = below(random, 99);
  std::vector<Event> events = random_start(random, song);
  while (events.size() < 42) events.push_back(random_event(random, song));
  return events;
}

}  // namespace tandem::model
