#include "shell/sheets.h"

#include <QAction>
#include <QDate>
#include <QMessageBox>
#include <QPagedPaintDevice>
#include <QPainter>

#include "shell/chartexport.h"
#include "toolkit/messages.h"
#include "windows/sheetdialog.h"

namespace moistair {

Sheets::Sheets(QWidget& window, QWidget& graph, const ChartCommands& chart, const SessionLog& log)
    : QObject(&window), window_(window), chart_(chart), log_(log), view_(new SheetView(graph)) {
  options_.title = "Psychrometric chart";
  options_.date = QDate::currentDate().toString(Qt::ISODate).toStdString();
  options_.program = std::string("Moistair ") + MOISTAIR_VERSION;
}

void Sheets::fillviewmenu(QMenu& view) {
  toggle_ = view.addAction(tr("As a &sheet"));
  toggle_->setCheckable(true);
  connect(toggle_, &QAction::toggled, this, [this] {
    show();
    Q_EMIT toggled();
  });
}

/// Where no chart stands, there is none to be seen as a sheet either.
void Sheets::show() {
  const bool shown = toggle_->isChecked() && lastchart(chart_.document()) != nullptr;
  if (shown) view_->show(contentof(chart_.document()));
  view_->setVisible(shown);
}

void Sheets::follow(const QSize& visible) {
  view_->resize(visible);
  show();
}

std::optional<PlotBox> Sheets::plot() { return view_->isHidden() ? std::nullopt : std::optional(view_->plot()); }

/// Tells the user where none stands: a sheet of an empty chart is not what was wanted.
bool Sheets::haschart() const {
  const bool stands = lastchart(chart_.document()) != nullptr;
  if (!stands) message(&window_, tr("There is no chart to make a sheet of."));
  return stands;
}

std::optional<QString> Sheets::exportsheet() {
  if (!haschart()) return std::nullopt;
  const SheetContent content = contentof(chart_.document());
  SheetDialog dialog(&window_, content, options_);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  options_ = dialog.options();
  if (!accepted) return std::nullopt;
  return exportpicture(&window_, log_, QStringLiteral("sheet"), ".pdf", [&](const FileFormat& format) {
    return sheetcontent(format.ending, layoutsheet(content, options_, sheetextents()), options_.title, exportscale);
  });
}

QPageLayout Sheets::print(const QPageLayout& page) {
  switch (askwhat()) {
    case Printed::sheet: return haschart() ? printsheet(page) : page;
    case Printed::chart: return printchart(&window_, log_, chart_.document(), page);
    case Printed::nothing: break;
  }
  return page;
}

Sheets::Printed Sheets::askwhat() {
  QMessageBox box(QMessageBox::Question, tr("Print"), tr("What is to be printed?"), QMessageBox::Cancel, &window_);
  const auto* chart = box.addButton(tr("The &chart"), QMessageBox::AcceptRole);
  auto* sheet = box.addButton(tr("A &sheet"), QMessageBox::AcceptRole);
  if (!view_->isHidden()) box.setDefaultButton(sheet);
  box.exec();
  if (box.clickedButton() == sheet) return Printed::sheet;
  return box.clickedButton() == chart ? Printed::chart : Printed::nothing;
}

/// The paper decides on the page, and keeps a margin of its own.
QPageLayout Sheets::printsheet(const QPageLayout& page) {
  constexpr double margin = 4;
  const auto paint = [&](QPagedPaintDevice& device, QPainter& painter) {
    const QSizeF paper = device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
    SheetOptions options = options_;
    options.margin = margin;
    const QSizeF size = paper * (pixelsperinch / device.logicalDpiX());
    options.page = {std::max(leastside, size.width()), std::max(leastside, size.height())};
    const SheetDrawing sheet = layoutsheet(contentof(chart_.document()), options, sheetextents());
    paintpages(sheet, painter, QRectF(QPointF(0, 0), paper), [&] { return device.newPage(); });
  };
  return printpages(&window_, log_, page, paint);
}

}  // namespace moistair
