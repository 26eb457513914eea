#include "shell/chartcontroller.h"

#include <algorithm>
#include <utility>

#include "advice/pairnotes.h"
#include "chart/chartfinders.h"
#include "chart/pointmark.h"
#include "model/airhandler.h"
#include "model/carryover.h"
#include "model/exactentry.h"

namespace moistair {

namespace {

/// What could not be put on a chart again, as many as a message has room for.
QString leftOutText(const std::vector<LeftOut>& leftOut) {
  constexpr std::size_t most = 15;
  QString text = QStringLiteral("Not on this chart:");
  for (std::size_t i = 0; i < std::min(most, leftOut.size()); ++i) {
    text += QLatin1Char('\n') + QString::fromStdString(captionOf(leftOut[i].entry)) + QStringLiteral(": ") +
            QString::fromStdString(leftOut[i].reason);
  }
  if (leftOut.size() > most) text += QStringLiteral("\nand %1 more").arg(leftOut.size() - most);
  return text;
}

/// A line of relative humidity that does not cross the chart gets a message, whatever the search then finds.
bool isOutOfSight(const Resolution& resolution) { return resolution.unseenLine == PropertyKind::rh; }

Error outOfSight() { return {ErrorCode::noResult, {}, lineNotFeasible}; }

}  // namespace

ChartController::ChartController(RecordingCanvas& canvas, Inputs inputs, QObject* parent)
    : QObject(parent), inputs_(std::move(inputs)), commands_(canvas), finders_(chartRangeFinders([this] {
        commands_.readLimits(inputs_.limits());
        return commands_.plotArea(inputs_.window());
      })) {
  commands_.changed = [this](ChangedPart part) { Q_EMIT changed(part); };
}

PlotArea ChartController::listedArea() const {
  PlotArea area = commands_.plotArea(inputs_.window());
  readLimits(inputs_.limits(), area.limits);
  return area;
}

void ChartController::previewPoint() {
  Q_EMIT rowEmptied(true);
  const Resolution resolution = resolveInput(inputs_.pair(), document().atm(), finders_, solverFields_);
  Q_EMIT previewed(resolution);
  if (isOutOfSight(resolution)) Q_EMIT refused(outOfSight());
  if (resolution.resolved()) Q_EMIT rowFilled(resolution.point);
}

void ChartController::changePressure(const PressureEntry& entry) {
  Q_EMIT inputsEmptied();
  Q_EMIT rowEmptied(true);
  commands_.changePressure(entry, window());
}

void ChartController::adoptFilePressure() {
  step([this] { commands_.adoptFilePressure(); });
}

void ChartController::startDraw() {
  if (const Outcome cleared = commands_.startDraw(inputs_.limits()); !cleared) {
    Q_EMIT refused(cleared.error());
    Q_EMIT done();
    return;
  }
  Q_EMIT typeAsked();
}

void ChartController::drawChart(ChartType type) {
  commands_.chooseType(type);
  if (const Outcome tested = commands_.testLimits(inputs_.limits()); !tested) {
    Q_EMIT refused(tested.error());
  } else if (!hasCurrentChart(document())) {
    Q_EMIT waiting(true);
    commands_.drawChart(window());
    Q_EMIT waiting(false);
  }
  Q_EMIT done();
}

void ChartController::drawLine(LineKind kind, const std::string& value) {
  Q_EMIT waiting(true);
  const Outcome drawn = commands_.drawLine(kind, inputs_.limits(), value, window());
  if (!drawn) Q_EMIT refused(drawn.error());
  Q_EMIT waiting(false);
  Q_EMIT done();
}

void ChartController::clearChart() {
  commands_.clearChart();
  Q_EMIT inputsEmptied();
  Q_EMIT rowEmptied(false);
  Q_EMIT done();
}

void ChartController::locatePoint() {
  const auto isCurrent = [this] {
    commands_.readLimits(inputs_.limits());
    return hasCurrentChart(document());
  };
  const PairInput input = inputs_.pair();
  const Location location = moistair::locatePoint(input, isCurrent, document().atm(), finders_, solverFields_);
  Q_EMIT located(location);
  if (isOutOfSight(location.resolution)) Q_EMIT refused(outOfSight());
  if (!location.outcome) {
    Q_EMIT refused(location.outcome.error());
    Q_EMIT done();
    return;
  }
  const PressureEntry& pressure = document().pressure.entry;
  Q_EMIT reportAsked(fillReport(location.resolution.point, inputs_.identification(), pressure), input);
}

void ChartController::markPoint(const PointReport& report, const PairInput& input) {
  const StatePoint shown = readReport(report);
  Q_EMIT rowEmptied(true);
  Q_EMIT waiting(true);
  const bool marked = commands_.markPoint(input, shown, inputs_.limits(), inputs_.identification(), window());
  if (marked) Q_EMIT rowFilled(shown);
  Q_EMIT rowSettled();
  if (!marked) Q_EMIT markRefused(QString::fromUtf8(pointOutOfLimits));
  Q_EMIT waiting(false);
}

void ChartController::undo() {
  step([this] { commands_.undo(window()); });
}

void ChartController::redo() {
  step([this] { commands_.redo(window()); });
}

/// What does not fit stays in the document and is reported with its reason.
void ChartController::carryOver() {
  const auto limits = currentLimits(document());
  if (!limits) return;
  const Setting setting{*limits, {document().pressure.entry, document().atm()}};
  Q_EMIT waiting(true);
  CarriedOver found =
      moistair::carryOver(document().previous, setting, window(), airHandlerPlace(document()).has_value());
  Q_EMIT waiting(false);
  const QString leftOut = leftOutText(found.leftOut);
  const bool all = found.leftOut.empty();
  step([&] {
    commands_.change(takingOver(document(), carryOverName, std::move(found.entries), std::move(found.leftOut)),
                     window());
  });
  if (!all) Q_EMIT reported(leftOut);
  Q_EMIT done();
}

void ChartController::takeExact(const std::vector<std::size_t>& places) {
  const auto entries = exactEntries(document(), places);
  if (entries.empty()) {
    Q_EMIT failed(QStringLiteral("no exact state within the limits"));
    return;
  }
  const std::string name = entries.size() == 1 ? "Exact state of " + captionOf(entries.front().second)
                                               : "Exact states of " + std::to_string(entries.size()) + " entries";
  step([&] { commands_.change(exchanging(document(), entries, name), window()); });
}

void ChartController::remove(const std::vector<std::size_t>& places) {
  if (!places.empty()) step([&] { commands_.change(deletion(document(), places), window()); });
}

void ChartController::rename(std::size_t place, const std::string& identification, std::size_t part) {
  commands_.change(renaming(document(), place, identification, part), window());
}

void ChartController::typeOver(std::size_t place, const GivenValue& value) {
  if (const auto edited = withGiven(document().entries[place], value, window())) {
    commands_.change(editing(document(), place, *edited), window());
  } else {
    Q_EMIT failed(QString::fromStdString(edited.error().words));
  }
}

void ChartController::markStream(std::size_t place, std::size_t part) {
  if (const auto point = pointOf(document().entries[place], part, window())) {
    commands_.change(addition(document(), *point), window());
  } else {
    Q_EMIT failed(QString::fromStdString(point.error().words));
  }
}

void ChartController::open(Document document, bool fresh) {
  const Entry* chart = lastChart(document);
  const auto limits = currentLimits(document);
  if (limits) {
    Q_EMIT limitsChosen(*limits);
  } else if (chart != nullptr) {
    Q_EMIT limitsChosen(chart->setting.limits);
  }
  if (fresh) {
    Q_EMIT inputsEmptied();
    Q_EMIT rowEmptied(true);
  }
  step([&] { commands_.open(std::move(document), window()); });
}

void ChartController::layout() {
  commands_.layout(window());
  Q_EMIT laidOut();
}

/// A step through what was done to the chart. It can make another pressure current, which the live row then shows.
void ChartController::step(const std::function<void()>& change) {
  const std::string pressure = document().current.pressure.text();
  change();
  if (document().current.pressure.text() != pressure) previewPoint();
  Q_EMIT done();
}

}  // namespace moistair
