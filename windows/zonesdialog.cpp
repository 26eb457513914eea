#include "windows/zonesdialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "model/envelopefile.h"
#include "text/numbertext.h"
#include "toolkit/filename.h"

namespace moistair {

namespace {

QString qText(const std::string& text) { return QString::fromStdString(text); }

QString numberOf(const std::optional<double>& value) { return value ? qText(numberText(*value)) : QString(); }

/// A number that is typed, or the name of the input in the error.
Result<double> typed(const QLineEdit& box) {
  const double number = strictNumber(box.text().toStdString());
  if (!hasValue(number)) return Error{ErrorCode::unreadable, box.accessibleName().toStdString(), "not a number"};
  return number;
}

/// The same for one that may be empty.
Outcome take(const QLineEdit& box, std::optional<double>& value) {
  if (box.text().trimmed().isEmpty()) return {};
  const Result<double> number = typed(box);
  if (!number) return number.error();
  value = *number;
  return {};
}

Outcome take(const QLineEdit& box, double& value) {
  const Result<double> number = typed(box);
  if (!number) return number.error();
  value = *number;
  return {};
}

}  // namespace

ZonesDialog::ZonesDialog(QWidget* parent, ZoneLayer begin, std::vector<Envelope> installed)
    : QDialog(parent),
      zones_(std::move(begin.zones)),
      list_(new QListWidget),
      kind_(new QComboBox),
      method_(new QComboBox),
      accepting_(new QComboBox),
      envelope_(new QComboBox),
      moving_(new QCheckBox(QStringLiteral("Bod&y movement adds to the speed"))),
      shown_(new QCheckBox(QStringLiteral("&Show on the chart and on sheets"))),
      fault_(new QLabel) {
  setObjectName(QStringLiteral("zonesdialog"));
  setWindowTitle(QStringLiteral("Comfort and envelopes"));
  auto* column = new QVBoxLayout(this);
  list_->setAccessibleName(QStringLiteral("Zones"));
  list_->setWordWrap(true);
  column->addWidget(list_, 1);
  auto* buttons = new QHBoxLayout;
  column->addLayout(buttons);
  auto* add = new QPushButton(QStringLiteral("A&dd zone"));
  add->setObjectName(QStringLiteral("add"));
  remove_ = new QPushButton(QStringLiteral("&Remove zone"));
  remove_->setObjectName(QStringLiteral("remove"));
  for (QPushButton* button : {add, remove_}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  buttons->addStretch();
  form_ = new QFormLayout;
  column->addLayout(form_);
  makeForm();
  fault_->setObjectName(QStringLiteral("fault"));
  fault_->setWordWrap(true);
  column->addWidget(fault_);
  shown_->setObjectName(QStringLiteral("shown"));
  shown_->setChecked(begin.shown);
  column->addWidget(shown_);
  auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  accept_ = box->button(QDialogButtonBox::Ok);
  accept_->setObjectName(QStringLiteral("accept"));
  column->addWidget(box);
  connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(add, &QPushButton::clicked, this, &ZonesDialog::add);
  connect(remove_, &QPushButton::clicked, this, &ZonesDialog::remove);
  for (const Envelope& envelope : installed) offer(envelope);
  for (const Zone& zone : zones_) {
    if (const auto* envelope = std::get_if<Envelope>(&zone)) offer(*envelope);
    list_->addItem(qText(titleOf(zone)));
  }
  connect(list_, &QListWidget::currentRowChanged, this, &ZonesDialog::select);
  if (zones_.empty()) {
    this->add();
  } else {
    list_->setCurrentRow(0);
  }
}

ZoneLayer ZonesDialog::zoneLayer() const { return {zones_, shown_->isChecked()}; }

void ZonesDialog::addRow(const QString& caption, QWidget* input, const char* name, std::vector<Kind> kinds) {
  input->setObjectName(QLatin1String(name));
  input->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
  caption.isEmpty() ? form_->addRow(input) : form_->addRow(caption, input);
  rows_.push_back({input, std::move(kinds)});
}

QLineEdit* ZonesDialog::addValue(const QString& caption, const char* name, std::vector<Kind> kinds) {
  auto* box = new QLineEdit;
  addRow(caption, box, name, std::move(kinds));
  connect(box, &QLineEdit::textChanged, this, &ZonesDialog::follow);
  return box;
}

void ZonesDialog::makeForm() {
  using enum Kind;
  const std::vector<Kind> all = {comfort, adaptive, envelope};
  const auto list = [&](QComboBox* box, const QStringList& texts) {
    box->addItems(texts);
    connect(box, &QComboBox::currentIndexChanged, this, &ZonesDialog::follow);
  };
  list(kind_, {QStringLiteral("Comfort by vote"), QStringLiteral("Adaptive comfort"), QStringLiteral("Envelope")});
  addRow(QStringLiteral("&Kind"), kind_, "kind", all);
  for (const ComfortMethodRow& row : comfortMethods) method_->addItem(QLatin1String(row.name));
  list(method_, {});
  addRow(QStringLiteral("&Method"), method_, "method", {comfort});
  met_ = addValue(QStringLiteral("&Activity, met"), "met", {comfort});
  clo_ = addValue(QStringLiteral("C&lothing, clo"), "clo", {comfort});
  mean_ = addValue(QStringLiteral("Running mean &outdoors, Deg F"), "mean", {adaptive});
  list(accepting_, {QStringLiteral("80 %"), QStringLiteral("90 %")});
  addRow(QStringLiteral("&Accepted by"), accepting_, "accepting", {adaptive});
  speed_ = addValue(QStringLiteral("Air s&peed, ft/min"), "fpm", {comfort, adaptive});
  connect(moving_, &QCheckBox::toggled, this, &ZonesDialog::follow);
  addRow({}, moving_, "moving", {comfort});
  radiant_ = addValue(QStringLiteral("Mean radiant &temperature, Deg F"), "mrt", {comfort, adaptive});
  radiant_->setPlaceholderText(QStringLiteral("that of the air"));
  vote_ = addValue(QStringLiteral("PMV &within"), "pmv", {comfort});
  dewPoint_ = addValue(QStringLiteral("Dew po&int up to, Deg F"), "dp", {comfort});
  list(envelope_, {});
  addRow(QStringLiteral("&Envelope"), envelope_, "envelope", {envelope});
  auto* file = new QPushButton(QStringLiteral("From &file..."));
  file->setAutoDefault(false);
  connect(file, &QPushButton::clicked, this, &ZonesDialog::openFile);
  addRow({}, file, "file", {envelope});
}

/// An envelope to choose from, once.
void ZonesDialog::offer(const Envelope& envelope) {
  if (std::find(envelopes_.begin(), envelopes_.end(), envelope) != envelopes_.end()) return;
  const QSignalBlocker silent(envelope_);
  envelopes_.push_back(envelope);
  envelope_->addItem(qText(titleOf(envelope)));
}

void ZonesDialog::add() {
  zones_.emplace_back(ComfortZone{});
  list_->addItem(qText(titleOf(zones_.back())));
  list_->setCurrentRow(list_->count() - 1);
  select();
}

void ZonesDialog::remove() {
  const int row = list_->currentRow();
  if (row < 0) return;
  zones_.erase(zones_.begin() + row);
  delete list_->takeItem(row);
  select();
}

void ZonesDialog::openFile() {
  const QString name = QFileDialog::getOpenFileName(this, QStringLiteral("Envelope"), {}, QStringLiteral("*.json"));
  if (name.isEmpty()) return;
  const auto path = nativeName(name);
  if (!path) return fault_->setText(QStringLiteral("The name of the file has bytes that cannot be shown; rename it"));
  const Result<Envelope> envelope = readEnvelopeFile(*path);
  if (!envelope) return fault_->setText(qText(envelope.error().text()));
  offer(*envelope);
  const auto found = std::find(envelopes_.begin(), envelopes_.end(), *envelope);
  envelope_->setCurrentIndex(static_cast<int>(found - envelopes_.begin()));
}

void ZonesDialog::select() {
  const int row = list_->currentRow();
  const bool any = row >= 0 && static_cast<std::size_t>(row) < zones_.size();
  for (const Row& at : rows_) at.input->setEnabled(any);
  remove_->setEnabled(any);
  if (any) show(zones_[static_cast<std::size_t>(row)]);
  fault_->clear();
  accept_->setEnabled(true);
}

void ZonesDialog::show(const Zone& zone) {
  std::vector<QSignalBlocker> silent;
  for (const Row& row : rows_) silent.emplace_back(row.input);
  const auto kind = static_cast<Kind>(zone.index());
  kind_->setCurrentIndex(static_cast<int>(kind));
  const auto* comfort = std::get_if<ComfortZone>(&zone);
  const auto* adaptive = std::get_if<AdaptiveZone>(&zone);
  const ComfortZone values = comfort != nullptr ? *comfort : ComfortZone{};
  const AdaptiveZone band = adaptive != nullptr ? *adaptive : AdaptiveZone{};
  const Occupant& person = values.occupant;
  method_->setCurrentIndex(static_cast<int>(person.method));
  met_->setText(numberOf(person.met));
  clo_->setText(numberOf(person.clo));
  speed_->setText(numberOf(adaptive != nullptr ? band.airSpeed : person.airSpeed));
  radiant_->setText(numberOf(adaptive != nullptr ? band.radiant : person.radiant));
  moving_->setChecked(person.movingBody);
  vote_->setText(numberOf(values.mostVote));
  dewPoint_->setText(numberOf(values.mostDewPoint));
  mean_->setText(numberOf(band.runningMean));
  accepting_->setCurrentIndex(band.accepting == 90 ? 1 : 0);
  if (const auto* envelope = std::get_if<Envelope>(&zone)) {
    const auto found = std::find(envelopes_.begin(), envelopes_.end(), *envelope);
    envelope_->setCurrentIndex(static_cast<int>(found - envelopes_.begin()));
  }
  showKind(kind);
}

void ZonesDialog::showKind(Kind kind) {
  for (const Row& row : rows_) {
    const bool has = std::find(row.kinds.begin(), row.kinds.end(), kind) != row.kinds.end();
    form_->setRowVisible(row.input, has);
  }
}

Result<Zone> ZonesDialog::readComfort() const {
  ComfortZone zone;
  Occupant& person = zone.occupant;
  person.method = static_cast<ComfortMethod>(method_->currentIndex());
  person.movingBody = moving_->isChecked();
  for (const Outcome& taken :
       {take(*met_, person.met), take(*clo_, person.clo), take(*speed_, person.airSpeed),
        take(*radiant_, person.radiant), take(*vote_, zone.mostVote), take(*dewPoint_, zone.mostDewPoint)}) {
    if (!taken) return taken.error();
  }
  return Zone(zone);
}

Result<Zone> ZonesDialog::readAdaptive() const {
  AdaptiveZone zone;
  zone.accepting = accepting_->currentIndex() == 1 ? 90 : 80;
  for (const Outcome& taken :
       {take(*mean_, zone.runningMean), take(*speed_, zone.airSpeed), take(*radiant_, zone.radiant)}) {
    if (!taken) return taken.error();
  }
  return Zone(zone);
}

Result<Zone> ZonesDialog::read() const {
  switch (static_cast<Kind>(kind_->currentIndex())) {
    case Kind::comfort: return readComfort();
    case Kind::adaptive: return readAdaptive();
    case Kind::envelope: break;
  }
  const auto chosen = static_cast<std::size_t>(envelope_->currentIndex());
  if (chosen >= envelopes_.size()) return Error{ErrorCode::noResult, "envelope", "choose one, or open a file"};
  return Zone(envelopes_[chosen]);
}

/// What the form says becomes the selected zone, unless something of it is wrong.
void ZonesDialog::follow() {
  const int row = list_->currentRow();
  if (row < 0) return;
  showKind(static_cast<Kind>(kind_->currentIndex()));
  const Result<Zone> zone = read();
  const Outcome checked = zone ? checkZone(*zone) : Outcome(zone.error());
  fault_->setText(checked ? QString() : qText(checked.error().text()));
  accept_->setEnabled(static_cast<bool>(checked));
  if (!checked) return;
  zones_[static_cast<std::size_t>(row)] = *zone;
  list_->item(row)->setText(qText(titleOf(*zone)));
}

}  // namespace moistair
