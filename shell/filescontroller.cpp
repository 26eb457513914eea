#include "shell/filescontroller.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <system_error>
#include <tuple>
#include <utility>

#include "files/inputfile.h"
#include "files/outputfile.h"
#include "log/earliersessions.h"
#include "shell/filewriting.h"

namespace moistair {

namespace {

namespace fs = std::filesystem;

constexpr int keptEvery = 5000;                             // ms
constexpr std::size_t largestlist = std::size_t{64} << 10;  // bytes
constexpr qsizetype mostRecent = 10;
constexpr std::string_view workEnding = "-unsaved.moistair";

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

}  // namespace

FilesController::FilesController(ChartController& chart, const SessionLog& log, FileDialogs dialogs, QObject* parent)
    : QObject(parent), chart_(chart), log_(log), dialogs_(std::move(dialogs)), timer_(this) {
  connect(&timer_, &QTimer::timeout, this, &FilesController::autosave);
  connect(&chart, &ChartController::changed, this, [this](ChangedPart part) {
    if (part == ChangedPart::content) follow();
  });
}

void FilesController::startNew() {
  if (!mayReplace()) return;
  chart_.open(newDocument(chart_.document().pressure), true);
  settle({});
}

void FilesController::askOpen() {
  if (!mayReplace()) return;
  if (const auto path = dialogs_.open(path_)) read(*path, false);
}

bool FilesController::open(const QString& path) {
  return mayReplace() && read(QFileInfo(path).absoluteFilePath(), false);
}

void FilesController::openRecovered(const fs::path& kept) {
  if (mayReplace()) read(pathOf(kept), true);
}

/// @param kept whether it is unsaved work, which belongs to another file or to none
bool FilesController::read(const QString& path, bool kept) {
  Result<ReadDocument> document =
      readDocumentFile(QFile::encodeName(path).toStdString(), kept ? Links::refused : Links::followed);
  if (!document) {
    dialogs_.warn(QStringLiteral("The document could not be opened: ") + path + QLatin1Char('\n') +
                  QString::fromStdString(document.error().text()));
    return false;
  }
  chart_.open(std::move(document->document), false);
  if (kept) {
    settle(pathOf(document->file));
    chart_.commands().markUnsaved();
    return true;
  }
  settle(path);
  remember(path);
  return true;
}

/// The current document belongs to this file.
void FilesController::settle(const QString& path) {
  path_ = path;
  stale_ = true;
  autosave();
  Q_EMIT captionChanged();
}

bool FilesController::save() { return path_.isEmpty() ? saveAs() : writeTo(path_); }

bool FilesController::saveAs() {
  const auto path = dialogs_.save(path_);
  return path && writeTo(*path);
}

bool FilesController::writeTo(const QString& path) {
  if (const Outcome written = writeBytes(path, fileText(chart_.document()), log_); !written) {
    dialogs_.warn(notWrittenText(QStringLiteral("The document"), path, written.error()));
    return false;
  }
  chart_.commands().markSaved();
  settle(path);
  remember(path);
  return true;
}

/// Whether the current document has nothing that the user would lose, or wants to lose it.
bool FilesController::mayReplace() {
  if (!unsaved()) return true;
  const QString name = path_.isEmpty() ? QStringLiteral("the chart") : QFileInfo(path_).fileName();
  switch (dialogs_.askToSave(QStringLiteral("Do you want to save the changes of ") + name + QLatin1Char('?'))) {
    case Unsaved::save: return save();
    case Unsaved::discard: return true;
    case Unsaved::cancel: break;
  }
  return false;
}

/// A line that states the pressure, alone, is no work, unless it has taken the place of a file's content.
bool FilesController::unsaved() const {
  const Document& document = chart_.document();
  const auto isWork = [](const Entry& entry) { return !std::holds_alternative<HeaderLine>(entry.content); };
  const bool hasWork = !document.previous.empty() || document.titleBlock || !document.zoneLayer.zones.empty() ||
                       std::any_of(document.entries.begin(), document.entries.end(), isWork);
  return chart_.history().changed() && (!path_.isEmpty() || hasWork);
}

QString FilesController::caption() const {
  const QString name = path_.isEmpty() ? QStringLiteral("Untitled") : QFileInfo(path_).fileName();
  return unsaved() ? name + QStringLiteral(" *") : name;
}

void FilesController::follow() {
  stale_ = true;
  Q_EMIT captionChanged();
}

fs::path FilesController::workFile() const { return hasLog_ ? workFileOf(log_.path()) : fs::path(); }

void FilesController::autosave() {
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

void FilesController::collectRecoveredWork() {
  hasLog_ = log_.isOpen();
  collected_ = true;
  timer_.start(keptEvery);
  for (const fs::path& file : leftovers(log_.places().folders, workFile())) {
    const fs::path kept = moistair::keepWork(file, log_.sessions(), documentEnding);
    if (recoveredWork_.empty()) recoveredWork_ = kept;
  }
}

void FilesController::offerRecoveredWork() {
  const fs::path work = std::exchange(recoveredWork_, {});
  if (!work.empty() && dialogs_.question(recoveredWorkQuestion(work))) openRecovered(work);
}

void FilesController::end() {
  if (!collected_) return;
  timer_.stop();
  stale_ = true;
  autosave();
  moistair::keepWork(workFile(), log_.sessions(), documentEnding);
}

fs::path FilesController::recentFile() const { return log_.sessions().parent_path() / "recent.txt"; }

/// Paths of the documents last opened or saved, the latest first; or why the list cannot be used.
FilesController::Recent FilesController::recent() const {
  const Result<std::string> list = readFile(recentFile(), Links::refused, largestlist);
  std::error_code ignored;
  const bool there = fs::symlink_status(recentFile(), ignored).type() != fs::file_type::not_found;
  return {QString::fromStdString(list ? *list : std::string())
              .split(QLatin1Char('\n'), Qt::SkipEmptyParts)
              .mid(0, mostRecent),
          there && !list ? pathOf(recentFile()) + QStringLiteral(": ") + QString::fromStdString(list.error().words)
                         : QString()};
}

/// A name with a line end would be two of the list.
void FilesController::remember(const QString& path) {
  if (path.contains(QLatin1Char('\n'))) return;
  auto [paths, fault] = recent();
  if (!fault.isEmpty()) return;  // the menu says so
  paths.removeAll(path);
  paths.prepend(path);
  const std::string list = paths.mid(0, mostRecent).join(QLatin1Char('\n')).toStdString() + '\n';
  std::ignore = writeOwnFile(recentFile(), list);  // nothing is lost but convenience
}

std::optional<Pressure> pressureOfFile(const QString& path) {
  const Result<ReadDocument> read = readDocumentFile(QFile::encodeName(path).toStdString(), Links::followed);
  return read ? std::optional(read->document.pressure) : std::nullopt;
}

}  // namespace moistair
