/// \file
/// The options that say what is on a chart, and the document that they make: for the chart and for the sheet.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "cli/chartentries.h"
#include "cli/limitsoption.h"
#include "cli/pressureoption.h"
#include "cli/stream.h"
#include "cli/systemoption.h"
#include "cli/warning.h"
#include "model/document.h"

namespace moistair {

struct ChartDocumentOptions {
  std::string from;
  CLI::Option* fromOption = nullptr;
  ChartType type = ChartType::standard;
  CLI::Option* typeOption = nullptr;
  LimitsOption limits;
  PressureOption pressure;
  ExactOptions exact;
  SystemOptions system;
  std::map<const CLI::Option*, const EntryOption*> entries;
};

/// Adds --from, --type, --limits, what can be added to a chart, the air handler, the pressure, --exact and --strict.
void addChartDocument(CLI::App& command, ChartDocumentOptions& options);

/// A document and the file that it was read from, if it was.
struct ChartDocument {
  Document document;
  std::unique_ptr<Input> input;  ///< null for a new chart
};

/// A new chart, or what a file holds, on the limits and with the type that the options ask for.
ChartDocument begunDocument(const ChartDocumentOptions& options);

/// Adds what was asked for beyond that, in the order of the command line, draws it over what is there, reports what
/// the limits have left out, and warns of states that visibly miss something; a failure if that is to be one.
void completeDocument(ChartDocument& begun, const std::vector<LeftOut>& leftOut, ChartCanvas& canvas, WindowSize window,
                      const CLI::App& command, const ChartDocumentOptions& options);

/// "1366x768" [pixels].
struct PictureSize;
PictureSize pixelsOf(const std::string& text);

/// Picture pixels to the pixel. Bad usage for a kind of file that has no pixels, and for a picture that would have too
/// many or none.
double scaleOf(const std::string& text, bool pixels, double width, double height);

}  // namespace moistair
