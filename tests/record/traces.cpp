// Random sequences of commands, and what each of them changes of all that can be seen.
#include <QComboBox>
#include <QCryptographicHash>
#include <QTableView>

#include "record/recorder.h"
#include "record/session.h"

namespace moistair::record {

namespace {

using windowtest::action;
using windowtest::click;
using windowtest::control;
using windowtest::select;
using windowtest::type;

/// The same numbers everywhere (splitmix64).
class Random {
public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::size_t below(std::size_t end) {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return static_cast<std::size_t>((z ^ (z >> 31U)) % end);
  }

  template <class Items>
  auto of(const Items& items) {
    return items[below(std::size(items))];
  }

private:
  std::uint64_t state_;
};

struct Walk : Session {
  explicit Walk(int number) : Session(atStart), random(static_cast<std::uint64_t>(number) + 1) {
    window.setUpdatesEnabled(false);
  }

  Random random;
  std::string done;  ///< what the command was given

  /// One of some values, which the trace then shows.
  template <class Items>
  auto pick(const Items& items) {
    const auto chosen = random.of(items);
    if constexpr (std::is_arithmetic_v<decltype(chosen)>) {
      done += " " + std::to_string(chosen);
    } else {
      done += std::string(" ") + chosen;
    }
    return chosen;
  }

  void press(const char* form, const char* button) {
    QWidget& owner = form == std::string("Form1") ? window : dialog(form);
    auto& found = control<QAbstractButton>(owner, button);
    done += found.isEnabled() ? "" : " (disabled)";
    found.click();
  }
  void run(const char* entry) {
    QAction& found = action(window, entry);
    done += found.isEnabled() ? "" : " (disabled)";
    found.trigger();
  }
  void enter(const char* form, const char* box, const char* text) {
    control<QLineEdit>(form == std::string("Form1") ? window : dialog(form), box).setText(QString::fromLatin1(text));
  }
};

constexpr const char* dryBulbs[] = {"75", "75", "75", "95", "95", "80", "40", "118", "20", "", "5o"};
constexpr const char* wetBulbs[] = {"62.5", "62.5", "62.5", "61", "70", "74", "38", "12.3", "-5", ""};
constexpr const char* lineValues[] = {"50", "50", "61", "27", "13.6", "13.6", "130", "", "0"};
constexpr const char* entries[] = {"29.92126", "24.9", "14.2", "5000", "5000", "2.89", "1e300", "", "12"};
constexpr const char* names[] = {"A", "", "Room 1", "Supply"};
constexpr const char* files[] = {"", "a.moistair", "b.moistair", "c"};
constexpr std::pair<double, double> places[] = {{75, 0.0092932}, {60, 0.006}, {50, 0.02}, {90, 0.012}, {130, 0.01}};
constexpr std::pair<int, int> sizes[] = {{1024, 748}, {1280, 700}, {1366, 768}};

struct Command {
  const char* form;  ///< that has to be open: Form1 for no dialog
  int weight;
  const char* name;
  void (*run)(Walk& walk);
};

/// A place of the chart, told in the trace.
std::pair<double, double> place(Walk& walk) {
  const auto found = walk.random.of(places);
  walk.done += " " + decimals(found.first) + "/" + std::to_string(found.second);
  return found;
}

const Command commands[] = {
    {"Form1", 9, "draw", [](Walk& w) { w.press("Form1", "Command3"); }},
    {"Form6", 24, "draw chart of type",
     [](Walk& w) {
       constexpr const char* types[] = {"Option1", "Option2"};
       control<QAbstractButton>(w.dialog("Form6"), w.pick(types)).click();
       w.press("Form6", "Command1");
     }},
    {"Form6", 2, "leave chart type", [](Walk& w) { w.press("Form6", "Command2"); }},
    {"Form1", 3, "limits",
     [](Walk& w) {
       constexpr const char* lists[] = {"Combo3", "Combo4", "Combo5", "Combo6"};
       auto& list = control<ListBox>(w.window, w.pick(lists));
       list.select(static_cast<int>(w.random.below(static_cast<std::size_t>(list.count()))));
       w.done += " " + list.currentText().toStdString();
     }},
    {"Form1", 2, "whole limits",
     [](Walk& w) {
       for (const char* list : {"Combo3", "Combo5"}) select(w.window, list, 0);
       for (const char* list : {"Combo4", "Combo6"})
         select(w.window, list, control<ListBox>(w.window, list).count() - 1);
     }},
    {"Form1", 5, "pressure window", [](Walk& w) { w.press("Form1", "Command4"); }},
    {"Form2", 5, "pressure",
     [](Walk& w) {
       constexpr int units[] = {0, 1, 2, 3};
       select(w.dialog("Form2"), "Combo1", w.pick(units));
       w.enter("Form2", "Text1", w.pick(entries));
     }},
    {"Form2", 5, "set pressure", [](Walk& w) { w.press("Form2", "Command1"); }},
    {"Form2", 7, "leave pressure", [](Walk& w) { w.press("Form2", "Command2"); }},
    {"Form1", 8, "line",
     [](Walk& w) {
       constexpr const char* kinds[] = {"Text1", "Text2", "Text3", "Text6"};
       const std::string box = w.pick(kinds);
       w.enter("Form1", box.c_str(), w.pick(lineValues));
       w.press("Form1", box == "Text1"   ? "Command5"
                        : box == "Text2" ? "Command6"
                        : box == "Text3" ? "Command7"
                                         : "Command9");
     }},
    {"Form1", 8, "values",
     [](Walk& w) {
       w.enter("Form1", "Text4", w.pick(dryBulbs));
       w.enter("Form1", "Text5", w.pick(wetBulbs));
     }},
    {"Form1", 2, "kinds",
     [](Walk& w) {
       constexpr int kinds[] = {0, 1, 2, 4};
       select(w.window, "Combo1", w.pick(kinds));
       select(w.window, "Combo2", w.pick(kinds));
     }},
    {"Form1", 1, "usual kinds",
     [](Walk& w) {
       select(w.window, "Combo1", 0);
       select(w.window, "Combo2", 1);
     }},
    {"Form1", 8, "locate",
     [](Walk& w) {
       w.enter("Form1", "Text7", w.pick(names));
       w.press("Form1", "Command14");
     }},
    {"Form3", 8, "mark point", [](Walk& w) { w.press("Form3", "Command1"); }},
    {"Form3", 2, "save point", [](Walk& w) { w.press("Form3", "Command3"); }},
    {"Form3", 2, "leave report", [](Walk& w) { w.press("Form3", "Command2"); }},
    {"Form1", 4, "mixing", [](Walk& w) { w.press("Form1", "Command13"); }},
    {"Form5", 6, "streams",
     [](Walk& w) {
       const std::pair<const char*, const char*> all[] = {{"Text4", w.pick(dryBulbs)}, {"Text5", w.pick(wetBulbs)},
                                                          {"Text2", "1000"},           {"Text6", w.pick(dryBulbs)},
                                                          {"Text7", w.pick(wetBulbs)}, {"Text3", "500"}};
       for (const auto& [box, text] : all) w.enter("Form5", box, text);
     }},
    {"Form5", 2, "last problem", [](Walk& w) { w.press("Form5", "lastproblem"); }},
    {"Form5", 2, "save mixture", [](Walk& w) { w.press("Form5", "Command3"); }},
    {"Form5", 4, "draw mixture", [](Walk& w) { w.press("Form5", "Command1"); }},
    {"Form5", 3, "leave mixing", [](Walk& w) { w.press("Form5", "Command4"); }},
    {"Form1", 3, "clear", [](Walk& w) { w.press("Form1", "Command12"); }},
    {"Form1", 6, "undo", [](Walk& w) { w.run("&Undo"); }},
    {"Form1", 4, "redo", [](Walk& w) { w.run("&Redo"); }},
    {"Form1", 3, "again", [](Walk& w) { w.run("&Again"); }},
    {"Form1", 3, "resize",
     [](Walk& w) {
       const auto [width, height] = w.random.of(sizes);
       w.done += " " + std::to_string(width);
       w.window.resize(width, height);
     }},
    {"Form1", 3, "save chart",
     [](Walk& w) {
       constexpr const char* pictures[] = {"", "p.bmp", "temp.txt"};
       const QString path = QLatin1String(w.pick(pictures));
       w.attendant.path = [&w, path](const QFileDialog&) { return path.isEmpty() ? path : w.folder.filePath(path); };
       w.press("Form1", "Command11");
     }},
    {"Form1", 1, "view log", [](Walk& w) { w.press("Form1", "Command1"); }},
    {"Form4", 1, "leave log", [](Walk& w) { w.press("Form4", "Command1"); }},
    {"Form1", 1, "new", [](Walk& w) { w.run("&New"); }},
    {"Form1", 2, "save as",
     [](Walk& w) {
       const QString path = QLatin1String(w.pick(files));
       w.attendant.path = [&w, path](const QFileDialog&) { return path.isEmpty() ? path : w.folder.filePath(path); };
       w.run("Save &as");
     }},
    {"Form1", 2, "open",
     [](Walk& w) {
       const QString path = QLatin1String(w.pick(files));
       w.attendant.path = [&w, path](const QFileDialog&) {
         return path.isEmpty() || !QFile::exists(w.folder.filePath(path)) ? QString() : w.folder.filePath(path);
       };
       w.run("&Open");
     }},
    {"Form1", 3, "point at",
     [](Walk& w) {
       const auto [db, ratio] = place(w);
       w.point(db, ratio);
     }},
    {"Form1", 2, "take place",
     [](Walk& w) {
       const auto [db, ratio] = place(w);
       w.point(db, ratio);
       w.Pointed::press(db, ratio);
       w.release(db, ratio);
     }},
    {"Form1", 3, "drag",
     [](Walk& w) {
       const auto [db, ratio] = place(w);
       const auto [toDb, toratio] = place(w);
       w.point(db, ratio);
       w.Pointed::press(db, ratio);
       w.drag((db + toDb) / 2, (ratio + toratio) / 2);
       w.drag(toDb, toratio);
       w.release(toDb, toratio);
     }},
    {"Form1", 4, "key",
     [](Walk& w) {
       constexpr int keys[] = {Qt::Key_P, Qt::Key_Delete, Qt::Key_Escape, Qt::Key_Right, Qt::Key_Up};
       w.keys(static_cast<Qt::Key>(w.pick(keys)));
     }},
    {"Form1", 2, "header's pressure", [](Walk& w) { click(w.window, "header"); }},
    {"Form1", 1, "exact state", [](Walk& w) { click(w.window, "voice"); }},
    {"Form1", 1, "as a sheet", [](Walk& w) { w.run("As a &sheet"); }},
    {"Form1", 1, "points and lines", [](Walk& w) { w.run("&Points and lines"); }},
    {"Form1", 1, "answers",
     [](Walk& w) {
       constexpr bool both[] = {false, true};
       w.attendant.agrees = w.pick(both);
     }},
};

const Command& choose(Walk& walk) {
  const char* const dialogs[] = {"Form2", "Form3", "Form4", "Form5"};
  const auto* open =
      std::find_if(std::begin(dialogs), std::end(dialogs), [&](auto* form) { return walk.isOpen(form); });
  const auto possible = [&](const Command& command) {
    if (command.form == std::string("Form6")) return walk.isOpen("Form6");
    return command.form == std::string(open == std::end(dialogs) ? "Form1" : *open);
  };
  std::size_t all = 0;
  for (const Command& command : commands) all += possible(command) ? static_cast<std::size_t>(command.weight) : 0;
  std::size_t at = walk.random.below(all);
  const Command* chosen = nullptr;
  for (const Command& command : commands) {
    if (!possible(command)) continue;
    chosen = &command;
    if (at < static_cast<std::size_t>(command.weight)) break;
    at -= static_cast<std::size_t>(command.weight);
  }
  return *chosen;
}

std::string digest(const std::string& text) {
  const QByteArray hash = QCryptographicHash::hash(QByteArray::fromStdString(text), QCryptographicHash::Sha1);
  return hash.toHex().left(10).toStdString();
}

/// Whether a line says what the program says and not what it does: words can change and all else stay.
bool isWords(const std::string& line) {
  constexpr const char* wordy[] = {"  asks",      "Form1.voice",   "Form1.inforce", "Form1.header", "Form1.changes",
                                   "Form1.stand", "Form1.records", "about=",        "Form5.note",   "Form2.note"};
  return std::any_of(std::begin(wordy), std::end(wordy),
                     [&](auto* part) { return line.find(part) != std::string::npos; });
}

}  // namespace

/// A digest of what was done and became of it, and one of the words that were said.
void traces(const std::filesystem::path& folder, int first, int count, bool full) {
  constexpr int length = 24;
  std::string digests, all;
  for (int number = first; number < first + count; ++number) {
    Walk walk(number);
    std::string steps, words;
    Lines before = walk.seen();
    for (int step = 0; step < length && !walk.ended; ++step) {
      const Command& command = choose(walk);
      walk.done.clear();
      command.run(walk);
      Session::settle();
      const Lines changes = walk.changes(before, false);
      steps += "> " + std::string(command.name) + walk.done + "\n";
      for (const std::string& line : changes) (isWords(line) ? words : steps) += line + "\n";
      if (full) all += "> " + std::string(command.name) + walk.done + "\n";
      for (const std::string& line : changes) all += full ? line + "\n" : "";
    }
    digests += std::to_string(number) + " " + digest(steps) + " " + digest(words) + "\n";
    if (full) write(folder, "trace-" + std::to_string(number), std::exchange(all, {}));
  }
  write(folder, "digests", digests);
}

}  // namespace moistair::record
