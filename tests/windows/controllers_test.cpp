// The controllers, driven without a window: lists, boxes and answers are handed in, and what is asked for is heard.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "shell/filescontroller.h"
#include "shell/logcontroller.h"
#include "shell/pointercontroller.h"

namespace moistair {
namespace {

/// The controllers with what a window would hand in, and all that they ask for, one word after the other.
struct Bench {
  QTemporaryDir folder;
  LimitTexts lists{"0", "120", "0", "0.030"};
  PairInput pair{PropertyKind::db, PropertyKind::wb, "75", "62.5"};
  RecordingCanvas canvas;
  ChartController chart{canvas,
                        {[this] { return lists; }, [this] { return pair; }, [] { return std::string("A"); },
                         [] {
                           return WindowSize{12000, 6000};
                         }}};
  LogController log{
      LogPlaces{{folder.path().toStdString()}, folder.filePath(QStringLiteral("sessions")).toStdString()}};
  QString path;  ///< to open or to save; empty for Cancel
  Unsaved unsaved = Unsaved::cancel;
  FilesController files{
      chart,
      log.log(),
      {[this](const QString&) { return answer("open"); }, [this](const QString&) { return answer("save"); },
       [this](const QString&) {
         heard += "unsaved ";
         return unsaved;
       },
       [this](const QString&) {
         heard += "question ";
         return true;
       },
       [this](const QString&) { heard += "warning "; }}};
  PointerController pointer{chart,
                            [](const ChartLimits& limits) {
                              return plotBox(plotArea(limits, {12000, 6000}));
                            },
                            10};
  std::string heard;
  PointReport report;

  Bench() {
    const auto hear = [this](auto signal, const char* word) {
      QObject::connect(&chart, signal, &chart, [this, word] { heard += std::string(word) + " "; });
    };
    chart.commands().start({12000, 6000});
    hear(&ChartController::done, "done");
    hear(&ChartController::typeAsked, "type");
    hear(&ChartController::inputsEmptied, "inputs");
    hear(&ChartController::rowFilled, "row");
    hear(&ChartController::markRefused, "unmarked");
    hear(&ChartController::failed, "inexact");
    QObject::connect(&chart, &ChartController::refused, &chart, [this](const Error& error) {
      const bool other = error.code == ErrorCode::waiting || error.code == ErrorCode::outOfRange;
      heard += !other ? "refused " : error.code == ErrorCode::waiting ? "waiting " : "range ";
    });
    QObject::connect(&chart, &ChartController::rowEmptied, &chart,
                     [this](bool dewPointToo) { heard += dewPointToo ? "empty+ " : "empty "; });
    QObject::connect(&chart, &ChartController::waiting, &chart, [this](bool on) { heard += on ? "wait " : "ready "; });
    QObject::connect(&chart, &ChartController::limitsChosen, &chart, [this](const ChartLimits& limits) {
      lists = {numberText(limits.lowDb), numberText(limits.highDb), numberText(limits.lowHr),
               numberText(limits.highHr)};
    });
    QObject::connect(&chart, &ChartController::reportAsked, &chart, [this](const PointReport& asked) {
      heard += "report ";
      report = asked;
    });
  }

  std::optional<QString> answer(const char* word) {
    heard += std::string(word) + " ";
    return path.isEmpty() ? std::nullopt : std::optional(path);
  }

  std::string hearAfter(const std::function<void()>& command) {
    heard.clear();
    command();
    return heard;
  }

  std::string captions() const {
    std::string all;
    for (const Entry& entry : chart.document().entries) all += captionOf(entry) + "|";
    return all;
  }

  void pointAt(double db, double w) {
    const PlotBox box = plotBox(plotArea({0, 120, 0, 0.03}, {12000, 6000}));
    pointer.setPointer({box.x(db), box.y(w)});
    pointer.move({});
  }
};

TEST(ChartControllerTest, AsksForWhatEachCommandNeedsInItsOrder) {
  Bench bench;
  ChartController& chart = bench.chart;
  const LimitTexts narrow{"50", "100", "0", "0.020"}, wrong{"15", "80", "0", "0.030"}, full = bench.lists;
  const auto lists = [&](const LimitTexts& texts) { return [&bench, texts] { bench.lists = texts; }; };
  const auto pair = [&](const char* wetBulb) { return [&bench, wetBulb] { bench.pair.value2 = wetBulb; }; };
  const auto wholeChart = [&] { chart.drawChart(ChartType::blank); };
  const auto rhLine = [&] { chart.drawLine(LineKind::relativeHumidity, "40"); };
  const auto mark = [&] { chart.markPoint(bench.report, bench.pair); };
  const struct {
    const char* name;
    std::function<void()> before, command;
    const char *heard, *captions;
  } steps[] = {
      {"a line without a chart", {}, rhLine, "wait waiting ready done ", "Pressure|"},
      {"the live row", {}, [&] { chart.previewPoint(); }, "empty+ row ", "Pressure|"},
      {"a point without a chart", {}, [&] { chart.locatePoint(); }, "waiting done ", "Pressure|"},
      {"limits that no list offers", lists(wrong), [&] { chart.startDraw(); }, "range done ", "Pressure|"},
      {"the first half", lists(full), [&] { chart.startDraw(); }, "type ", ""},
      {"the second half", {}, wholeChart, "wait ready done ", "Blank chart|"},
      {"a second chart", {}, [&] { chart.startDraw(); }, "refused done ", "Blank chart|"},
      {"its second half", {}, wholeChart, "done ", "Blank chart|"},
      {"a point", {}, [&] { chart.locatePoint(); }, "report ", "Blank chart|"},
      {"marked", {}, mark, "empty+ wait row ready ", "Blank chart|Point A|"},
      {"a pair that is none", pair("90"), [&] { chart.locatePoint(); }, "refused done ", "Blank chart|Point A|"},
      {"outside the lists", lists({"80", "120", "0", "0.030"}), mark, "empty+ wait unmarked ready ",
       "Blank chart|Point A|"},
      {"nothing to be exact", lists(full), [&] { chart.takeExact({}); }, "inexact ", "Blank chart|Point A|"},
      {"undone", {}, [&] { chart.undo(); }, "done ", "Blank chart|"},
      {"redone", {}, [&] { chart.redo(); }, "done ", "Blank chart|Point A|"},
      {"renamed", {}, [&] { chart.rename(1, "B"); }, "", "Blank chart|Point B|"},
      {"removed", {}, [&] { chart.remove({1}); }, "done ", "Blank chart|"},
      {"a line and other limits", lists(narrow), [&] { chart.startDraw(); }, "type ", ""},
      {"cleared", {}, [&] { chart.clearChart(); }, "inputs empty done ", ""},
      {"a new pressure",
       {},
       [&] {
         chart.changePressure({PressureUnit::elevation, "0"});
       },
       "inputs empty+ ",
       "Pressure|"},
      {"another pressure made current", [&] { chart.setCurrentPressure("24.9"); }, [&] { chart.adoptFilePressure(); },
       "empty+ done ", "Pressure|"},
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(step.name);
    if (step.before) step.before();
    EXPECT_EQ(bench.hearAfter(step.command), step.heard);
    EXPECT_EQ(bench.captions(), step.captions);
  }
}

TEST(ChartControllerTest, OneSignalSaysWhatChanged) {
  Bench bench;
  std::string parts;
  QObject::connect(&bench.chart, &ChartController::changed, &bench.chart,
                   [&](ChangedPart part) { parts += part == ChangedPart::content ? 'c' : 'p'; });
  bench.chart.setCurrentPressure("24.9");
  EXPECT_EQ(std::exchange(parts, {}), "p");
  bench.chart.drawChart(ChartType::blank);
  bench.chart.undo();
  EXPECT_EQ(std::exchange(parts, {}), "cc");
  bench.chart.layout();
  EXPECT_EQ(parts, "");
}

TEST(FilesControllerTest, AsksBeforeWorkIsLostAndReadsWhatItWrote) {
  Bench bench;
  FilesController& files = bench.files;
  bench.chart.drawChart(ChartType::blank);
  EXPECT_EQ(files.caption().toStdString(), "Untitled *");
  EXPECT_EQ(bench.hearAfter([&] { files.startNew(); }), "unsaved ") << "canceled";
  EXPECT_EQ(bench.hearAfter([&] { EXPECT_FALSE(files.save()); }), "save ") << "canceled";
  bench.path = bench.folder.filePath(QStringLiteral("a.moistair"));
  EXPECT_EQ(bench.hearAfter([&] { EXPECT_TRUE(files.save()); }), "save ");
  EXPECT_EQ(files.caption().toStdString(), "a.moistair");
  EXPECT_EQ(files.recent().paths.join(u'|').toStdString(), bench.path.toStdString());
  EXPECT_EQ(bench.hearAfter([&] { files.startNew(); }), "inputs empty+ done ");
  EXPECT_EQ(bench.captions(), "Pressure|");
  EXPECT_EQ(bench.hearAfter([&] { files.askOpen(); }), "open done ");
  EXPECT_EQ(bench.captions(), "Blank chart|");
  EXPECT_EQ(bench.hearAfter([&] { EXPECT_FALSE(files.open(bench.path + u'x')); }), "warning ");
  EXPECT_EQ(files.caption().toStdString(), "a.moistair") << "what cannot be read changes nothing";
}

TEST(LogControllerTest, ShowsWhatItAppended) {
  Bench bench;
  QString shown, said;
  QObject::connect(&bench.log, &LogController::shown, &bench.log, [&](const QString& content) { shown = content; });
  QObject::connect(&bench.log, &LogController::appended, &bench.log, [&](const QString& words) { said = words; });
  QObject::connect(&bench.log, &LogController::unreadable, &bench.log, [&] { said = QStringLiteral("unreadable"); });
  bench.log.view();
  EXPECT_EQ(said.toStdString(), "unreadable") << "before there is a log";
  EXPECT_TRUE(bench.log.log().newLog());
  bench.log.append({"one", "two"});
  EXPECT_EQ(said.toStdString(), "record 1 saved");
  bench.log.view();
  EXPECT_TRUE(shown.contains(QStringLiteral("two"))) << shown.toStdString();
  EXPECT_TRUE(bench.log.copyTo(bench.folder.filePath(QStringLiteral("copy.txt"))));
}

TEST(PointerControllerTest, ReadsChoosesPinsAndMovesMarks) {
  Bench bench;
  PointerController& pointer = bench.pointer;
  std::string told;
  QObject::connect(&pointer, &PointerController::chosen, &pointer,
                   [&](const QString& db, const QString& w) { told = (db + u'|' + w).toStdString(); });
  bench.pointAt(80, 0.0101);
  EXPECT_FALSE(pointer.crossHair()) << "no chart, no reading";
  bench.chart.drawChart(ChartType::blank);
  bench.chart.locatePoint();
  bench.chart.markPoint(bench.report, bench.pair);
  bench.pointAt(80, 0.0101);
  ASSERT_TRUE(pointer.crossHair());
  EXPECT_FALSE(pointer.description().isEmpty());
  pointer.press({});
  pointer.release();
  EXPECT_TRUE(told.starts_with("80.0")) << told;
  EXPECT_TRUE(pointer.key(Qt::Key_P, false));
  EXPECT_EQ(bench.captions().substr(0, 28), "Blank chart|Point A|Read-out");
  const auto& marked = std::get<MarkedPoint>(bench.chart.document().entries[1].content).state;
  bench.pointAt(marked.db, marked.w);
  pointer.press({});
  bench.pointAt(85, 0.012);
  EXPECT_TRUE(pointer.isDragging());
  pointer.release();
  const double moved = std::get<MarkedPoint>(bench.chart.document().entries[1].content).state.db;
  EXPECT_NEAR(moved, 85, 0.2);
  EXPECT_EQ(bench.chart.history().undoName(), "Move Point A");
  EXPECT_FALSE(pointer.key(Qt::Key_Return, false)) << "meant for a box";
  EXPECT_TRUE(pointer.key(Qt::Key_Right, false));
  EXPECT_TRUE(pointer.key(Qt::Key_Escape, false));
  EXPECT_FALSE(pointer.crossHair());
}

}  // namespace
}  // namespace moistair
