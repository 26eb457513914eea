#include "record/session.h"

#include <QClipboard>
#include <QComboBox>
#include <QDate>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <algorithm>
#include <cmath>
#include <map>
#include <regex>

#include "toolkit/dialog.h"

namespace moistair::record {

namespace {

std::string flat(const QString& text) { return QString(text).replace(u'\n', QStringLiteral("\\n")).toStdString(); }

/// In whole pixels, cut where no round number is: a hair's breadth makes no difference.
std::string pixel(float twips) { return std::to_string(std::lround(std::floor(double(twips) / 15 + 0.3137))); }

/// A number has nine digits at most here, as many as every C library agrees on.
std::string shortened(const std::string& text) {
  static const std::regex number(R"(-?\d+\.\d{7,}(e-?\d+)?)");
  std::string out;
  auto last = text.begin();
  for (std::sregex_iterator i(text.begin(), text.end(), number), end; i != end; ++i) {
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.9g", std::stod(i->str()));
    out.append(last, (*i)[0].first).append(digits);
    last = (*i)[0].second;
  }
  return out.append(last, text.end());
}

}  // namespace

Attendant::Attendant() {
  // An answer can bring up the next question, so it does not come from the timer itself.
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == last_ || dynamic_cast<Dialog*>(dialog) != nullptr) return;
    last_ = dialog;
    QTimer::singleShot(0, dialog, [this, dialog] { answer(*dialog); });
  });
  timer_.start(0);
}

void Attendant::answer(QDialog& dialog) {
  if (dialog.property("answered").toBool()) return dialog.reject();  // once is enough
  dialog.setProperty("answered", true);
  if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
    QStringList buttons;
    for (const QAbstractButton* button : box->buttons()) buttons += button->text().remove(u'&');
    asked.push_back("asks \"" + flat(box->text()) + "\" " + buttons.join(u'|').toStdString());
    QAbstractButton* yes = box->defaultButton();
    for (const auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Save}) {
      if (box->button(button) != nullptr) yes = box->button(button);
    }
    agrees&& yes != nullptr ? yes->click() : box->reject();
  } else if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
    const QString chosen = path ? path(*files) : QString();
    asked.push_back("asks for a file \"" + flat(files->windowTitle()) + "\" " +
                    files->nameFilters().join(u'|').toStdString());
    if (chosen.isEmpty()) return files->reject();
    windowtest::control<QLineEdit>(*files, "fileNameEdit").setText(chosen);
    QTest::keyClick(&windowtest::control<QLineEdit>(*files, "fileNameEdit"), Qt::Key_Return);
  } else if (auto* input = qobject_cast<QInputDialog*>(&dialog)) {
    asked.push_back("asks \"" + flat(input->labelText()) + "\" with \"" + flat(input->textValue()) + "\"");
    if (name.isEmpty()) return input->reject();
    input->setTextValue(name);
    input->accept();
  } else if (other) {
    other(dialog);
  } else {
    asked.push_back("opens \"" + flat(dialog.windowTitle()) + "\"");
    dialog.reject();
  }
}

StoppedClocks::StoppedClocks() { qApp->installEventFilter(this); }
StoppedClocks::~StoppedClocks() { qApp->removeEventFilter(this); }

bool StoppedClocks::eventFilter(QObject* watched, QEvent* event) {
  const auto* timer = event->type() == QEvent::Timer ? qobject_cast<QTimer*>(watched) : nullptr;
  return !running && timer != nullptr && timer->interval() > 100;
}

Session::Session(StartState startState, bool withPoint) : Pointed(withPoint, startState) {
  attendant.path = [this](const QFileDialog& dialog) { return fileFor(dialog); };
}

/// A chart type window that is still open would be taken for the next program's.
Session::~Session() {
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (top->parentWidget() == nullptr && top != &window) delete top;
  }
}

QString Session::fileFor(const QFileDialog& dialog) const {
  if (dialog.acceptMode() == QFileDialog::AcceptSave) return path("out");
  return QFile::exists(path("room.moistair")) ? path("room.moistair") : QString();
}

void Session::settle() {
  for (int i = 0; i < 3; ++i) {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

Lines Session::drawn() {
  Lines lines;
  std::map<std::string, int> strokes;
  for (const Operation& operation : operations()) {
    if (const auto* text = std::get_if<TextOperation>(&operation)) {
      // Where a wet bulb's line ends hangs on the last bit of the C library, and whether one of the family is there.
      const bool wetBulb = text->text.starts_with("WB=");
      if (wetBulb && text->text.ends_with("0 ")) continue;
      lines.push_back("drawn \"" + text->text + "\"" + (wetBulb ? "" : " at " + pixel(text->x) + " " + pixel(text->y)));
    } else if (const auto* circle = std::get_if<CircleOperation>(&operation)) {
      lines.push_back("drawn circle at " + pixel(circle->x) + " " + pixel(circle->y));
    } else {
      const auto& line = std::get<LineOperation>(operation);
      char color[32];
      const Color shown = line.color.value_or(Color{0, 0, 0});
      std::snprintf(color, sizeof color, "#%02x%02x%02x", shown.red, shown.green, shown.blue);
      ++strokes[color];
    }
  }
  lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
  for (const auto& [color, count] : strokes) {
    if (color != "#800000") lines.push_back("drawn lines " + color + " " + std::to_string(count));
  }
  lines.push_back("background " + std::to_string(graph.drawing().background > 0));
  return lines;
}

Lines Session::seen() {
  Lines lines;
  QWidgetList tops = QApplication::topLevelWidgets();
  std::sort(tops.begin(), tops.end(), [](auto* a, auto* b) { return a->objectName() < b->objectName(); });
  for (QWidget* top : tops) {
    if (!top->isVisible() || top->windowType() == Qt::Popup || top->windowType() == Qt::ToolTip) continue;
    for (const std::string& line : shown(*top, true)) lines.push_back(top->objectName().toStdString() + "." + line);
    const QWidget* focus = top->focusWidget();
    lines.push_back(top->objectName().toStdString() + ".focus " +
                    (focus == nullptr ? "" : focus->objectName().toStdString()));
  }
  // Read out after a while without a move; the reading that is shown is recorded by itself.
  std::erase_if(lines, [](const std::string& line) { return line.starts_with("Form1.graph"); });
  for (const QAction* action : window.findChildren<QAction*>()) {
    if (action->isSeparator() || action->text().isEmpty() || action->text().contains(u'/')) continue;
    lines.push_back("entry " + flat(action->text()) + (action->isEnabled() ? "" : " disabled") +
                    (action->isChecked() ? " checked" : ""));
  }
  for (std::string& line : drawn()) lines.push_back(std::move(line));
  if (auto* timer = window.findChild<FilesController*>()->findChild<QTimer*>(); timer != nullptr && timer->isActive()) {
    QTimerEvent due(timer->timerId());
    timer->event(&due);
  }
  QDir files(folder.path());
  for (const QString& file : files.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
    const std::string bytes = this->file(file.toUtf8().constData());
    const bool text = file.endsWith(QStringLiteral("temp.txt")) || file.contains(QStringLiteral("unsaved")) ||
                      file == QStringLiteral("recent.txt");
    if (!text) lines.push_back("file " + file.toStdString() + " " + bytes.substr(0, bytes.starts_with("\x89") ? 0 : 2));
    if (!text) continue;
    for (const QString& line : QString::fromStdString(bytes).split(u'\n')) {
      lines.push_back(file.toStdString() + ": " + shortened(line.trimmed().toStdString()));
    }
  }
  lines.push_back("clipboard " + flat(QGuiApplication::clipboard()->text()));
  if (ended) lines.emplace_back("ended");
  for (std::string& line : lines) line = plain(std::move(line));
  return lines;
}

/// One line stands for all those of a window, which begin with its name; the first one has its title.
void foldWindows(Lines& lines, const Lines& others) {
  const auto window = [](const std::string& line) { return line.substr(0, line.find('.') + 1); };
  std::map<std::string, bool> folded;
  for (const std::string& line : lines) {
    if (!line.starts_with("Form")) continue;
    const auto same = [&](const std::string& other) { return other.starts_with(window(line)); };
    folded.try_emplace(window(line), std::none_of(others.begin(), others.end(), same));
  }
  std::erase_if(lines, [&](const std::string& line) {
    const auto found = folded.find(window(line));
    return found != folded.end() && found->second && !line.starts_with(found->first + found->first.substr(0, 5) + " ");
  });
}

Lines Session::changes(Lines& before, bool fold) {
  Lines now = seen();
  const Lines all = now;
  Lines gone = std::exchange(before, now), changed;
  if (fold) {
    foldWindows(now, gone);
    foldWindows(gone, all);
  }
  const auto add = [&](const char* sign, const Lines& lines) {
    constexpr int few = 20;
    const auto isDrawn = [](const std::string& line) { return line.starts_with("drawn \""); };
    const auto drawn = std::count_if(lines.begin(), lines.end(), isDrawn);
    for (const std::string& line : lines) {
      if (!fold || drawn <= few || !isDrawn(line)) changed.push_back(sign + line);
    }
    if (fold && drawn > few) changed.push_back(sign + std::to_string(drawn) + " drawn texts");
  };
  for (const std::string& line : std::exchange(attendant.asked, {})) changed.push_back("  " + plain(line));
  Lines come;
  for (const std::string& line : now) {
    const auto was = std::find(gone.begin(), gone.end(), line);
    if (was == gone.end()) {
      come.push_back(line);
    } else {
      gone.erase(was);
    }
  }
  add("  - ", gone);
  add("  + ", come);
  return changed;
}

std::string Session::plain(std::string text) const {
  const auto replace = [&](const std::string& what, const char* with) {
    for (std::size_t at; !what.empty() && (at = text.find(what)) != std::string::npos;)
      text.replace(at, what.size(), with);
  };
  std::replace(text.begin(), text.end(), '\n', ' ');
  replace(folder.path().toStdString(), "FOLDER");
  replace("Moistair " MOISTAIR_VERSION, "Moistair VERSION");
  static const std::regex time(R"(\d{4}-\d\d-\d\d[T ]\d\d[-:]\d\d[-:]\d\dZ?(-\d+)?)");
  text = std::regex_replace(text, time, "TIME");
  replace(QDate::currentDate().toString(Qt::ISODate).toStdString(), "DATE");
  return text;
}

}  // namespace moistair::record
