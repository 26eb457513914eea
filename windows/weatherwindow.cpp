#include "windows/weatherwindow.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <bitset>

#include "files/inputfile.h"
#include "text/numberformat.h"
#include "toolkit/remembered.h"

namespace moistair {

namespace {

/// Under which the columns of a table are remembered.
QByteArray memoryOf(std::string_view content) {
  return "weather/columns/" + QByteArray::fromStdString(checksumOf(headsOf(content)));
}

std::optional<std::string> contentOf(const std::string& path) {
  auto text = readFile(path, Links::followed, largestWeatherFile);
  return text ? std::optional(std::move(*text)) : std::nullopt;
}

template <class... Widgets>
QWidget* row(Widgets*... widgets) {
  auto* box = new QWidget;
  auto* layout = new QHBoxLayout(box);
  layout->setContentsMargins({});
  (layout->addWidget(widgets), ...);
  layout->addStretch();
  return box;
}

using Months = std::bitset<12>;  // of a year, from January on

int firstMonthOf(Months months) {
  for (std::size_t month = 0; month < months.size(); ++month) {
    if (months[month] && !months[(month + 11) % 12]) return static_cast<int>(month);
  }
  return 0;
}

int monthCount(Months months) { return static_cast<int>(months.count()); }

}  // namespace

WeatherWindow::WeatherWindow(QWidget* parent, const std::optional<WeatherLayer>& begin, double atm,
                             const VisibleRange& range)
    : QDialog(parent), layer_(begin), atm_(atm), range_(range) {
  setObjectName(QStringLiteral("weatherwindow"));
  setWindowTitle(QStringLiteral("Weather"));
  makeControls();
  if (!begin) {
    say(QStringLiteral("Open a weather file (EPW, TMY3, DDY) or a trend log."));
    return;
  }
  path_ = begin->file;
  show_->setCurrentIndex(static_cast<int>(begin->show));
  counts_->setChecked(begin->counts);
  designPoints_->setChecked(begin->designPoints);
  firstMonth_->setCurrentIndex(firstMonthOf(begin->filter.months));
  lastMonth_->setCurrentIndex((firstMonthOf(begin->filter.months) + monthCount(begin->filter.months) + 11) % 12);
  if (monthsChosen() != begin->filter.months) months_ = begin->filter.months;
  fromHour_->setValue(begin->filter.fromHour);
  toHour_->setValue(begin->filter.toHour);
  readFile();
}

void WeatherWindow::makeControls() {
  auto* form = new QFormLayout(this);
  auto* open = new QPushButton(QStringLiteral("&Open file..."));
  open->setObjectName(QStringLiteral("open"));
  name_ = new QLabel(QStringLiteral("no file"));
  form->addRow(row(open, name_));
  columns_ = new QLineEdit;
  columns_->setObjectName(QStringLiteral("columns"));
  columns_->setPlaceholderText(QStringLiteral("found by their heads, or as time=Stamp,db=OAT,rh=OA RH"));
  form->addRow(QStringLiteral("Columns of a &table"), columns_);
  const auto list = [&](const char* name, const QStringList& items) {
    auto* box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    box->addItems(items);
    return box;
  };
  units_ = list("units", {QStringLiteral("by their heads"), QStringLiteral("deg F"), QStringLiteral("deg C")});
  form->addRow(QStringLiteral("Te&mperatures"), units_);
  show_ = list("show", {QStringLiteral("Density in cells of 2 deg F by 0.0005"), QStringLiteral("Dots by month"),
                        QStringLiteral("Dots by hour of day")});
  form->addRow(QStringLiteral("Sho&w"), show_);
  counts_ = new QCheckBox(QStringLiteral("&Hours in the cells, on sheets"));
  counts_->setObjectName(QStringLiteral("counts"));
  designPoints_ = new QCheckBox(QStringLiteral("&Design conditions as points, on sheets"));
  designPoints_->setObjectName(QStringLiteral("designpoints"));
  form->addRow(counts_);
  form->addRow(designPoints_);
  QStringList months;
  for (const char* month : monthNames) months << QLatin1String(month);
  firstMonth_ = list("firstmonth", months);
  lastMonth_ = list("lastmonth", months);
  lastMonth_->setCurrentIndex(11);
  form->addRow(QStringLiteral("Mo&nths from"), row(firstMonth_, new QLabel(QStringLiteral("to")), lastMonth_));
  fromHour_ = new QSpinBox;
  toHour_ = new QSpinBox;
  fromHour_->setRange(0, 23);
  toHour_->setRange(0, 24);
  toHour_->setValue(24);
  fromHour_->setObjectName(QStringLiteral("fromhour"));
  toHour_->setObjectName(QStringLiteral("tohour"));
  form->addRow(QStringLiteral("Ho&urs from"), row(fromHour_, new QLabel(QStringLiteral("to")), toHour_));
  firstMonth_->setAccessibleName(QStringLiteral("first month"));
  lastMonth_->setAccessibleName(QStringLiteral("last month"));
  fromHour_->setAccessibleName(QStringLiteral("first hour of the day"));
  toHour_->setAccessibleName(QStringLiteral("end of the hours of the day"));
  words_ = new QPlainTextEdit;
  words_->setObjectName(QStringLiteral("found"));
  words_->setReadOnly(true);
  words_->setTabChangesFocus(true);
  words_->setAccessibleName(QStringLiteral("what was found in the file"));
  form->addRow(words_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  showButton_ = buttons->addButton(QStringLiteral("&Show on chart"), QDialogButtonBox::AcceptRole);
  auto* remove = buttons->addButton(QStringLiteral("&Remove from chart"), QDialogButtonBox::ResetRole);
  form->addRow(buttons);
  showButton_->setObjectName(QStringLiteral("show chart"));
  showButton_->setDefault(true);
  showButton_->setEnabled(false);
  remove->setEnabled(layer_.has_value());
  connect(open, &QPushButton::clicked, this, &WeatherWindow::chooseFile);
  connect(columns_, &QLineEdit::editingFinished, this, &WeatherWindow::readFile);
  connect(units_, &QComboBox::activated, this, &WeatherWindow::readFile);
  connect(show_, &QComboBox::activated, this, &WeatherWindow::count);
  for (QComboBox* box : {firstMonth_, lastMonth_}) {
    connect(box, &QComboBox::activated, this, [this] {
      months_.reset();
      count();
    });
  }
  for (QSpinBox* box : {fromHour_, toHour_}) connect(box, &QSpinBox::valueChanged, this, &WeatherWindow::count);
  connect(remove, &QPushButton::clicked, this, &WeatherWindow::removeLayer);
  connect(buttons, &QDialogButtonBox::accepted, this, &WeatherWindow::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  resize(560, 560);
}

void WeatherWindow::say(const QString& words) { words_->setPlainText(words); }

void WeatherWindow::chooseFile() {
  const QString chosen = QFileDialog::getOpenFileName(
      this, QStringLiteral("Open weather"), remembered(memory::folder).toString(),
      QStringLiteral("Weather and logs (*.epw *.EPW *.csv *.CSV *.ddy *.DDY *.txt);;All files (*)"));
  if (chosen.isEmpty()) return;
  path_ = QFile::encodeName(chosen).toStdString();
  columns_->clear();
  units_->setCurrentIndex(0);
  if (const auto text = contentOf(path_)) {
    const QStringList known = remembered(memoryOf(*text).constData()).toStringList();
    if (known.size() == 2) {
      columns_->setText(known[0]);
      units_->setCurrentIndex(known[1].toInt());
    }
  }
  readFile();
}

TableColumns WeatherWindow::columnsTyped() const {
  TableColumns columns;
  columns.units = static_cast<TableUnits>(units_->currentIndex());
  if (columns_->text().trimmed().isEmpty()) return columns;
  if (auto named = readColumns(columns_->text().toStdString())) columns.named = std::move(*named);
  return columns;
}

void WeatherWindow::readFile() {
  if (path_.empty()) return;
  name_->setText(QFile::decodeName(QByteArray::fromStdString(path_)).section(QLatin1Char('/'), -1));
  file_.reset();
  showButton_->setEnabled(false);
  if (!columns_->text().trimmed().isEmpty()) {
    const auto named = readColumns(columns_->text().toStdString());
    if (!named) return say(QString::fromStdString("Columns: " + named.error().words));
  }
  auto file = loadWeather(path_, columnsTyped());
  if (!file) return say(QString::fromStdString(file.error().text()));
  file_ = std::move(*file);
  count();
}

std::uint16_t WeatherWindow::monthsChosen() const {
  unsigned months = 0;
  for (int month = firstMonth_->currentIndex();; month = (month + 1) % 12) {
    months |= 1U << static_cast<unsigned>(month);
    if (month == lastMonth_->currentIndex()) break;
  }
  return static_cast<std::uint16_t>(months);
}

WeatherLayer WeatherWindow::wanted() const {
  WeatherLayer layer;
  layer.file = path_;
  layer.show = static_cast<WeatherShow>(show_->currentIndex());
  layer.counts = counts_->isChecked();
  layer.designPoints = designPoints_->isChecked();
  layer.atm = atm_;
  layer.columns = columnsTyped();
  layer.filter.months = months_.value_or(monthsChosen());
  layer.filter.fromHour = fromHour_->value();
  layer.filter.toHour = toHour_->value();
  return layer;
}

/// Lists what counts, and what was odd.
void WeatherWindow::count() {
  if (!file_) return;
  Oddities oddities = file_->oddities;
  const WeatherLayer layer = wanted();
  const auto hours = hoursOf(*file_, {.atm = layer.atm, .filter = layer.filter}, oddities);
  countUnseen(hours, range_, oddities);
  QStringList lines{QStringLiteral("%1 hours").arg(QString::fromStdString(atMostDecimals(totalHours(hours), 1)))};
  if (!file_->site.name.empty()) lines.front() += QStringLiteral(" of ") + QString::fromStdString(file_->site.name);
  if (months_) lines << QStringLiteral("Only some months count, as before, until you choose others.");
  for (const DesignCondition& condition : file_->design) {
    if (condition.month > 0) continue;
    const StatePoint state = stateOf(condition, atm_);
    lines << QString::fromStdString(nameOf(condition) + ": DB " + fixedDecimals(state.db, 1) + ", WB " +
                                    fixedDecimals(state.wb, 1) + " (" + condition.source + ")");
  }
  for (const Oddity& oddity : oddities.all()) lines << QString::fromStdString(wordsOf(oddity));
  say(lines.join(QLatin1Char('\n')));
  showButton_->setEnabled(!hours.empty() || !file_->design.empty());
}

void WeatherWindow::accept() {
  if (!file_) return;
  layer_ = layerOf(*file_, wanted());
  remember(memory::folder, QFile::decodeName(QByteArray::fromStdString(path_)).section(QLatin1Char('/'), 0, -2));
  const bool columns = file_->format == WeatherFormat::table;
  if (const auto text = columns ? contentOf(path_) : std::nullopt) {
    remember(memoryOf(*text).constData(), QStringList{columns_->text(), QString::number(units_->currentIndex())});
  }
  QDialog::accept();
}

void WeatherWindow::removeLayer() {
  layer_.reset();
  QDialog::accept();
}

}  // namespace moistair
