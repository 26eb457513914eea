/// \file
/// What is on the chart, as data.
///
/// The canvas shows what was drawn; a `Document` says what was done to it: the list of charts, lines, points and
/// mixtures on it, in their order, each as a plain value with the limits and the pressure that it was drawn with. It is
/// the only state of a chart: what tests, draws or shows it reads from here.
/// Drawn by `draw` on a canvas of the window's size it gives, operation for operation, what the commands drew one by
/// one; on any other size it is laid out again. The size itself is no part of it. What a command refuses never enters a
/// document, and what the canvas loses leaves it.
///
/// The main window changes its document through `ChartCommands` (chartcommands.h), the headless tool builds one from
/// its options, files hold one as text (documentfile.h).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "chart/drawchart.h"
#include "chart/drawing.h"
#include "chart/propertylines.h"
#include "chart/readingmark.h"
#include "comfort/zone.h"
#include "engine/mixingproblem.h"
#include "engine/pressureunits.h"
#include "model/weatherlayer.h"
#include "text/numbertext.h"

namespace moistair {

/// What an entry was drawn with. The current pressure can differ from the one that the chart's header states, the
/// limits in the lists from those of the chart.
struct Setting {
  ChartLimits limits;
  Pressure pressure;

  bool operator==(const Setting&) const = default;
};

/// The line that states the pressure, alone: what is shown after start-up and after a change of pressure.
struct HeaderLine {
  bool operator==(const HeaderLine&) const = default;
};

struct DrawnChart {
  ChartType type = ChartType::standard;

  bool operator==(const DrawnChart&) const = default;
};

/// A line by value, as typed: a text that is no number counts as 0.
struct PropertyLine {
  LineKind kind = LineKind::relativeHumidity;
  std::string value;

  bool operator==(const PropertyLine&) const = default;
};

struct TypedProperty {
  PropertyKind kind = PropertyKind::db;
  std::string value;  ///< as typed

  bool operator==(const TypedProperty&) const = default;
};

/// A point as it was marked: its state is what the report showed, rounded as shown there.
struct MarkedPoint {
  std::array<TypedProperty, 2> given;
  StatePoint state;
  std::string identification;  ///< as typed, which may be empty
  bool exact = false;          ///< whether the state is the exact one in place of what the search finds

  bool operator==(const MarkedPoint&) const = default;
};

/// A mixing line with its points: the columns of the mixing window as they stood.
struct MixingLine {
  std::vector<AirStream> columns;      ///< stream 1, stream 2 and the mixed stream
  std::array<std::string, 3> names{};  ///< that the user gave them, which may be empty

  bool operator==(const MixingLine&) const = default;
};

/// A reading kept on the chart, as a report would show it.
struct PinnedReading {
  StatePoint state;
  LabelCorner corner = LabelCorner::upperLeft;  ///< where its label is

  bool operator==(const PinnedReading&) const = default;
};

/// A system of air-handling processes: its steps and goals as typed, a line each (airhandler.h). Draws nothing by
/// itself.
struct AirHandler {
  std::vector<std::string> lines;

  bool operator==(const AirHandler&) const = default;
};

using Content = std::variant<HeaderLine, DrawnChart, PropertyLine, MarkedPoint, MixingLine, PinnedReading, AirHandler>;

struct Entry {
  Setting setting;
  Content content;

  bool operator==(const Entry&) const = default;
};

/// An entry that is not on the chart.
struct LeftOut {
  Entry entry;         ///< with the setting of the chart that it was on
  std::string reason;  ///< in the words for the user; empty while nobody has tried to put it on this chart

  bool operator==(const LeftOut&) const = default;
};

/// Zones under the lines of a sheet and over the drawing of a window.
struct ZoneLayer {
  std::vector<Zone> zones;
  bool shown = true;

  bool operator==(const ZoneLayer&) const = default;
};

/// What the title block of a sheet says of its author and its subject.
struct TitleBlock {
  std::string title, project, drawnBy;

  bool operator==(const TitleBlock&) const = default;
};

/// Which chart is current, and its scales: what a later line, point or chart is tested by.
struct ChartState {
  DrawnLimits drawn;
  PlotFrame frame;
};

/// What the next command works with. It outlives every entry: no change takes it back, and no file holds it.
struct CurrentValues {
  NumberText pressure;  ///< current pressure [in Hg]; what every calculation reads, leniently
  ChartLimits limits;   ///< in the lists as last read; a text that is no number has left its limit as it was
  ChartType chartType = ChartType::standard;  ///< as last chosen
};

/// A new chart, a clearing and a new pressure take what was on the chart off it. That stays in the document as
/// `previous`, inactive, until it is put on the new chart (carryover.h), deleted, or replaced by what a later chart
/// held.
///
/// The current pressure, the pressure as entered, the drawn limits, the frame, the chart type and the background are
/// values of their own: none follows from another, since the pressure window, the lists and the chart type window each
/// set one and leave the rest.
struct Document {
  std::vector<Entry> entries;              ///< in the order in which they lie over each other
  std::vector<LeftOut> previous{};         ///< entries of the previous chart that are not on this one
  std::size_t background = 0;              ///< so many of the entries, from the first, are in the background picture
  Pressure pressure;                       ///< last set, not necessarily that of any entry
  ChartState chartState;                   ///< the current chart, which decides what may be added
  std::optional<TitleBlock> titleBlock{};  ///< none before anything was entered
  std::optional<WeatherLayer> weather{};   ///< a layer on the current chart
  ZoneLayer zoneLayer{};
  CurrentValues current{};

  /// The current pressure [in Hg].
  double atm() const { return current.pressure.lenient(); }
  /// With which the next entry is drawn.
  Setting setting() const { return {current.limits, {pressure.entry, atm()}}; }
};

/// Draws one entry over what is on the canvas and returns nullptr, or draws nothing and returns the message with which
/// a command refuses it: a line, a point or a mixture outside its limits.
const char* draw(const Entry& entry, ChartCanvas& canvas, WindowSize window);

/// Clears the canvas and draws all of a document, its background picture kept as such.
void draw(const Document& document, ChartCanvas& canvas, WindowSize window);

/// The same, and takes out of the document what draws nothing with its limits and its pressure. Returns what it took.
std::vector<LeftOut> drawFitting(Document& document, ChartCanvas& canvas, WindowSize window);

/// Takes the same out without drawing the rest, for who draws in another way.
std::vector<LeftOut> leaveOut(Document& document, WindowSize window);

/// All of a document as a list of operations.
Drawing drawingOf(const Document& document, WindowSize window);

/// Whether the limits as last read from the lists are those of the chart on the canvas.
bool hasCurrentChart(const Document& document);

/// The limits of the current chart; none before the first and after a clearing.
std::optional<ChartLimits> currentLimits(const Document& document);

/// How many entries of the previous chart nobody has tried to put on this one; 0 while there is no chart.
std::size_t untriedCount(const Document& document);

/// The last chart in the list; null if there is none.
const Entry* lastChart(const Document& document);

/// All of a document on a chart with other limits. What lies outside them is still in it, and draws nothing.
void changeLimits(Document& document, const ChartLimits& limits);

/// A document after a change of pressure: the header line alone.
Document newDocument(const Pressure& pressure);

/// The state once a chart with these limits has been drawn.
ChartState chartStateOf(const ChartLimits& limits);

/// "Relative humidity line", as the user reads it.
const char* captionOf(LineKind kind);

/// An entry in a few words: "Relative humidity line 50", "Point A", "Mixture".
std::string captionOf(const Entry& entry);

}  // namespace moistair
