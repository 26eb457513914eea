#include "shell/zones.h"

#include <QCoreApplication>
#include <QFile>
#include <utility>

#include "model/envelopefile.h"
#include "toolkit/messages.h"
#include "windows/zonesdialog.h"

namespace moistair {

Zones::Zones(QWidget& window, QWidget& graph, ChartController& chart, Plot plot)
    : QObject(&window), window_(window), chart_(chart), plot_(std::move(plot)), view_(new ZoneView(graph)) {
  view_->lower();  // below what else lies over the drawing
  connect(&chart_, &ChartController::changed, this, [this](ChangedPart part) {
    if (part == ChangedPart::content) follow();
  });
  connect(&chart_, &ChartController::laidOut, this, &Zones::follow);
}

void Zones::fillMenu(QMenu& menu) { menu.addAction(QStringLiteral("C&omfort and envelopes..."), this, &Zones::choose); }

void Zones::follow() {
  const Document& document = chart_.document();
  const Entry* chart = lastChart(document);
  const bool current = chart != nullptr && currentLimits(document);
  const auto box = current ? plot_(chart->setting.limits) : std::nullopt;
  view_->show(document.zoneLayer, box, current ? chart->setting.pressure.atm : 0);
}

void Zones::choose() {
  const auto program = QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
  const std::filesystem::path folder = std::filesystem::path(program) / envelopeFolder;
  std::vector<Envelope> installed;
  for (const std::string& name : envelopeNames(folder)) {
    const Result<Envelope> envelope = envelopeOf(name, folder);
    if (!envelope) {
      warning(&window_, QString::fromStdString(envelope.error().text()));
      continue;
    }
    installed.push_back(*envelope);
  }
  ZonesDialog dialog(&window_, chart_.document().zoneLayer, std::move(installed));
  if (dialog.exec() != QDialog::Accepted) return;
  ZoneLayer layer = dialog.zoneLayer();
  if (layer != chart_.document().zoneLayer) chart_.commands().rezone(std::move(layer));
}

}  // namespace moistair
