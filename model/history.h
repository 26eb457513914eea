/// \file
/// Changes of a document, each of which can be taken back.
///
/// A `Change` says what comes in place of what. Carrying it out leaves in it what was there before, so carrying it out
/// again takes it back, and undo and redo are the same step. Nothing is copied: an entry lies either in the document
/// or in one change. `ChartCommands` records the changes that the commands of the chart make; those of the table of
/// entries are made by the functions below.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "model/document.h"

namespace moistair {

/// In place of `count` entries from `at` on come others. Of the rest of a document it holds what goes with it.
struct Change {
  std::string name;  ///< for the user: "Relative humidity line 50", "Clear chart"
  std::size_t at = 0;
  std::size_t count = 0;
  std::vector<Entry> entries;
  std::size_t background = 0;
  Pressure pressure;
  ChartState chartState;
  std::optional<TitleBlock> titleBlock;
  std::optional<WeatherLayer> weather;
  ZoneLayer zoneLayer;
  std::optional<std::vector<LeftOut>> previous;  ///< none where the entries of the previous chart stay as they are
};

inline constexpr const char* drawName = "Draw chart";
inline constexpr const char* clearName = "Clear chart";
inline constexpr const char* pressureName = "New pressure";

/// A change that adds an entry.
Change addition(const Document& document, Entry entry);

/// The canvas cleared for a new chart: all but the background picture goes. What goes here and below is then the
/// previous chart's, together with what could not be put on the chart that goes.
Change clearing(const Document& document);

/// A new chart in place of all but the background picture.
Change drawing(const Document& document, Entry chart);

/// Everything goes, the background picture too.
Change emptying(const Document& document);

/// Everything goes, and only the header line of a new pressure is shown.
Change pressureChange(const Document& document, const Pressure& pressure);

/// Entries deleted by their places in the list; a chart deleted is no longer current.
/// @param places in any order; those of the previous chart's entries follow on those of the entries
Change deletion(const Document& document, std::vector<std::size_t> places);

/// A point, or a stream of a mixture, under another identification.
/// @param part of a mixture its column: 0, 1 or 2, the mixed stream
Change renaming(const Document& document, std::size_t place, std::string identification, std::size_t part = 0);

/// A point put elsewhere: `moved` in its place, from `movedTo` (marks.h).
Change moving(const Document& document, std::size_t place, Entry moved);

/// An entry with another value for one that it was given, from `withGiven` (givenvalues.h).
Change editing(const Document& document, std::size_t place, Entry edited);

/// Entries in place of others, in one go.
/// @param entries each with its place in the list; at least one
Change exchanging(const Document& document, const std::vector<std::pair<std::size_t, Entry>>& entries,
                  std::string name);

/// Entries of the previous chart put on this one, and what of it is not.
Change takingOver(const Document& document, std::string name, std::vector<Entry> entries, std::vector<LeftOut> rest);

/// Another title block.
Change retitling(const Document& document, TitleBlock titleBlock);

/// Another layer of weather, or none.
Change reweathering(const Document& document, std::optional<WeatherLayer> weather);

/// Other zones.
Change rezoning(const Document& document, ZoneLayer zoneLayer);

/// Carries a change out and leaves in it the way back.
void carryOut(Change& change, Document& document);

/// A document with the changes that led to it.
class History {
public:
  History() = default;
  explicit History(Document document) : document_(std::move(document)) {}

  const Document& document() const { return document_; }

  /// The values of the document that belong to no change.
  CurrentValues& current() { return document_.current; }

  /// Carries a change out; what could be redone is gone. A chart drawn on the canvas that was cleared for it is one
  /// change with that clearing.
  void carryOut(Change change);

  /// Makes everything on the chart the background picture. No step of its own, since nothing is seen of it: it goes
  /// with the change before.
  void keepPicture();

  /// Name of what the next undo or redo concerns; empty if there is none.
  const std::string& undoName() const;
  const std::string& redoName() const;

  void undo();  ///< nothing if there is none
  void redo();

  /// Whether the document differs from what was last marked as saved; a new one does not.
  bool changed() const { return saved_ != done_; }
  void markSaved() { saved_ = done_; }
  /// An opened document that was not written so, as one recovered after a crash.
  void markUnsaved() { saved_ = std::nullopt; }

private:
  bool joinsLast(const Change& change) const;
  void forgetRedo();

  Document document_;
  std::vector<Change> changes_;
  std::size_t done_ = 0;  ///< so many of the changes are carried out
  std::optional<std::size_t> saved_ = 0;
};

}  // namespace moistair
