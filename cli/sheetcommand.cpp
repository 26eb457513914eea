/// \file
/// `moistair-cli sheet -o report.pdf`: a chart laid out for print, with everything on it, its states in a table and a
/// title block.
#include <CLI/CLI.hpp>
#include <ctime>
#include <future>
#include <memory>
#include <string>

#include "chart/drawing.h"
#include "cli/chartdocument.h"
#include "cli/command.h"
#include "cli/fault.h"
#include "cli/picture.h"
#include "cli/properties.h"
#include "cli/sheetoptions.h"
#include "cli/zoneoptions.h"
#include "process/systemtables.h"
#include "sheet/content.h"
#include "sheet/options.h"
#include "text/utf8.h"

namespace moistair {

namespace {

constexpr double pixelsPerPoint = pixelsPerInch / 72;

std::string today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &local)};
}

SheetOptions sheetOf(const SheetCommandOptions& options) {
  SheetOptions sheet = options.sheet;
  const auto page = pageNamed(options.size.empty() ? options.page : options.size, options.portrait);
  if (!page) throw badUsage("a page is letter, a4, tabloid, a3, or " + sizeInWords());
  sheet.page = *page;
  if (!options.letterSize.empty()) sheet.letterSize = numberOf(options.letterSize, "font size") * pixelsPerPoint;
  if (!options.letterSize.empty() && !(sheet.letterSize >= leastLetters && sheet.letterSize <= mostLetters)) {
    throw badUsage("font size must be from 3.75 to 30 points");
  }
  for (const std::string* text : {&sheet.title, &sheet.project, &sheet.drawnBy, &sheet.date}) {
    if (!isUtf8(*text)) throw badUsage("texts must be in UTF-8");
  }
  if (sheet.date.empty()) sheet.date = today();
  sheet.program = std::string("Moistair ") + MOISTAIR_VERSION;
  return sheet;
}

/// What the document's own title block says, where no option says otherwise.
void takeTitles(SheetOptions& sheet, const std::optional<TitleBlock>& block, const CLI::App& command) {
  if (!block) return;
  const auto take = [&](const char* option, std::string& text, const std::string& own) {
    if (command.get_option(option)->count() == 0) text = own;
  };
  take("--title", sheet.title, block->title);
  take("--project", sheet.project, block->project);
  take("--drawn-by", sheet.drawnBy, block->drawnBy);
}

/// Zones in addition to those of the document, all of which are shown then.
void addZones(ZoneLayer& layer, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) layer.zones.push_back(zoneOfText(text));
  if (!texts.empty()) layer.shown = true;
}

/// An option that is one of some words.
template <std::size_t count, class Choice>
void addChoice(CLI::App& command, const char* name, const std::array<const char*, count>& words, Choice& choice,
               const char* description) {
  std::map<std::string, Choice> choices;
  for (std::size_t i = 0; i < count; ++i) choices[words[i]] = static_cast<Choice>(i);
  command
      .add_option_function<std::string>(
          name, [choices, &choice](const std::string& word) { choice = choices.at(word); }, description)
      ->check(CLI::IsMember(std::vector<std::string>(words.begin(), words.end())))
      ->type_name("WORD");
}

void addLook(CLI::App& command, SheetCommandOptions& options) {
  SheetOptions& sheet = options.sheet;
  CLI::Option* page = command.add_option("--page", options.page,
                                         "letter, a4, tabloid or a3, or two sides such as 1200x800 in pixels of 1/96 "
                                         "inch or 11x8.5in; letter if not given");
  page->type_name("PAGE");
  command.add_option("--size", options.size, "the page in pixels, as for a chart")
      ->type_name("WIDTHxHEIGHT")
      ->excludes(page);
  command.add_flag("--portrait", options.portrait, "a named page stands on its short side");
  addChoice(command, "--colors", colorNames, sheet.colors, "color, gray or dark; color if not given");
  command.get_option("--colors")->transform([](const std::string& word) { return word == "grey" ? "gray" : word; });
  command
      .add_option("--font-size", options.letterSize,
                  "of the numbers on the scales, all else in proportion; what suits the page, 7.5 points on a letter, "
                  "if not given")
      ->type_name("POINTS");
  command.add_option("--scale", options.scale, "picture pixels to the pixel, for .png and .bmp")->type_name("NUMBER");
  constexpr std::array<const char*, 2> labels = {"names", "numbers"};
  addChoice(command, "--labels", labels, sheet.labels, "what points are called; names if they have any");
  command
      .add_option("--zone", options.zones,
                  "a zone, any number of them: comfort, values as of the command comfort such as clo=1,fpm=40, or an "
                  "envelope; of bins, design and hours those in one of them count")
      ->type_name("ZONE")
      ->allow_extra_args(false);
  command.add_flag("--enthalpy-lines", sheet.enthalpyLines, "draw lines of constant enthalpy through the chart");
  const auto without = [&](const char* name, bool& part, const char* description) {
    command.add_flag_callback(
        name, [&part] { part = false; }, description);
  };
  without("--no-protractor", sheet.protractor, "leave the protractor of sensible heat ratios out");
  without("--no-reference", sheet.reference, "leave the mark of the state that the protractor holds for out");
  without("--no-table", sheet.table, "leave the table of states out");
  without("--no-title-block", sheet.titleBlock, "leave the title block out");
}

void addTexts(CLI::App& command, SheetOptions& sheet) {
  const auto text = [&](const char* name, std::string& value, const char* description) {
    command.add_option(name, value, description)->type_name("TEXT")->group("Title block");
  };
  text("--title", sheet.title, "what the sheet shows");
  text("--project", sheet.project, "what it is for");
  text("--drawn-by", sheet.drawnBy, "who has made it");
  text("--date", sheet.date, "when; today if not given");
}

}  // namespace

void addSheetLook(CLI::App& command, SheetCommandOptions& options) {
  addLook(command, options);
  addTexts(command, options.sheet);
}

void runSheet(const CLI::App& command, const SheetCommandOptions& options, const SheetContentOf& contentOfDocument) {
  constexpr WindowSize window{defaultWidth * twipsPerPixel, defaultHeight * twipsPerPixel};
  SheetOptions sheet = sheetOf(options);
  ChartDocument begun = begunDocument(options.document);
  takeTitles(sheet, begun.document.titleBlock, command);
  addZones(begun.document.zoneLayer, options.zones);
  RecordingCanvas canvas;
  constexpr auto either = std::launch::async | std::launch::deferred;  // where no thread can be started
  // What is out of the limits is found while what paints is loaded.
  auto drawn = std::async(either, [&] { return leaveOut(begun.document, window); });
  const bool csv = lowercase(options.output).ends_with(".csv");
  const Painter painter = csv ? Painter{} : painterOfName(options.output);
  if (!csv && painter.format == nullptr) {
    throw badUsage(options.output +
                   ": the ending must be .pdf .svg .png .bmp, or .csv for the tables of an air handler");
  }
  const double scale = scaleOf(options.scale, painter.pixels, sheet.page.width, sheet.page.height);
  completeDocument(begun, drawn.get(), canvas, window, command, options.document);
  const SheetContent content = contentOfDocument(begun.document);
  if (csv && !content.system) throw failure("there is no air handler whose tables could be written");
  std::string bytes;
  if (csv) {
    bytes = systemCsv(*content.system);
  } else {
    painter.sheet(*painter.format, content, sheet, scale, bytes);
  }
  if (bytes.empty()) throw failure("there is not enough memory for the picture");
  Output output(options.output, begun.input.get());
  output.write(bytes);
  output.close();
}

void addSheetCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("sheet", "Lay a chart out for print, with table and title block");
  const auto options = std::make_shared<SheetCommandOptions>();
  options->sheet.title = "Psychrometric chart";
  command
      ->add_option("-o,--output", options->output,
                   "the file; .pdf .svg .png .bmp, or .csv for the tables of an air handler")
      ->required()
      ->type_name("FILE");
  options->document.limits.sheet = true;
  addChartDocument(*command, options->document);
  addSheetLook(*command, *options);
  command->callback([options, command] { runSheet(*command, *options, contentOf); });
}

}  // namespace moistair
