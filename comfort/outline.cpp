// The outline of a zone is walked along one coordinate, of which each place has one range of the other.
#include <algorithm>
#include <functional>

#include "comfort/zonerange.h"

namespace moistair {

namespace {

using RangeAt = std::function<LimitedRange(double)>;

/// A place on the way and the range there; its ends may be corners.
struct Crosscut {
  double at;
  LimitedRange range;
  bool cornerLow = false, cornerHigh = false;
};

using Walk = std::vector<Crosscut>;  ///< one piece of a zone

bool sameLimits(const LimitedRange& one, const LimitedRange& other) {
  return one.empty() == other.empty() && (one.empty() || (one.lowBy == other.lowBy && one.highBy == other.highBy));
}

class Walker {
public:
  Walker(RangeAt rangeAt, int each) : rangeAt_(std::move(rangeAt)), each_(each) {}

  std::vector<Walk> walk(double from, double to, int steps) {
    if (!(from <= to)) return {};
    Crosscut before = cut(from);
    if (!before.range.empty()) begin(before);
    for (int i = 1; i <= steps; ++i) {
      const Crosscut next = cut(i == steps ? to : from + (to - from) * i / steps);
      advance(before, next);
      if (!next.range.empty() && (i % each_ == 0 || i == steps)) walks_.back().push_back(next);
      before = next;
    }
    if (!before.range.empty()) end();
    return std::move(walks_);
  }

private:
  Crosscut cut(double at) const { return {at, rangeAt_(at)}; }

  void begin(const Crosscut& first) {
    walks_.emplace_back();
    walks_.back().push_back(first);
    walks_.back().back().cornerLow = walks_.back().back().cornerHigh = true;
  }
  void end() { walks_.back().back().cornerLow = walks_.back().back().cornerHigh = true; }

  /// The two neighbors between which the limits first differ from those of `low`.
  std::pair<Crosscut, Crosscut> change(Crosscut low, Crosscut high) const {
    const LimitedRange first = low.range;
    for (int step = 0; step < 48; ++step) {
      const Crosscut middle = cut((low.at + high.at) / 2);
      (sameLimits(first, middle.range) ? low : high) = middle;
    }
    return {low, high};
  }

  /// Adds every corner between two places. Limits change a few times at most within one step.
  void advance(Crosscut before, const Crosscut& next) {
    for (int count = 0; count < 8 && !sameLimits(before.range, next.range); ++count) {
      auto [last, first] = change(before, next);
      if (last.range.empty()) {
        begin(first);
      } else if (first.range.empty()) {
        walks_.back().push_back(last);
        end();
      } else {
        first.cornerLow = first.range.lowBy != last.range.lowBy;
        first.cornerHigh = first.range.highBy != last.range.highBy;
        walks_.back().push_back(first);
      }
      before = first;
    }
    if (before.range.empty() && !next.range.empty()) begin(next);
    if (!before.range.empty() && next.range.empty()) end();
  }

  RangeAt rangeAt_;
  int each_;  ///< one of so many places becomes part of the outline
  std::vector<Walk> walks_;
};

void add(Outline& outline, const OutlinePoint& point) {
  constexpr double sameDb = 1e-9;
  constexpr double sameW = 1e-13;
  const auto same = [&](const OutlinePoint& other) {
    return std::abs(other.db - point.db) < sameDb && std::abs(other.w - point.w) < sameW;
  };
  if (!outline.empty() && same(outline.back())) {
    outline.back().corner |= point.corner;
  } else if (outline.empty() || !same(outline.front())) {
    outline.push_back(point);
  }
}

/// Humidity ratios over dry bulbs: along the lower side to the right, and back along the upper.
Outline overDryBulbs(const Walk& walk) {
  Outline outline;
  for (const Crosscut& cut : walk) add(outline, {cut.at, cut.range.low, cut.cornerLow});
  for (auto cut = walk.rbegin(); cut != walk.rend(); ++cut) add(outline, {cut->at, cut->range.high, cut->cornerHigh});
  return outline;
}

/// Dry bulbs over humidity ratios: up along the warm side, and back along the cold.
Outline overRatios(const Walk& walk) {
  Outline outline;
  add(outline, {walk.front().range.low, walk.front().at, true});
  for (const Crosscut& cut : walk) add(outline, {cut.range.high, cut.at, cut.cornerHigh});
  for (auto cut = walk.rbegin(); cut != walk.rend(); ++cut) add(outline, {cut->range.low, cut->at, cut->cornerLow});
  return outline;
}

std::vector<Outline> outlines(std::vector<Walk> walks, Outline (*outlineOf)(const Walk&)) {
  std::vector<Outline> all;
  for (const Walk& walk : walks) {
    Outline outline = outlineOf(walk);
    if (outline.size() > 2) all.push_back(std::move(outline));
  }
  return all;
}

std::vector<Outline> outlinesOfPeople(const auto& zone, const ZoneWindow& window, double top, int steps, double atm) {
  const RangeAt dryBulbs = [&](double w) {
    LimitedRange range = dryBulbsWithin(zone, w, atm);
    range.raiseLow(window.lowDb, limitedBy::window);
    range.lowerHigh(window.highDb, limitedBy::window);
    return range;
  };
  const double high = std::min(window.highW, top);
  return outlines(Walker(dryBulbs, 1).walk(std::max(window.lowW, 0.0), high, steps), overRatios);
}

}  // namespace

std::vector<Outline> outlinesOf(const Zone& zone, const ZoneWindow& window, double atm) {
  if (!checkZone(zone) || !(atm > 0)) return {};
  const double top = topRatio(zone, atm);
  if (const auto* comfort = std::get_if<ComfortZone>(&zone)) return outlinesOfPeople(*comfort, window, top, 24, atm);
  if (const auto* band = std::get_if<AdaptiveZone>(&zone)) return outlinesOfPeople(*band, window, top, 120, atm);
  const auto& envelope = std::get<Envelope>(zone);
  const RangeAt ratios = [&](double db) {
    LimitedRange range = ratiosWithin(envelope, db, atm);
    range.raiseLow(window.lowW, limitedBy::window);
    range.lowerHigh(window.highW, limitedBy::window);
    return range;
  };
  const PropertyLimits dryBulbs = dryBulbsOf(envelope, atm);
  const double from = std::max(window.lowDb, dryBulbs.low);
  const double to = std::min(window.highDb, dryBulbs.high);
  return outlines(Walker(ratios, 16).walk(from, to, 1024), overDryBulbs);
}

}  // namespace moistair
