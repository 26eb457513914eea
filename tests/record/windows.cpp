// Every window in some states: what it shows and offers, and what each of its buttons and menu entries does.
#include <QClipboard>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>

#include "record/recorder.h"
#include "record/session.h"
#include "windows/readinglayer.h"
#include "windows/sheetdialog.h"

namespace moistair::record {

namespace {

using windowtest::action;
using windowtest::click;
using windowtest::control;
using windowtest::select;
using windowtest::type;

/// One file: stages with their captions.
class Book {
public:
  Book(const std::filesystem::path& folder, std::string name) : folder_(folder), name_(std::move(name)) {}
  ~Book() { write(folder_, name_, text_); }
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;

  void stage(const Session& session, const std::string& caption, const Lines& lines) {
    text_ += "== " + session.plain(caption) + "\n";
    for (const std::string& line : lines) text_ += session.plain(line) + "\n";
  }

private:
  const std::filesystem::path& folder_;
  std::string name_, text_;
};

/// A window in a state: how the program gets there.
struct State {
  const char* name;
  std::function<QWidget&(Session&)> reach;
  Session::StartState startState = Session::onChart;
};

void typeAll(QWidget& window, std::initializer_list<std::pair<const char*, const char*>> texts) {
  for (const auto& [box, text] : texts) type(window, box, text);
}

constexpr std::initializer_list<std::pair<const char*, const char*>> streams = {
    {"Text4", "75"}, {"Text5", "62.5"}, {"Text2", "1000"}, {"Text6", "95"}, {"Text7", "75"}, {"Text3", "500"}};

/// A chart with one of everything, saved once, its point under the pointer, and another pressure current.
QWidget& work(Session& session) {
  session.addLineAndPoint();
  typeAll(session.window, {{"Text2", "61"}, {"Text3", "27"}, {"Text6", "13.6"}});
  QWidget& mixing = session.open("Command13", "Form5");
  typeAll(mixing, streams);
  click(mixing, "Command1");
  session.point(60, 0.006);
  session.keys(Qt::Key_P);
  session.attendant.path = [&](const QFileDialog&) { return session.path("room.moistair"); };
  action(session.window, "Sa&ve").trigger();
  session.attendant.path = [&](const QFileDialog& dialog) { return session.fileFor(dialog); };
  type(session.window, "Text1", "40");
  click(session.window, "Command5");
  session.settle();
  session.point(75, 0.0092932);
  return session.window;
}

QWidget& pressure(Session& session, const char* value, int unit = 3) {
  QWidget& window = session.open("Command4", "Form2");
  select(window, "Combo1", unit);
  type(window, "Text1", value);
  return window;
}

void setPressure(Session& session) { click(pressure(session, "5000"), "Command1"); }

QWidget& report(Session& session) {
  session.typePoint("75", "62.5");
  type(session.window, "Text7", "Room & <b>");
  return session.open("Command14", "Form3");
}

QWidget& mixing(Session& session) {
  QWidget& window = session.open("Command13", "Form5");
  typeAll(window, streams);
  return window;
}

QWidget& panel(Session& session) {
  work(session);
  action(session.window, "&Points and lines").trigger();
  auto& panel = control<QWidget>(session.window, "entries");
  panel.findChild<QTableView*>()->selectRow(2);
  return panel;
}

QWidget& chartType(Session& session) {
  select(session.window, "Combo4", 8);
  QWidget& window = session.open("Command3", "Form6");
  click(window, "Option2");
  return window;
}

QWidget& menuAt(Session& session, double db, double w) {
  session.addLineAndPoint();
  session.point(db, w);
  QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(), QPoint(10, 10));
  QApplication::sendEvent(&session.graph, &event);
  return *QApplication::activePopupWidget();
}

const State states[] = {
    {"main-empty", [](Session& s) -> QWidget& { return s.window; }, Session::onEmptyChart},
    {"main-work", work},
    {"main-remarks",
     [](Session& s) -> QWidget& {
       select(s.window, "Combo1", 4);
       select(s.window, "Combo2", 5);
       s.typePoint("13.68", "27.65");
       typeAll(s.window, {{"Text1", "5o"}, {"Text2", "130"}});
       select(s.window, "Combo4", 10);
       return s.window;
     }},
    {"main-other-pressure",
     [](Session& s) -> QWidget& {
       setPressure(s);
       s.drawChart();
       s.typePoint("75", "62.5");
       click(s.window, "Command4");
       s.returnToChart();
       return s.window;
     }},
    {"pressure-start", [](Session& s) -> QWidget& { return s.dialog("Form2"); }, Session::atStart},
    {"pressure-elevation", [](Session& s) -> QWidget& { return pressure(s, "5000"); }},
    {"pressure-refused", [](Session& s) -> QWidget& { return pressure(s, "2.89", 2); }},
    {"report", report},
    {"report-unnamed",
     [](Session& s) -> QWidget& {
       setPressure(s);
       s.drawChart();
       s.typePoint("75", "62.5");
       return s.open("Command14", "Form3");
     }},
    {"log",
     [](Session& s) -> QWidget& {
       click(report(s), "Command3");
       click(s.dialog("Form3"), "Command2");
       click(mixing(s), "Command3");
       click(s.dialog("Form5"), "Command4");
       return s.open("Command1", "Form4");
     }},
    {"mixing", mixing},
    {"mixing-empty", [](Session& s) -> QWidget& { return s.open("Command13", "Form5"); }},
    {"mixing-faults",
     [](Session& s) -> QWidget& {
       QWidget& window = s.open("Command13", "Form5");
       select(window, "Combo1", 4);
       select(window, "Combo2", 5);
       typeAll(window, {{"Text4", "13.68"},
                        {"Text5", "27.65"},
                        {"Text2", "12,000"},
                        {"Text6", "95"},
                        {"Text7", "101"},
                        {"Text3", "-5"}});
       return window;
     }},
    {"charttype", chartType},
    {"panel", panel},
    {"menu-on-point", [](Session& s) -> QWidget& { return menuAt(s, 75, 0.0092932); }},
    {"menu-on-air", [](Session& s) -> QWidget& { return menuAt(s, 90, 0.012); }},
};

/// What each button and entry does, each in a program of its own.
void recordEffects(const std::filesystem::path& folder, const State& state) {
  Book book(folder, std::string("does-") + state.name);
  for (std::size_t i = 0;; ++i) {
    Session session(state.startState);
    QWidget& window = state.reach(session);
    session.settle();
    const std::vector<Offer> offers = offersOf(window);
    if (i == offers.size()) break;
    session.attendant.asked.clear();
    session.attendant.name = QStringLiteral("Office");
    std::string pressed;
    for (auto* button : session.window.findChildren<QAbstractButton*>()) {
      QObject::connect(button, &QAbstractButton::clicked, &session.window,
                       [&pressed, button] { pressed += ", presses " + button->objectName().toStdString(); });
    }
    Lines before = session.seen();
    offers[i].press();
    session.settle();
    book.stage(session, offers[i].name + pressed, session.changes(before, true));
  }
}

void recordState(const std::filesystem::path& folder, const State& state) {
  Book book(folder, state.name);
  Session session(state.startState);
  QWidget& window = state.reach(session);
  session.settle();
  if (qobject_cast<QMenu*>(&window) != nullptr) return book.stage(session, "menu", menus(window));
  book.stage(session, "window", shown(window));
  if (auto* bar = window.findChild<QMenuBar*>()) book.stage(session, "menus", menus(*bar));
  if (&window == &session.window) book.stage(session, "chart", session.drawn());
}

/// What is painted where somebody points, and what a screen reader is told.
void recordReading(const std::filesystem::path& folder) {
  Book book(folder, "reading");
  Session session(Session::onChart, true);
  auto& layer = control<ReadingLayer>(session.window, "reading");
  const auto look = [&](const char* caption, double db, double w, bool keys = false) {
    if (!keys) session.point(db, w, Qt::NoModifier);
    session.stopped.running = true;
    const QString told = QString::fromStdString(session.told());
    session.stopped.running = false;
    QStringList texts = {QString::fromUtf8(wordsOf(NoReading::aboveSaturation)),
                         QString::fromUtf8(wordsOf(NoReading::outsideLimits)), QStringLiteral("Point A")};
    for (const PropertyKind kind : shownOrder) {
      texts << QString::fromUtf8(propertyOf(kind).shortCaption) << QString::fromUtf8(propertyOf(kind).unit);
    }
    for (const QString& word : told.split(QRegularExpression(QStringLiteral("[ ,:]+")))) {
      if (!word.isEmpty() && (word[0].isDigit() || word[0] == u'-' || word[0] == u'.')) texts << word;
    }
    Lines lines = {"told: " + told.toStdString()};
    for (std::string& row : readTexts(session.graph.grab().toImage(), layer.font(), texts))
      lines.push_back(std::move(row));
    book.stage(session, caption, lines);
  };
  look("air", 80.5, 0.011);
  look("a point", 75, 0.0092932);
  look("above saturation", 50, 0.02);
  look("outside", 121, 0.02);
  session.keys(Qt::Key_Right);
  session.keys(Qt::Key_Up);
  look("by keys", 0, 0, true);
}

std::string titleBlock(const std::string& svg) {
  std::string texts;
  for (std::size_t at = svg.find(">TITLE<");
       at != std::string::npos && (at = svg.find("<text", at)) != std::string::npos;) {
    at = svg.find('>', at) + 1;
    texts += svg.substr(at, svg.find('<', at) - at) + "|";
  }
  return texts;
}

void recordSheetDialog(const std::filesystem::path& folder) {
  Book book(folder, "sheet-dialog");
  Session session;
  session.addLineAndPoint();
  session.attendant.path = [&](const QFileDialog&) { return session.path("s.svg"); };
  const auto fields = [](QDialog& dialog) { return dialog.findChildren<QLineEdit*>(); };
  int round = 0;
  session.attendant.other = [&](QDialog& dialog) {
    if (dialog.objectName() != u"exportsheet") return dialog.reject();
    book.stage(session, "opened " + std::to_string(++round), shown(dialog));
    const QStringList texts = {QStringLiteral("The title"), QStringLiteral("The project"), QStringLiteral("The writer"),
                               QStringLiteral("2020-01-31")};
    const QList<QLineEdit*> boxes = fields(dialog);
    int next = 0;
    for (QLineEdit* box : boxes) {
      if (box->objectName() != u"size" && box->parentWidget() == &dialog && next < texts.size())
        box->setText(texts[next++]);
    }
    control<QComboBox>(dialog, "page").setCurrentIndex(round == 1 ? static_cast<int>(namedPages.size()) : 1);
    if (round == 1) type(dialog, "size", "20x");
    book.stage(session, "changed " + std::to_string(round), shown(dialog));
    if (round == 1) type(dialog, "size", "900x600");
    if (round == 1) {
      for (auto* box : dialog.findChildren<QAbstractButton*>()) {
        if (box->isCheckable() && box->text().contains(QStringLiteral("rotractor"))) box->click();
      }
    }
    click(dialog, "export");
  };
  for (int i = 0; i < 2; ++i) {
    action(session.window, "Export s&heet").trigger();
    const std::string svg = session.file("s.svg");
    book.stage(session, "written",
               {titleBlock(svg), svg.substr(svg.find("viewBox"), 30),
                svg.find("Sensible heat") == std::string::npos ? "no protractor" : "protractor"});
  }
}

/// Documents saved under one name twice and under another: each is offered once, the latest first.
void recordRecent(const std::filesystem::path& folder) {
  Book book(folder, "recent");
  Session session;
  for (const char* name : {"a.moistair", "b.moistair", "a.moistair"}) {
    session.attendant.path = [&, name](const QFileDialog&) { return session.path(name); };
    action(session.window, "Save &as").trigger();
    session.settle();
  }
  book.stage(session, "after a, b, a", menus(*session.window.menuBar()));
}

/// What is put on a chart again, at another pressure.
void recordCarriedOver(const std::filesystem::path& folder) {
  Book book(folder, "carried-over");
  Session session;
  work(session);
  setPressure(session);
  session.drawChart();
  session.settle();
  Lines before = session.seen();
  action(session.window, "&Again").trigger();
  session.settle();
  book.stage(session, "at 5000 ft", session.changes(before, true));
}

}  // namespace

void windows(const std::filesystem::path& folder) {
  for (const State& state : states) {
    recordState(folder, state);
    const std::string name = state.name;
    const bool plain = name == "main-work" || name == "pressure-elevation" || name == "report" || name == "mixing" ||
                       name == "charttype" || name == "panel" || name.starts_with("menu") || name == "main-empty";
    if (plain) recordEffects(folder, state);
  }
  recordReading(folder);
  recordSheetDialog(folder);
  recordRecent(folder);
  recordCarriedOver(folder);
}

}  // namespace moistair::record
