#include "shell/documentfiles.h"

#include <QApplication>
#include <QDateTime>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <algorithm>
#include <system_error>
#include <tuple>
#include <utility>

#include "files/inputfile.h"
#include "files/outputfile.h"
#include "log/earliersessions.h"
#include "model/documentfile.h"
#include "shell/filewriting.h"
#include "toolkit/dialog.h"
#include "toolkit/messages.h"

namespace moistair {

namespace {

namespace fs = std::filesystem;

constexpr int keptEvery = 5000;                             // ms
constexpr std::size_t largestlist = std::size_t{64} << 10;  // bytes
constexpr qsizetype mostRecent = 10;
constexpr std::string_view workEnding = "-unsaved.moistair";
constexpr const char* filter = "Moistair document (*.moistair)";

QString pathOf(const fs::path& name) { return QFile::decodeName(name.c_str()); }

/// Where a session keeps the work that belongs to a log: next to it, under a name that no user gives.
fs::path workFileOf(const fs::path& log) {
  return log.parent_path() / ("." + log.stem().string() + std::string(workEnding));
}

/// Whether this is work that a session which is gone has left: one that is alive has a log.
bool isLeftover(const fs::path& file) {
  const std::string name = file.filename();
  if (!name.starts_with(".temp") || !name.ends_with(workEnding)) return false;
  const std::string log = name.substr(1, name.size() - 1 - workEnding.size()) + std::string(logEnding);
  std::error_code gone;
  return fs::is_regular_file(fs::symlink_status(file, gone)) && !fs::exists(file.parent_path() / log, gone);
}

/// What was left in the folders of logs, the latest first. What is there under this session's own name was left too.
std::vector<fs::path> leftovers(const std::vector<fs::path>& folders, const fs::path& own) {
  std::vector<fs::path> files;
  for (const fs::path& folder : folders) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
      if (entry->path() == own || isLeftover(entry->path())) files.push_back(entry->path());
    }
  }
  const auto time = [](const fs::path& file) {
    std::error_code gone;
    return fs::last_write_time(file, gone);
  };
  std::sort(files.begin(), files.end(), [&](const auto& a, const auto& b) { return time(a) > time(b); });
  return files;
}

Result<ReadDocument> readDocumentFile(const fs::path& path, Links links) {
  const Result<std::string> content = readFile(path, links, largestdocument);
  if (!content) return content.error();
  return readDocument(*content);
}

/// Asks about work that was left: which document it is of, and when it was last kept.
QString recoveredWorkQuestion(const fs::path& work) {
  const Result<ReadDocument> read = readDocumentFile(work, Links::refused);
  const QFileInfo document(pathOf(read ? read->file : std::string()));
  const QString name = document.fileName().isEmpty() ? QStringLiteral("a chart without a file") : document.filePath();
  const QString time = QFileInfo(pathOf(work)).lastModified().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
  return QStringLiteral(
             "The last session did not close normally and left unsaved work on %1, last kept on %2. Do you want to "
             "open it? With No it stays among the earlier sessions.")
      .arg(name, time);
}

void removeFile(const fs::path& file) {
  std::error_code ignored;
  if (!file.empty()) fs::remove(file, ignored);
}

/// The one file of a drag; empty for anything else.
QString draggedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

}  // namespace

DocumentFiles::DocumentFiles(QWidget& window, ChartCommands& chart, const SessionLog& log, Show show)
    : QObject(&window), window_(window), chart_(chart), log_(log), show_(std::move(show)), timer_(this) {
  connect(&timer_, &QTimer::timeout, this, &DocumentFiles::autosave);
  window.setAcceptDrops(true);
  window.installEventFilter(this);
}

void DocumentFiles::fillMenu(QMenu& file) {
  const auto add = [&](const QString& text, const QKeySequence& keys, auto run) {
    file.addAction(text, this, run)->setShortcut(keys);
  };
  add(QStringLiteral("&New"), QKeySequence(Qt::CTRL | Qt::Key_N), [this] { startNew(); });
  add(QStringLiteral("&Open..."), QKeySequence(Qt::CTRL | Qt::Key_O), [this] { askOpen(); });
  recent_ = file.addMenu(QStringLiteral("Open &recent"));
  connect(&file, &QMenu::aboutToShow, this, &DocumentFiles::listRecent);
  add(QStringLiteral("Sa&ve"), QKeySequence(Qt::CTRL | Qt::Key_S), [this] { save(); });
  add(QStringLiteral("Save &as..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { saveAs(); });
}

bool DocumentFiles::eventFilter(QObject* watched, QEvent* event) {
  const bool drag = event->type() == QEvent::DragEnter || event->type() == QEvent::Drop;
  if (watched != &window_ || !drag) return QObject::eventFilter(watched, event);
  auto& drop = *static_cast<QDropEvent*>(event);
  const QString file = draggedFile(drop);
  if (file.isEmpty() || QApplication::activeModalWidget() != nullptr) return false;
  drop.acceptProposedAction();
  // After the event: a question must not hold up whoever the file was dragged from.
  if (event->type() == QEvent::Drop) QTimer::singleShot(0, this, [this, file] { open(file); });
  return true;
}

void DocumentFiles::startNew() {
  if (!mayReplace()) return;
  show_(newDocument(chart_.document().pressure), true);
  settle({});
}

void DocumentFiles::askOpen() {
  if (!mayReplace()) return;
  QFileDialog dialog(&window_, QStringLiteral("Open"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters({QLatin1String(filter), QStringLiteral("All files (*)")});
  if (!path_.isEmpty()) dialog.setDirectory(QFileInfo(path_).absolutePath());
  if (dialog.exec() == QDialog::Accepted) read(dialog.selectedFiles().value(0), false);
}

bool DocumentFiles::open(const QString& path) {
  return mayReplace() && read(QFileInfo(path).absoluteFilePath(), false);
}

void DocumentFiles::openRecovered(const fs::path& kept) {
  if (mayReplace()) read(pathOf(kept), true);
}

/// @param kept whether it is unsaved work, which belongs to another file or to none
bool DocumentFiles::read(const QString& path, bool kept) {
  Result<ReadDocument> document =
      readDocumentFile(QFile::encodeName(path).toStdString(), kept ? Links::refused : Links::followed);
  if (!document) {
    warning(&window_, QStringLiteral("The document could not be opened: ") + path + QLatin1Char('\n') +
                          QString::fromStdString(document.error().text()));
    return false;
  }
  show_(std::move(document->document), false);
  if (kept) {
    settle(pathOf(document->file));
    chart_.markUnsaved();
    return true;
  }
  settle(path);
  remember(path);
  return true;
}

/// The current document belongs to this file.
void DocumentFiles::settle(const QString& path) {
  path_ = path;
  stale_ = true;
  autosave();
  Q_EMIT captionchanged();
}

bool DocumentFiles::save() { return path_.isEmpty() ? saveAs() : writeTo(path_); }

bool DocumentFiles::saveAs() {
  const QString title = QStringLiteral("Save as");
  // Without its ending, which is added again: a file that is there would be selected in the dialog's list, and come
  // back into the box when the folder has been read, over what was typed meanwhile.
  const QLatin1String ending(documentEnding);
  const QString begin = path_.endsWith(ending) ? path_.chopped(ending.size()) : path_;
  const auto chosen =
      saveDialog_.ask(&window_, {title, {QLatin1String(filter), QStringLiteral("All files (*)")}, begin});
  if (!chosen) return false;
  const auto path = completeName(&window_, title, *chosen, {ending});
  return path && writeTo(*path);
}

bool DocumentFiles::writeTo(const QString& path) {
  const auto fail = [&](const QString& reason) {
    warning(&window_, QStringLiteral("The document could not be written to ") + path + QStringLiteral("\n") + reason);
    return false;
  };
  if (const auto reason = writeBytes(path, fileText(chart_.document()), log_)) return fail(*reason);
  chart_.markSaved();
  settle(path);
  remember(path);
  return true;
}

/// Whether the current document has nothing that the user would lose, or wants to lose it.
bool DocumentFiles::mayReplace() {
  if (!unsaved()) return true;
  const QString name = path_.isEmpty() ? QStringLiteral("the chart") : QFileInfo(path_).fileName();
  switch (askToSave(&window_, QStringLiteral("Do you want to save the changes of ") + name + QLatin1Char('?'))) {
    case Unsaved::save: return save();
    case Unsaved::discard: return true;
    case Unsaved::cancel: break;
  }
  return false;
}

/// A line that states the pressure, alone, is no work, unless it has taken the place of a file's content.
bool DocumentFiles::unsaved() const {
  const Document& document = chart_.document();
  const auto isWork = [](const Entry& entry) { return !std::holds_alternative<HeaderLine>(entry.content); };
  const bool hasWork = !document.previous.empty() || document.titleBlock ||
                       std::any_of(document.entries.begin(), document.entries.end(), isWork);
  return chart_.history().changed() && (!path_.isEmpty() || hasWork);
}

QString DocumentFiles::caption() const {
  const QString name = path_.isEmpty() ? QStringLiteral("Untitled") : QFileInfo(path_).fileName();
  return unsaved() ? name + QStringLiteral(" *") : name;
}

void DocumentFiles::follow() {
  stale_ = true;
  Q_EMIT captionchanged();
}

fs::path DocumentFiles::workFile() const { return hasLog_ ? workFileOf(log_.path()) : fs::path(); }

void DocumentFiles::autosave() {
  if (!stale_ || !collected_) return;
  QString failure;
  if (!unsaved()) {
    removeFile(workFile());
  } else if (!hasLog_) {
    failure = QStringLiteral("there is no log file to keep it with");
  } else {
    const std::string file = QFile::encodeName(path_).toStdString();
    const Outcome kept = writeOwnFile(workFile(), recoveryText(chart_.document(), file));
    if (!kept) failure = QString::fromStdString(kept.error().words);
  }
  stale_ = !failure.isEmpty();
  Q_EMIT keepTried(failure);
}

void DocumentFiles::collectRecoveredWork() {
  hasLog_ = log_.isOpen();
  collected_ = true;
  timer_.start(keptEvery);
  for (const fs::path& file : leftovers(log_.places().folders, workFile())) {
    const fs::path kept = moistair::keepWork(file, log_.sessions(), documentEnding);
    if (recoveredWork_.empty()) recoveredWork_ = kept;
  }
}

void DocumentFiles::offerRecoveredWork() {
  const fs::path work = std::exchange(recoveredWork_, {});
  if (!work.empty() && question(&window_, QStringLiteral("Moistair"), recoveredWorkQuestion(work))) openRecovered(work);
}

void DocumentFiles::end() {
  if (!collected_) return;
  timer_.stop();
  stale_ = true;
  autosave();
  moistair::keepWork(workFile(), log_.sessions(), documentEnding);
}

fs::path DocumentFiles::recentFile() const { return log_.sessions().parent_path() / "recent.txt"; }

/// Paths of the documents last opened or saved, the latest first; or why the list cannot be used.
DocumentFiles::Recent DocumentFiles::recent() const {
  const Result<std::string> list = readFile(recentFile(), Links::refused, largestlist);
  std::error_code ignored;
  const bool there = fs::symlink_status(recentFile(), ignored).type() != fs::file_type::not_found;
  return {QString::fromStdString(list ? *list : std::string())
              .split(QLatin1Char('\n'), Qt::SkipEmptyParts)
              .mid(0, mostRecent),
          QString::fromStdString(there && !list ? list.error().words : std::string())};
}

/// A name with a line end would be two of the list.
void DocumentFiles::remember(const QString& path) {
  if (path.contains(QLatin1Char('\n'))) return;
  auto [paths, fault] = recent();
  if (!fault.isEmpty()) return;  // the menu says so
  paths.removeAll(path);
  paths.prepend(path);
  const std::string list = paths.mid(0, mostRecent).join(QLatin1Char('\n')).toStdString() + '\n';
  std::ignore = writeOwnFile(recentFile(), list);  // nothing is lost but convenience
}

void DocumentFiles::listRecent() {
  recent_->clear();
  const auto [paths, fault] = recent();
  if (!fault.isEmpty()) recent_->addAction(pathOf(recentFile()) + QStringLiteral(": ") + fault)->setEnabled(false);
  for (const QString& path : paths) {
    QString caption = path;
    recent_->addAction(caption.replace(QLatin1Char('&'), QStringLiteral("&&")), this, [this, path] { open(path); });
  }
  recent_->setEnabled(!recent_->isEmpty());
}

std::optional<Pressure> pressureOfFile(const QString& path) {
  const Result<ReadDocument> read = readDocumentFile(QFile::encodeName(path).toStdString(), Links::followed);
  return read ? std::optional(read->document.pressure) : std::nullopt;
}

}  // namespace moistair
