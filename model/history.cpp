#include "model/history.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "model/airhandler.h"

namespace moistair {

namespace {

/// A change that changes nothing yet.
Change noChange(const Document& document, std::string name) {
  Change change;
  change.name = std::move(name);
  change.at = document.entries.size();
  change.background = document.background;
  change.pressure = document.pressure;
  change.chartState = document.chartState;
  change.titleBlock = document.titleBlock;
  change.weather = document.weather;
  change.zoneLayer = document.zoneLayer;
  return change;
}

bool isChart(const Entry& entry) { return std::holds_alternative<DrawnChart>(entry.content); }

/// Whether it can be put on another chart.
bool isLasting(const Entry& entry) { return !isChart(entry) && !std::holds_alternative<HeaderLine>(entry.content); }

/// Entries of the previous chart once all from a place on is taken off this one. What could not be put on this one
/// belongs to it; what nobody has tried to put on it is given up for entries of its own, and else waits for the next.
std::vector<LeftOut> previousAfter(const Document& document, std::size_t from) {
  std::vector<LeftOut> removed;
  for (std::size_t i = from; i < document.entries.size(); ++i) {
    if (isLasting(document.entries[i])) removed.push_back({document.entries[i], {}});
  }
  std::vector<LeftOut> previous;
  for (const LeftOut& left : document.previous) {
    if (removed.empty() || !left.reason.empty()) previous.push_back({left.entry, {}});
  }
  previous.insert(previous.end(), std::make_move_iterator(removed.begin()), std::make_move_iterator(removed.end()));
  return previous;
}

/// Everything from a place on is removed.
Change removal(const Document& document, std::string name, std::size_t from) {
  Change change = noChange(document, std::move(name));
  change.at = from;
  change.count = document.entries.size() - from;
  if (auto previous = previousAfter(document, from); previous != document.previous) {
    change.previous = std::move(previous);
  }
  return change;
}

/// One entry in place of another.
Change replacement(const Document& document, std::string name, std::size_t place, Entry entry) {
  Change change = noChange(document, std::move(name));
  change.at = place;
  change.count = 1;
  change.entries.push_back(std::move(entry));
  return change;
}

const Entry& entryAt(const Document& document, std::size_t place) {
  const std::size_t active = document.entries.size();
  return place < active ? document.entries[place] : document.previous[place - active].entry;
}

std::string deletionName(const Document& document, const std::vector<std::size_t>& places) {
  if (places.size() != 1) return "Delete " + std::to_string(places.size()) + " entries";
  return "Delete " + captionOf(entryAt(document, places.front()));
}

/// Without those at some places, which count from the first of the entries.
std::vector<LeftOut> previousWithout(const Document& document, const std::vector<std::size_t>& places) {
  std::vector<LeftOut> previous;
  for (std::size_t i = 0; i < document.previous.size(); ++i) {
    const bool stays = !std::binary_search(places.begin(), places.end(), document.entries.size() + i);
    if (stays) previous.push_back(document.previous[i]);
  }
  return previous;
}

}  // namespace

Change addition(const Document& document, Entry entry) {
  Change change = noChange(document, captionOf(entry));
  change.entries.push_back(std::move(entry));
  return change;
}

Change takingOver(const Document& document, std::string name, std::vector<Entry> entries, std::vector<LeftOut> rest) {
  Change change = noChange(document, std::move(name));
  change.entries = std::move(entries);
  change.previous = std::move(rest);
  return change;
}

Change reweathering(const Document& document, std::optional<WeatherLayer> weather) {
  Change change = noChange(document, "Weather");
  change.weather = std::move(weather);
  return change;
}

Change retitling(const Document& document, TitleBlock titleBlock) {
  Change change = noChange(document, "Title block");
  change.titleBlock = std::move(titleBlock);
  return change;
}

Change rezoning(const Document& document, ZoneLayer zoneLayer) {
  Change change = noChange(document, "Comfort and envelopes");
  change.zoneLayer = std::move(zoneLayer);
  return change;
}

Change clearing(const Document& document) { return removal(document, drawName, document.background); }

Change drawing(const Document& document, Entry chart) {
  Change change = clearing(document);
  change.chartState = chartStateOf(chart.setting.limits);
  change.entries.push_back(std::move(chart));
  return change;
}

Change emptying(const Document& document) {
  Change change = removal(document, clearName, 0);
  change.background = 0;
  forgetLimits(change.chartState.drawn);
  return change;
}

Change pressureChange(const Document& document, const Pressure& pressure) {
  Change change = emptying(document);
  change.name = pressureName;
  change.entries = newDocument(pressure).entries;
  change.pressure = pressure;
  return change;
}

Change deletion(const Document& document, std::vector<std::size_t> places) {
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  Change change = noChange(document, deletionName(document, places));
  const auto active = std::lower_bound(places.begin(), places.end(), document.entries.size());
  if (active != places.end()) change.previous = previousWithout(document, places);
  places.erase(active, places.end());
  if (places.empty()) return change;
  change.at = places.front();
  change.count = places.back() - places.front() + 1;
  for (std::size_t i = change.at; i < change.at + change.count; ++i) {
    const bool stays = !std::binary_search(places.begin(), places.end(), i);
    if (stays) change.entries.push_back(document.entries[i]);
  }
  change.background -=
      static_cast<std::size_t>(std::lower_bound(places.begin(), places.end(), document.background) - places.begin());
  const Entry* last = lastChart(document);
  const auto deleted = [&](std::size_t place) { return &document.entries[place] == last; };
  if (std::any_of(places.begin(), places.end(), deleted)) forgetLimits(change.chartState.drawn);
  return change;
}

Change renaming(const Document& document, std::size_t place, std::string identification, std::size_t part) {
  Entry entry = document.entries[place];
  const std::string name = "Rename " + captionOf(entry);
  std::optional<Entry> follower;
  if (auto* mixture = std::get_if<MixingLine>(&entry.content)) {
    mixture->names.at(part) = std::move(identification);
  } else {
    follower = followedRenaming(document, place, identification);
    std::get<MarkedPoint>(entry.content).identification = std::move(identification);
  }
  if (!follower) return replacement(document, name, place, std::move(entry));
  return exchanging(document, {{place, std::move(entry)}, {*airHandlerPlace(document), std::move(*follower)}}, name);
}

Change moving(const Document& document, std::size_t place, Entry moved) {
  const std::string name = "Move " + captionOf(moved);
  return replacement(document, name, place, std::move(moved));
}

Change editing(const Document& document, std::size_t place, Entry edited) {
  const std::string name = "Change " + captionOf(document.entries[place]);
  return replacement(document, name, place, std::move(edited));
}

Change exchanging(const Document& document, const std::vector<std::pair<std::size_t, Entry>>& entries,
                  std::string name) {
  const auto [first, last] = std::minmax_element(
      entries.begin(), entries.end(), [](const auto& one, const auto& other) { return one.first < other.first; });
  Change change = noChange(document, std::move(name));
  change.at = first->first;
  change.count = last->first - first->first + 1;
  const auto from = document.entries.begin() + static_cast<std::ptrdiff_t>(change.at);
  change.entries.assign(from, from + static_cast<std::ptrdiff_t>(change.count));
  for (const auto& [place, entry] : entries) change.entries[place - change.at] = entry;
  return change;
}

void carryOut(Change& change, Document& document) {
  std::vector<Entry>& entries = document.entries;
  const auto first = entries.begin() + static_cast<std::ptrdiff_t>(change.at);
  const auto last = first + static_cast<std::ptrdiff_t>(change.count);
  std::vector<Entry> removed(std::make_move_iterator(first), std::make_move_iterator(last));
  const std::size_t count = change.entries.size();
  const auto gap = entries.erase(first, last);
  entries.insert(gap, std::make_move_iterator(change.entries.begin()), std::make_move_iterator(change.entries.end()));
  change.count = count;
  change.entries = std::move(removed);
  std::swap(change.background, document.background);
  std::swap(change.pressure, document.pressure);
  std::swap(change.chartState, document.chartState);
  std::swap(change.titleBlock, document.titleBlock);
  std::swap(change.weather, document.weather);
  std::swap(change.zoneLayer, document.zoneLayer);
  if (change.previous) std::swap(*change.previous, document.previous);
}

void History::carryOut(Change change) {
  forgetRedo();
  const bool joins = joinsLast(change);
  moistair::carryOut(change, document_);
  if (joins) {
    Change& last = changes_.back();
    last.count += change.count;
    if (!last.previous) last.previous = std::move(change.previous);
    if (saved_ == done_) saved_ = std::nullopt;
    return;
  }
  changes_.push_back(std::move(change));
  ++done_;
}

/// Whether it is the second half of drawing a chart, right behind the first.
bool History::joinsLast(const Change& change) const {
  if (changes_.empty() || change.name != drawName || change.count > 0) return false;
  const Change& last = changes_.back();
  return last.name == drawName && last.count == 0 && last.at == change.at;
}

void History::forgetRedo() {
  changes_.resize(done_);
  if (saved_ > done_) saved_ = std::nullopt;
}

void History::keepPicture() {
  if (document_.background == document_.entries.size()) return;
  forgetRedo();
  document_.background = document_.entries.size();
  saved_ = std::nullopt;
}

const std::string& History::undoName() const {
  static const std::string none;
  return done_ > 0 ? changes_[done_ - 1].name : none;
}

const std::string& History::redoName() const {
  static const std::string none;
  return done_ < changes_.size() ? changes_[done_].name : none;
}

void History::undo() {
  if (done_ > 0) moistair::carryOut(changes_[--done_], document_);
}

void History::redo() {
  if (done_ < changes_.size()) moistair::carryOut(changes_[done_++], document_);
}

}  // namespace moistair
