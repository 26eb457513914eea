#include "shell/weathercommands.h"

#include <QAction>
#include <utility>

#include "model/history.h"
#include "windows/weatherwindow.h"

namespace moistair {

namespace {

VisibleRange rangeOf(const ChartLimits& limits) { return {limits.lowDb, limits.highDb, limits.lowHr, limits.highHr}; }

}  // namespace

WeatherCommands::WeatherCommands(QWidget& window, QWidget& graph, ChartController& chart,
                                 std::function<std::optional<PlotBox>(const ChartLimits&)> plot)
    : QObject(&window),
      window_(window),
      graph_(graph),
      chart_(chart),
      plot_(std::move(plot)),
      view_(new WeatherView(graph)) {
  connect(&chart, &ChartController::laidOut, this, &WeatherCommands::follow);
  connect(&chart, &ChartController::changed, this, [this](ChangedPart part) {
    if (part == ChangedPart::content) follow();
  });
}

void WeatherCommands::fillMenu(QMenu& chart) {
  QAction* action = chart.addAction(QStringLiteral("Weat&her..."), this, &WeatherCommands::choose);
  action->setObjectName(QStringLiteral("weather"));
}

void WeatherCommands::choose() {
  const Entry* chart = lastChart(chart_.document());
  if (chart == nullptr) {
    Q_EMIT refused(QStringLiteral("Draw a chart first: the weather is shown on it."));
    return;
  }
  const ChartLimits& limits = chart->setting.limits;
  WeatherWindow window(&window_, chart_.document().weather, chart->setting.pressure.atm, rangeOf(limits));
  if (window.exec() == QDialog::Accepted) {
    chart_.commands().change(reweathering(chart_.document(), window.layer()), chart_.window());
  }
  Q_EMIT done();
}

void WeatherCommands::follow() {
  const Entry* chart = lastChart(chart_.document());
  const auto& layer = chart_.document().weather;
  const auto box = chart == nullptr || !layer ? std::nullopt : plot_(chart->setting.limits);
  if (!box) return view_->clear();
  // Dots of a document that was opened are read once, and not at every change.
  const bool known = read_ && *read_ == *layer && !layer->dots;
  SheetWeather weather = sheetWeatherOf(known ? *read_ : *layer, chart->setting.pressure.atm);
  read_ = weather.layer;
  view_->resize(graph_.size());
  view_->show(std::move(weather), *box, chart->setting.pressure.atm);
}

}  // namespace moistair
