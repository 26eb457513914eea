#include "windows/mixingwindow.h"

#include <QFontMetrics>
#include <QFrame>
#include <QMenu>
#include <QShortcut>
#include <QVBoxLayout>

#include "log/mixingblock.h"
#include "toolkit/messages.h"
#include "toolkit/valuebox.h"

namespace moistair {

namespace {

/// Columns of the grid: between two rules are a blank indent, the lists and the value boxes. The rows of the table
/// below use the indent, so that a column of numbers is set in from its rule.
constexpr int captionColumn = 0;
constexpr std::array<int, 3> ruleColumns = {1, 5, 9};
constexpr std::array<int, 3> indentColumns = {2, 6, 10};
constexpr int gridColumns = 12;
constexpr int indentWidth = 20;  // pixels
constexpr int margin = 16;       // pixels

/// Rows of the grid: each row of read-outs is followed by one for its rule, from the flow on.
constexpr int headRow = 1;
constexpr int flowRow = 5;
constexpr int readoutRow(std::size_t readout) { return flowRow + 2 * static_cast<int>(readout); }
constexpr std::array<int, 2> headRules = {0, 2};
constexpr int lastRule = readoutRow(shownReadouts - 1) + 1;

/// Labels come behind all inputs.
constexpr int labelTab = 100;

constexpr Control parameters{"Label51", "Parameters", "", {headRow, captionColumn}, labelTab};

struct StreamControls {
  Control head, kind1, value1, kind2, value2, flow;
};

constexpr std::array<StreamControls, 2> streamControls = {{
    {{"Label19", columnHeads[0], "", {headRow, 2, 1, 3}, labelTab},
     {"Combo1", "", "", {3, 2, 1, 2}, 9},
     {"Text4", "", "", {3, 4}, 3},
     {"Combo2", "", "", {4, 2, 1, 2}, 8},
     {"Text5", "", "", {4, 4}, 2},
     {"Text2", "", "", {flowRow, 3}, 5}},
    {{"Label21", columnHeads[1], "", {headRow, 6, 1, 3}, labelTab},
     {"Combo3", "", "", {3, 6, 1, 2}, 7},
     {"Text6", "", "", {3, 8}, 1},
     {"Combo4", "", "", {4, 6, 1, 2}, 6},
     {"Text7", "", "", {4, 8}, 0},
     {"Text3", "", "", {flowRow, 7}, 4}},
}};

constexpr Control mixedHead{"Label22", columnHeads[2], "", {headRow, 10, 1, 2}, labelTab};

/// Layout names of one row of read-outs; the streams' flows are inputs.
struct ReadoutNames {
  const char* caption;
  std::array<const char*, 3> columns;
};

constexpr std::array<ReadoutNames, readoutCount> readoutNames = {{
    {"Label17", {nullptr, nullptr, "Label50"}},
    {"Label20", {"Label23", "Label32", "Label41"}},
    {"Label16", {"Label24", "Label33", "Label42"}},
    {"Label15", {"Label25", "Label34", "Label43"}},
    {"Label13", {"Label26", "Label35", "Label44"}},
    {"Label12", {"Label27", "Label36", "Label45"}},
    {"Label2", {"Label28", "Label37", "Label46"}},
    {"Label1", {"Label29", "Label38", "Label47"}},
    {"Label14", {"Label30", "Label39", "Label48"}},
    {"Label18", {"Label31", "Label40", "Label49"}},
    {"Label52", {"Label56", "Label60", "Label64"}},
    {"Label53", {"Label57", "Label61", "Label65"}},
    {"Label54", {"Label58", "Label62", "Label66"}},
    {"Label55", {"Label59", "Label63", "Label67"}},
}};

/// What a click on the line of a stream does, for the keyboard.
constexpr std::array<QKeyCombination, 2> exactKeys = {Qt::CTRL | Qt::Key_1, Qt::CTRL | Qt::Key_2};
constexpr QKeyCombination exactMixtureKeys = Qt::CTRL | Qt::Key_3;

constexpr Control drawControl{"Command1", "Draw mixing line and points on the chart", "", {0, 0}, 10};
constexpr Control saveControl{"Command3", "Save data", "", {0, 1}, 11};
constexpr Control exitControl{"Command4", "Exit and return to chart", "", {0, 2}, 12};

QLabel* addHead(ControlMaker& maker, QGridLayout& grid, const Control& control) {
  auto* head = maker.add<QLabel>(grid, control);
  QFont font = head->font();
  font.setBold(true);
  head->setFont(font);
  return head;
}

void addRule(QGridLayout& grid, QFrame::Shape shape, const Cell& cell) {
  auto* rule = new QFrame;
  rule->setFrameStyle(shape | QFrame::Plain);
  rule->setForegroundRole(QPalette::Mid);
  grid.addWidget(rule, cell.row, cell.column, cell.rows, cell.columns);
}

void addRules(QGridLayout& grid) {
  for (const int row : headRules) addRule(grid, QFrame::HLine, {row, 0, 1, gridColumns});
  for (std::size_t row = 0; row < shownReadouts; ++row) {
    addRule(grid, QFrame::HLine, {readoutRow(row) + 1, 0, 1, gridColumns});
  }
  for (const int column : ruleColumns) addRule(grid, QFrame::VLine, {0, column, lastRule + 1, 1});
}

/// The columns do not change their width while somebody types: they are as wide as any usual value needs.
void setWidths(QGridLayout& grid, const QFontMetrics& font, const std::string& pressureCaption) {
  const int value = font.horizontalAdvance(QStringLiteral("-00000.0000000"));
  grid.setColumnMinimumWidth(captionColumn, font.size(0, QString::fromStdString(pressureCaption)).width());
  for (const int column : indentColumns) grid.setColumnMinimumWidth(column, indentWidth);
  for (const int column : {4, 8}) grid.setColumnMinimumWidth(column, value);
  grid.setColumnMinimumWidth(11, value);
  for (const int column : {4, 8, 11}) grid.setColumnStretch(column, 1);
}

/// "A: db 75, wb 62.5"
std::string titleOf(const MarkedPoint& point) {
  const auto& [one, two] = point.given;
  const std::string pair = std::string(nameOf(one.kind)) + ' ' + one.value + ", " + nameOf(two.kind) + ' ' + two.value;
  return point.identification.empty() ? pair : point.identification + ": " + pair;
}

}  // namespace

MixingWindow::MixingWindow(MixingPressure pressure, MixingChart chart, LastStreams& last, QWidget* main)
    : Dialog(main, QStringLiteral("Form5"), QStringLiteral("Mixing problem")), chart_(std::move(chart)), last_(last) {
  problem_.pressure = std::move(pressure);
  ControlMaker maker(*this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  layout->addLayout(makeTable(maker));
  layout->addStretch(1);
  layout->addLayout(makeNotes());
  layout->addLayout(makeButtons(maker));
  maker.setTabOrder();
  layout->addLayout(makeTakeButtons());  // behind all others, as in the tab order
  for (std::size_t stream = 0; stream < inputs_.size(); ++stream) {
    connectInputs(stream);
    inputs_[stream].kind1->select(0);
    inputs_[stream].kind2->select(1);
  }
  inputs_[1].value2->setFocus();
}

QLayout* MixingWindow::makeTable(ControlMaker& maker) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(margin / 2);
  grid->setVerticalSpacing(margin / 2);
  addHead(maker, *grid, parameters);
  for (std::size_t stream = 0; stream < inputs_.size(); ++stream) makeInputs(maker, *grid, stream);
  addHead(maker, *grid, mixedHead);
  makeReadouts(maker, *grid);
  addRules(*grid);
  setWidths(*grid, fontMetrics(), pressureCaption(problem_.pressure.entry));
  return grid;
}

void MixingWindow::makeInputs(ControlMaker& maker, QGridLayout& grid, std::size_t stream) {
  const StreamControls& controls = streamControls[stream];
  Inputs& inputs = inputs_[stream];
  addHead(maker, grid, controls.head);
  inputs.kind1 = maker.add<ListBox>(grid, controls.kind1);
  inputs.value1 = maker.add<ValueBox>(grid, controls.value1);
  inputs.kind2 = maker.add<ListBox>(grid, controls.kind2);
  inputs.value2 = maker.add<ValueBox>(grid, controls.value2);
  inputs.flow = maker.add<ValueBox>(grid, controls.flow);
  for (ListBox* list : {inputs.kind1, inputs.kind2}) list->fill(kindTexts);
  const QString name = QStringLiteral("Stream %1, ").arg(stream + 1);
  nameList(*inputs.kind1, name + QStringLiteral("first property"));
  nameInput(*inputs.value1, name + QStringLiteral("value of the first property"));
  nameList(*inputs.kind2, name + QStringLiteral("second property"));
  nameInput(*inputs.value2, name + QStringLiteral("value of the second property"));
  nameInput(*inputs.flow, name + QStringLiteral("air flow rate in actual cubic feet per minute"));
}

void MixingWindow::makeReadouts(ControlMaker& maker, QGridLayout& grid) {
  for (std::size_t row = 0; row < readoutCount; ++row) {
    const ReadoutNames& names = readoutNames[row];
    const char* text = readoutRows[row].caption != nullptr ? readoutRows[row].caption : "";
    auto* caption = maker.add<QLabel>(grid, {names.caption, text, "", {readoutRow(row), captionColumn}, labelTab});
    if (readoutRows[row].caption == nullptr) pressureCaption_ = caption;
    if (row >= shownReadouts) caption->hide();
    for (std::size_t column = 0; column < readouts_.size(); ++column) {
      if (names.columns[column] == nullptr) continue;
      readouts_[column][row] = addReadout(maker, grid, names.columns[column], row, column);
    }
  }
}

QLabel* MixingWindow::addReadout(ControlMaker& maker, QGridLayout& grid, const char* name, std::size_t row,
                                 std::size_t column) {
  const int width = ruleColumns.size() == column + 1 ? 1 : 2;
  const Cell cell{readoutRow(row), indentColumns[column] + 1, 1, width};
  auto* readout = maker.add<QLabel>(grid, {name, "", "", cell, labelTab});
  makeReadout(*readout);
  const bool asEntered = readoutRows[row].text == &AirStream::pressure;  // of any length: it must not widen the window
  if (asEntered) readout->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  if (row >= shownReadouts) readout->hide();
  return readout;
}

/// Their room is kept while there is nothing to say.
QLayout* MixingWindow::makeNotes() {
  auto* lines = new QVBoxLayout;
  lines->setSpacing(2);
  for (std::size_t stream = 0; stream < notesLines_.size(); ++stream) {
    notesLines_[stream] = new MessageLine(this);
    notesLines_[stream]->setObjectName(QStringLiteral("note%1").arg(stream + 1));
    lines->addWidget(notesLines_[stream]);
    const auto exact = [this, stream] { useExact(stream); };
    connect(notesLines_[stream], &MessageLine::clicked, this, exact);
    connect(new QShortcut(exactKeys[stream], this), &QShortcut::activated, this, exact);
  }
  mixtureLine_ = new MessageLine(this);
  mixtureLine_->setObjectName(QStringLiteral("note3"));
  lines->addWidget(mixtureLine_);
  connect(mixtureLine_, &MessageLine::clicked, this, &MixingWindow::useExactMixture);
  connect(new QShortcut(exactMixtureKeys, this), &QShortcut::activated, this, &MixingWindow::useExactMixture);
  const std::string pressure = pressureRemark(problem_.pressure);
  if (!pressure.empty()) {
    auto* line = new MessageLine(this);
    line->setObjectName(QStringLiteral("pressurenote"));
    showNote(*line, {pressure, true});
    lines->addWidget(line);
  }
  return lines;
}

QLayout* MixingWindow::makeButtons(ControlMaker& maker) {
  auto* grid = new QGridLayout;
  auto* drawButton = maker.add<QPushButton>(*grid, drawControl);
  saveButton_ = maker.add<QPushButton>(*grid, saveControl);
  auto* exitButton = maker.add<QPushButton>(*grid, exitControl);
  for (QPushButton* button : {drawButton, saveButton_, exitButton}) button->setAutoDefault(false);
  connect(drawButton, &QPushButton::clicked, this, &MixingWindow::onDraw);
  connect(saveButton_, &QPushButton::clicked, this, &MixingWindow::onSave);
  connect(exitButton, &QPushButton::clicked, this, &MixingWindow::leave);
  return grid;
}

QLayout* MixingWindow::makeTakeButtons() {
  auto* row = new QHBoxLayout;
  auto* button = new QPushButton(QStringLiteral("&Last problem"), this);
  button->setObjectName(QStringLiteral("lastproblem"));
  button->setToolTip(QStringLiteral("Fill in what was typed when this window was last left"));
  button->setAutoDefault(false);
  button->setEnabled(last_.has_value());
  pressByReturn(*button);
  connect(button, &QPushButton::clicked, this, [this] { fill(*last_); });
  row->addWidget(button);
  row->addWidget(makePointButton());
  answer_ = new MessageLine(this);
  answer_->setObjectName(QStringLiteral("answer"));
  row->addWidget(answer_, 1);
  return row;
}

/// A menu of the marked points for each stream.
QPushButton* MixingWindow::makePointButton() {
  auto* button = new QPushButton(QStringLiteral("Take a &point"), this);
  button->setObjectName(QStringLiteral("takepoint"));
  button->setToolTip(QStringLiteral("Fill in the two given properties of a marked point"));
  button->setAutoDefault(false);
  button->setEnabled(!chart_.points.empty());
  auto* menu = new QMenu(button);
  for (std::size_t number = 0; number < inputs_.size(); ++number) {
    QMenu* points = menu->addMenu(QStringLiteral("Stream &%1").arg(number + 1));
    for (const MarkedPoint& point : chart_.points) {
      points->addAction(QString::fromStdString(titleOf(point)).replace(QLatin1Char('&'), QStringLiteral("&&")), this,
                        [this, number, &point] { fillPair(number, streamOf(point)); });
    }
  }
  button->setMenu(menu);
  return button;
}

void MixingWindow::connectInputs(std::size_t stream) {
  const Inputs& inputs = inputs_[stream];
  const auto change = [this, stream] { onChange(stream); };
  for (ListBox* list : {inputs.kind1, inputs.kind2}) connect(list, &ListBox::chosen, this, change);
  for (const ListBox* list : {inputs.kind1, inputs.kind2}) {
    connect(list, &QComboBox::editTextChanged, this, [this, stream] { judge(stream); });
  }
  for (QLineEdit* box : {inputs.flow, inputs.value1, inputs.value2}) {
    connect(box, &QLineEdit::textChanged, this, change);
  }
}

void MixingWindow::readInputs(MixingProblem& problem, std::size_t number) const {
  const Inputs& inputs = inputs_[number];
  AirStream& stream = problem.streams[number];
  stream.kind1 = kindAt(inputs.kind1->selected());
  stream.kind2 = kindAt(inputs.kind2->selected());
  stream.value1 = inputs.value1->text().toStdString();
  stream.value2 = inputs.value2->text().toStdString();
  stream.flow = inputs.flow->text().toStdString();
}

void MixingWindow::answer(const QString& words) { answer_->setMessage(words); }

void MixingWindow::onChange(std::size_t number) {
  answer_->setMessage({});
  readInputs(problem_, number);
  const Resolution resolution = resolveStream(problem_, number);
  problem_.exactMixture = false;
  mixStreams(problem_);
  showProblem();
  showNotes(problem_, number, resolution);
  showNotes();
}

/// Of the mixed stream, whose wet bulb comes from a search in tenths.
void MixingWindow::showNotes() {
  const bool exact = problem_.mixed.exact;
  Remark remark;
  if (exact) {
    remark.words = "the mixed stream has its exact state";
  } else if (problem_.savable) {
    const auto& [one, two] = problem_.streams;
    const double atm = problem_.pressure.atm;
    remark = remarkOn(judgedMixture(one, two, problem_.mixed, atm), atm, true);
  }
  const bool offers = remark.exact.has_value();
  const QString keys = QKeySequence(exactMixtureKeys).toString(QKeySequence::NativeText);
  mixtureLine_->setMessage(
      QString::fromStdString(remark.words), exact || remark.words.empty() ? BoxMark::none : BoxMark::note, offers,
      offers ? QStringLiteral("Click to have the exact state in the column (%1).").arg(keys) : QString());
}

/// Until an input changes.
void MixingWindow::useExactMixture() {
  if (!mixtureLine_->clickable()) return;
  problem_.exactMixture = true;
  mixStreams(problem_);
  showProblem();
  showNotes();
}

/// A text typed into a list leaves the columns as they are, but is reported.
void MixingWindow::judge(std::size_t number) {
  MixingProblem problem = problem_;
  readInputs(problem, number);
  const Resolution resolution = resolveStream(problem, number);
  showNotes(problem, number, resolution);
}

void MixingWindow::showNotes(const MixingProblem& problem, std::size_t number, const Resolution& resolution) {
  const StreamNotes& notes = notes_[number] = streamNotes(problem, number, resolution);
  setNotes(inputs_[number], notes.pair);
  setNote(*inputs_[number].flow, notes.flow);
  showRemark(*notesLines_[number], notes.pair, exactKeys[number]);
}

void MixingWindow::useExact(std::size_t number) {
  const auto exact = notes_[number].pair.remark.exact;
  if (exact) putExact(*exact, inputs_[number]);
}

void MixingWindow::showProblem() {
  const std::array<const AirStream*, 3> columns = {&problem_.streams[0], &problem_.streams[1], &problem_.mixed};
  for (std::size_t column = 0; column < columns.size(); ++column) {
    for (std::size_t row = 0; row < readoutCount; ++row) {
      QLabel* readout = readouts_[column][row];
      if (readout != nullptr) readout->setText(QString::fromStdString(columns[column]->*readoutRows[row].text));
    }
  }
  pressureCaption_->setText(QString::fromStdString(problem_.pressureCaption));
  saveButton_->setEnabled(problem_.savable);
}

/// Types a problem in, so that all follows as if a person did.
void MixingWindow::fill(const std::array<AirStream, 2>& streams) {
  for (std::size_t number = 0; number < streams.size(); ++number) {
    const AirStream& stream = streams[number];
    const Inputs& inputs = inputs_[number];
    inputs.flow->clear();
    fillPair(number, stream);
    inputs.flow->setText(QString::fromStdString(stream.flow));
  }
}

void MixingWindow::fillPair(std::size_t number, const AirStream& stream) {
  const Inputs& inputs = inputs_[number];
  for (QLineEdit* box : {inputs.value1, inputs.value2}) box->clear();
  if (stream.kind1) inputs.kind1->select(static_cast<int>(*stream.kind1));
  if (stream.kind2) inputs.kind2->select(static_cast<int>(*stream.kind2));
  inputs.value1->setText(QString::fromStdString(stream.value1));
  inputs.value2->setText(QString::fromStdString(stream.value2));
}

/// Nothing typed is no problem.
void MixingWindow::remember() {
  const auto typed = [](const AirStream& stream) {
    return !(stream.value1.empty() && stream.value2.empty() && stream.flow.empty());
  };
  if (typed(problem_.streams[0]) || typed(problem_.streams[1])) last_ = problem_.streams;
}

void MixingWindow::onSave() { Q_EMIT saveChosen(mixingBlock(problem_)); }

void MixingWindow::onDraw() {
  readLimits(chart_.limits(), limits_);
  if (const char* rejection = chart_.draw(problem_, limits_); rejection != nullptr) {
    message(this, QString::fromUtf8(rejection));
  } else {
    remember();
    Q_EMIT drawn();
  }
}

void MixingWindow::leave() {
  remember();
  Q_EMIT left();
}

}  // namespace moistair
