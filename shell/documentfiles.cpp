#include "shell/documentfiles.h"

#include <QApplication>
#include <QDateTime>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <algorithm>
#include <system_error>
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

constexpr int keptevery = 5000;                             // ms
constexpr std::size_t largestlist = std::size_t{64} << 10;  // bytes
constexpr qsizetype mostrecent = 10;
constexpr std::string_view workending = "-unsaved.moistair";
constexpr const char* filter = "Moistair document (*.moistair)";

QString pathof(const fs::path& name) { return QFile::decodeName(name.c_str()); }

/// Where a session keeps the work that belongs to a log: beside it, under a name that no user gives.
fs::path workfileof(const fs::path& log) {
  return log.parent_path() / ("." + log.stem().string() + std::string(workending));
}

/// Whether this is work that a session which is gone has left: one that is alive has a log.
bool isleftover(const fs::path& file) {
  const std::string name = file.filename();
  if (!name.starts_with(".temp") || !name.ends_with(workending)) return false;
  const std::string log = name.substr(1, name.size() - 1 - workending.size()) + std::string(logending);
  std::error_code gone;
  return fs::is_regular_file(fs::symlink_status(file, gone)) && !fs::exists(file.parent_path() / log, gone);
}

/// What was left in the folders of logs, the latest first. What is there under this session's own name was left too.
std::vector<fs::path> leftovers(const std::vector<fs::path>& folders, const fs::path& own) {
  std::vector<fs::path> files;
  for (const fs::path& folder : folders) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
      if (entry->path() == own || isleftover(entry->path())) files.push_back(entry->path());
    }
  }
  const auto time = [](const fs::path& file) {
    std::error_code gone;
    return fs::last_write_time(file, gone);
  };
  std::sort(files.begin(), files.end(), [&](const auto& a, const auto& b) { return time(a) > time(b); });
  return files;
}

ReadDocument readdocumentfile(const fs::path& path, Links links) {
  const FileContent content = readfile(path, links, largestdocument);
  return content.fault.empty() ? readdocument(content.bytes) : ReadDocument{std::nullopt, {}, content.fault};
}

/// Asks about work that was left: which document it is of, and when it was last kept.
QString leftworkquestion(const fs::path& work) {
  const QFileInfo document(pathof(readdocumentfile(work, Links::refused).file));
  const QString name = document.fileName().isEmpty() ? QStringLiteral("a chart without a file") : document.filePath();
  const QString time = QFileInfo(pathof(work)).lastModified().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
  return QStringLiteral(
             "The last session did not close normally and left unsaved work on %1, last kept on %2. Do you want to "
             "open it? With No it stays among the earlier sessions.")
      .arg(name, time);
}

void removefile(const fs::path& file) {
  std::error_code ignored;
  if (!file.empty()) fs::remove(file, ignored);
}

/// The one file of a drag; empty for anything else.
QString draggedfile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

}  // namespace

DocumentFiles::DocumentFiles(QWidget& window, ChartCommands& chart, const SessionLog& log, Show show)
    : QObject(&window), window_(window), chart_(chart), log_(log), show_(std::move(show)), timer_(this) {
  connect(&timer_, &QTimer::timeout, this, &DocumentFiles::keepwork);
  window.setAcceptDrops(true);
  window.installEventFilter(this);
}

void DocumentFiles::fillmenu(QMenu& file) {
  const auto add = [&](const QString& text, const QKeySequence& keys, auto run) {
    file.addAction(text, this, run)->setShortcut(keys);
  };
  add(tr("&New"), QKeySequence(Qt::CTRL | Qt::Key_N), [this] { startanew(); });
  add(tr("&Open..."), QKeySequence(Qt::CTRL | Qt::Key_O), [this] { askopen(); });
  recent_ = file.addMenu(tr("Open &recent"));
  connect(&file, &QMenu::aboutToShow, this, &DocumentFiles::listrecent);
  add(tr("Sa&ve"), QKeySequence(Qt::CTRL | Qt::Key_S), [this] { save(); });
  add(tr("Save &as..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { saveas(); });
}

bool DocumentFiles::eventFilter(QObject* watched, QEvent* event) {
  const bool drag = event->type() == QEvent::DragEnter || event->type() == QEvent::Drop;
  if (watched != &window_ || !drag) return QObject::eventFilter(watched, event);
  auto& drop = *static_cast<QDropEvent*>(event);
  const QString file = draggedfile(drop);
  if (file.isEmpty() || QApplication::activeModalWidget() != nullptr) return false;
  drop.acceptProposedAction();
  // After the event: a question must not hold up whoever the file was dragged from.
  if (event->type() == QEvent::Drop) QTimer::singleShot(0, this, [this, file] { open(file); });
  return true;
}

void DocumentFiles::startanew() {
  if (!mayreplace()) return;
  show_(newdocument(chart_.document().pressure), true);
  settle({});
}

void DocumentFiles::askopen() {
  if (!mayreplace()) return;
  QFileDialog dialog(&window_, tr("Open"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters({QLatin1String(filter), QStringLiteral("All files (*)")});
  if (!path_.isEmpty()) dialog.setDirectory(QFileInfo(path_).absolutePath());
  if (dialog.exec() == QDialog::Accepted) read(dialog.selectedFiles().value(0), false);
}

bool DocumentFiles::open(const QString& path) {
  return mayreplace() && read(QFileInfo(path).absoluteFilePath(), false);
}

void DocumentFiles::openkept(const fs::path& kept) {
  if (mayreplace()) read(pathof(kept), true);
}

/// @param kept whether it is unsaved work, which belongs to another file or to none
bool DocumentFiles::read(const QString& path, bool kept) {
  ReadDocument document =
      readdocumentfile(QFile::encodeName(path).toStdString(), kept ? Links::refused : Links::followed);
  if (!document.document) {
    warning(&window_, QStringLiteral("The document could not be opened: ") + path + QLatin1Char('\n') +
                          QString::fromStdString(document.fault));
    return false;
  }
  show_(std::move(*document.document), false);
  if (kept) {
    settle(pathof(document.file));
    chart_.markunsaved();
    return true;
  }
  settle(path);
  remember(path);
  return true;
}

/// The document that stands now belongs to this file.
void DocumentFiles::settle(const QString& path) {
  path_ = path;
  stale_ = true;
  keepwork();
  Q_EMIT captionchanged();
}

bool DocumentFiles::save() { return path_.isEmpty() ? saveas() : writeto(path_); }

bool DocumentFiles::saveas() {
  const QString title = tr("Save as");
  // Without its ending, which is added again: a file that is there would be selected in the dialog's list, and come
  // back into the box when the folder has been read, over what was typed meanwhile.
  const QLatin1String ending(documentending);
  const QString begin = path_.endsWith(ending) ? path_.chopped(ending.size()) : path_;
  const auto chosen =
      savedialog_.ask(&window_, {title, {QLatin1String(filter), QStringLiteral("All files (*)")}, begin});
  if (!chosen) return false;
  const auto path = completename(&window_, title, *chosen, {ending});
  return path && writeto(*path);
}

bool DocumentFiles::writeto(const QString& path) {
  const auto fail = [&](const QString& reason) {
    warning(&window_, QStringLiteral("The document could not be written to ") + path + QStringLiteral("\n") + reason);
    return false;
  };
  if (const auto reason = writebytes(path, filetext(chart_.document()), log_)) return fail(*reason);
  chart_.marksaved();
  settle(path);
  remember(path);
  return true;
}

/// Whether there is nothing that the user would lose with what stands, or wants to.
bool DocumentFiles::mayreplace() {
  if (!unsaved()) return true;
  const QString name = path_.isEmpty() ? QStringLiteral("the chart") : QFileInfo(path_).fileName();
  switch (asktosave(&window_, QStringLiteral("Do you want to save the changes of ") + name + QLatin1Char('?'))) {
    case Unsaved::save: return save();
    case Unsaved::discard: return true;
    case Unsaved::cancel: break;
  }
  return false;
}

/// A line that states the pressure, alone, is no work, unless it has taken the place of a file's content.
bool DocumentFiles::unsaved() const {
  const Document& document = chart_.document();
  const auto iswork = [](const Entry& entry) { return !std::holds_alternative<HeaderLine>(entry.content); };
  const bool haswork = !document.previous.empty() || document.titleblock ||
                       std::any_of(document.entries.begin(), document.entries.end(), iswork);
  return chart_.history().changed() && (!path_.isEmpty() || haswork);
}

QString DocumentFiles::caption() const {
  const QString name = path_.isEmpty() ? tr("Untitled") : QFileInfo(path_).fileName();
  return unsaved() ? name + QStringLiteral(" *") : name;
}

void DocumentFiles::follow() {
  stale_ = true;
  Q_EMIT captionchanged();
}

fs::path DocumentFiles::workfile() const { return haslog_ ? workfileof(log_.path()) : fs::path(); }

void DocumentFiles::keepwork() {
  if (!stale_ || !collected_) return;
  QString failure;
  if (!unsaved()) {
    removefile(workfile());
  } else if (!haslog_) {
    failure = tr("there is no log file to keep it with");
  } else {
    const std::string file = QFile::encodeName(path_).toStdString();
    const auto fault = writeownfile(workfile(), recoverytext(chart_.document(), file));
    if (fault) failure = QString::fromStdString(fault->reason());
  }
  stale_ = !failure.isEmpty();
  Q_EMIT keeptried(failure);
}

void DocumentFiles::collectleftwork() {
  haslog_ = log_.isopen();
  collected_ = true;
  timer_.start(keptevery);
  for (const fs::path& file : leftovers(log_.places().folders, workfile())) {
    const fs::path kept = moistair::keepwork(file, log_.sessions(), documentending);
    if (leftwork_.empty()) leftwork_ = kept;
  }
}

void DocumentFiles::offerleftwork() {
  const fs::path work = std::exchange(leftwork_, {});
  if (!work.empty() && question(&window_, QStringLiteral("Moistair"), leftworkquestion(work))) openkept(work);
}

void DocumentFiles::end() {
  if (!collected_) return;
  timer_.stop();
  stale_ = true;
  keepwork();
  moistair::keepwork(workfile(), log_.sessions(), documentending);
}

fs::path DocumentFiles::recentfile() const { return log_.sessions().parent_path() / "recent.txt"; }

/// Paths of the documents last opened or saved, the latest first; or why the list cannot be used.
DocumentFiles::Recent DocumentFiles::recent() const {
  const FileContent list = readfile(recentfile(), Links::refused, largestlist);
  std::error_code ignored;
  const bool there = fs::symlink_status(recentfile(), ignored).type() != fs::file_type::not_found;
  return {QString::fromStdString(list.bytes).split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(0, mostrecent),
          QString::fromStdString(there ? list.fault : std::string())};
}

/// A name with a line end would be two of the list.
void DocumentFiles::remember(const QString& path) {
  if (path.contains(QLatin1Char('\n'))) return;
  auto [paths, fault] = recent();
  if (!fault.isEmpty()) return;  // the menu says so
  paths.removeAll(path);
  paths.prepend(path);
  const std::string list = paths.mid(0, mostrecent).join(QLatin1Char('\n')).toStdString() + '\n';
  writeownfile(recentfile(), list);  // nothing is lost but convenience
}

void DocumentFiles::listrecent() {
  recent_->clear();
  const auto [paths, fault] = recent();
  if (!fault.isEmpty()) recent_->addAction(pathof(recentfile()) + QStringLiteral(": ") + fault)->setEnabled(false);
  for (const QString& path : paths) {
    QString caption = path;
    recent_->addAction(caption.replace(QLatin1Char('&'), QStringLiteral("&&")), this, [this, path] { open(path); });
  }
  recent_->setEnabled(!recent_->isEmpty());
}

std::optional<Pressure> pressureoffile(const QString& path) {
  const ReadDocument read = readdocumentfile(QFile::encodeName(path).toStdString(), Links::followed);
  return read.document ? std::optional(read.document->pressure) : std::nullopt;
}

}  // namespace moistair
