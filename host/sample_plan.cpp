// The street plan: uneven blocks, three waves that bend them, and a river that the streets beside it follow.
#include "sample_plan.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

enum Salt : uint64_t { kWidth = 1, kDepth, kWave, kJitterX, kJitterY, kBridge, kWinding, kSwing, kPace, kPhase };

constexpr double kRiverWidth = 260, kTurn = 6.283185307179586;

constexpr const char* kWords[] = {
    "Maple",  "Oak",     "Cedar",    "Elm",     "Walnut",  "Chestnut", "Birch",   "Willow", "Poplar",  "Spruce",
    "Aspen",  "Laurel",  "Hickory",  "Juniper", "Linden",  "Magnolia", "Church",  "Mill",   "Market",  "Bridge",
    "Spring", "Park",    "Lake",     "Hill",    "Valley",  "Meadow",   "Orchard", "Garden", "Forest",  "Prairie",
    "Quarry", "Harbor",  "Ferry",    "Canal",   "Foundry", "Depot",    "Station", "School", "College", "Court",
    "Union",  "Liberty", "Franklin", "Madison", "Monroe",  "Jackson",  "Lincoln", "Grant",  "Adams",   "Clinton",
    "Warren", "Putnam",  "Marion",   "Hancock", "Sherman", "Douglas",  "Clark",   "Lewis",  "Perry",   "Porter",
    "Fulton", "Morse",   "Hudson",   "Carter",  "Fisher",  "Mason"};
constexpr int kWordCount = static_cast<int>(std::size(kWords));
constexpr const char* kStreetKinds[] = {"St", "Rd", "Ln", "Dr", "Way"};
constexpr const char* kAvenueKinds[] = {"Ave", "Blvd", "Ter", "Pl", "Trl"};
constexpr const char* kSides[] = {"", "N ", "S ", "E ", "W "};

/** Words first, then their kinds, then the sides: 1,650 names that differ, each at most 15 characters. */
std::string nameOf(int line, int shift, const char* const (&kinds)[5]) {
  const int n = std::max(line, 0);
  // Kinds change from street to street; a word comes back only after all of them were used.
  const int word = (n * 7 + shift) % kWordCount, round = n / kWordCount;
  return std::string(kSides[round / 5 % 5]) + kWords[word] + " " + kinds[(round + n) % 5];
}

/** Edges of blocks whose sizes differ, around 0. */
std::vector<double> edges(const Random& random, int count, double low, double high, uint64_t salt) {
  std::vector<double> at(static_cast<size_t>(count));
  for (size_t i = 1; i < at.size(); i++) at[i] = at[i - 1] + random.between(low, high, salt, static_cast<int64_t>(i));
  const double middle = at.back() / 2;
  for (double& x : at) x -= middle;
  return at;
}

/** A line between two of the edges, or beyond them at the pace of the block beside. */
double along(const std::vector<double>& at, double line) {
  const auto last = static_cast<double>(at.size() - 2);
  const double low = std::clamp(std::floor(line), 0.0, last);
  const auto i = static_cast<size_t>(low);
  return at[i] + (at[i + 1] - at[i]) * (line - low);
}

/** How far a line winds to the side at a place along it; `line` is odd for streets and even for avenues. */
double winding(const Random& random, int64_t line, double along) {
  if (!random.chance(0.3, kWinding, line)) return 0;
  return random.between(12, 26, kSwing, line) *
         std::sin(along / random.between(110, 190, kPace, line) + random.between(0, kTurn, kPhase, line));
}

}  // namespace

Plan::Plan(int size, uint64_t seed) : random_(seed), size_(size) {
  xs_ = edges(random_, size, 240, 430, kWidth);
  ys_ = edges(random_, size, 210, 360, kDepth);
  for (int i = 0; i < 6; i++) phase_[i] = random_.between(0, kTurn, kWave, i);
  // South of the middle, and never beside an arterial.
  river_ = size * 2 / 5 / kArterial * kArterial + kFirstArterial + 2;
  const int arterials = (size - kFirstArterial + kArterial - 1) / kArterial;
  ringFirst_ = kFirstArterial + kArterial * (arterials / 5);
  ringLast_ = kFirstArterial + kArterial * std::max(arterials - 1 - arterials / 5, arterials / 5 + 1);
}

bool Plan::bridge(int avenue) const {
  if (!arterial(avenue)) return false;
  return avenue == ringFirst_ || avenue == ringLast_ || random_.chance(0.4, kBridge, avenue);
}

bool Plan::inTown(int u, int v) const {
  if (u < 0 || v < 0 || u >= size_ || v >= size_) return false;
  if (onRing(u, v)) return true;
  const double half = 0.5 * (size_ - 1);
  const double x = (u - half) / half, y = (v - half) / half;
  const double angle = std::atan2(y, x);
  return std::hypot(x, y) < 1.02 + 0.07 * std::sin(2 * angle + phase_[0]) + 0.06 * std::sin(5 * angle + phase_[1]);
}

bool Plan::onRing(int u, int v) const {
  const auto within = [this](int line) { return line >= ringFirst_ && line <= ringLast_; };
  const auto at = [this](int line) { return line == ringFirst_ || line == ringLast_; };
  return (at(u) && within(v)) || (at(v) && within(u));
}

double Plan::riverAt(double x) const {
  return 240 * std::sin(x / 1700 + phase_[2]) + 130 * std::sin(x / 740 + phase_[3]);
}

Point Plan::at(double u, double v) const {
  const double x = along(xs_, u), y = along(ys_, v);
  // Streets beside the river run along it, those away from it do so less and less.
  const double bank = (along(ys_, river_) + along(ys_, river_ + 1)) / 2, away = (y - bank) / 1500;
  double shift = riverAt(x) * std::exp(-away * away);
  // The banks stand apart by the width of the river, and the crossing between them is the bridge.
  shift += kRiverWidth * (std::clamp(v - river_, 0.0, 1.0) - 0.5);
  const double waveX = 90 * std::sin(y / 1450 + phase_[4]), waveY = 70 * std::sin(x / 1150 + phase_[5]);
  // Each crossing stands a little off; between two of them a street is off by their mean.
  const double fu = std::floor(u), fv = std::floor(v), a = u - fu, b = v - fv;
  const auto jitter = [&](uint64_t salt) {
    const auto corner = [&](int i, int j) {
      return random_.between(-22, 22, salt, static_cast<int64_t>(fu) + i, static_cast<int64_t>(fv) + j);
    };
    return (1 - a) * (1 - b) * corner(0, 0) + a * (1 - b) * corner(1, 0) + (1 - a) * b * corner(0, 1) +
           a * b * corner(1, 1);
  };
  // Some streets wind; what lies between two of them follows both.
  const auto iu = static_cast<int64_t>(fu), iv = static_cast<int64_t>(fv);
  const double besideX = (1 - a) * winding(random_, 2 * iu, y) + a * winding(random_, 2 * iu + 2, y);
  const double besideY = (1 - b) * winding(random_, 2 * iv + 1, x) + b * winding(random_, 2 * iv + 3, x);
  return {500000 + x + waveX + besideX + jitter(kJitterX), 200000 + y + waveY + shift + besideY + jitter(kJitterY)};
}

double Plan::elevation(const Point& p) const {
  const double x = p.x - 500000, y = p.y - 200000;
  return 620 + 25 * std::sin(x / 2600 + phase_[0]) + 18 * std::sin(y / 2100 + phase_[1]);
}

std::string Plan::street(int v) const { return nameOf(v, 17, kStreetKinds); }
std::string Plan::avenue(int u) const { return nameOf(u, 41, kAvenueKinds); }

}  // namespace host
