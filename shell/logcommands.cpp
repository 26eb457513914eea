// Commands of the main window about the log, of this session and of earlier ones.
#include <QDateTime>
#include <QMenu>
#include <algorithm>
#include <vector>

#include "log/earliersessions.h"
#include "model/documentfile.h"
#include "shell/mainwindow.h"
#include "toolkit/filename.h"
#include "toolkit/messages.h"
#include "windows/logwindow.h"

namespace moistair {

namespace {

constexpr const char* appendFailed = "The data could not be saved: the log file cannot be written.";
constexpr const char* sessionGone = "The data of this session cannot be shown: its file cannot be read.\n";
constexpr const char* viewFailed = "The saved data cannot be shown: the log file cannot be read.\n";

/// When something was last saved in a session, by the clock on the wall.
QString timeOf(const EarlierSession& session) {
  return QDateTime::fromSecsSinceEpoch(session.lastSaved).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

}  // namespace

void MainWindow::viewLog() {
  const Result<std::string> content = log_.read();
  if (!content) {
    warning(this, QString::fromUtf8(viewFailed) + QString::fromStdString(content.error().words));
    focusGraph();
    return;
  }
  auto* window = new LogWindow(this, QString::fromStdString(*content));
  connect(window, &LogWindow::left, this, &MainWindow::leaveDialog);
  openDialog(window);
}

/// The menu holds what is there when it opens: other copies of the program add to it.
void MainWindow::listSessions() {
  earlier_->clear();
  struct Kept {
    EarlierSession session;
    bool work;
  };
  std::vector<Kept> all;
  for (const EarlierSession& session : earlierSessions(log_.sessions())) all.push_back({session, false});
  for (const EarlierSession& work : earlierSessions(log_.sessions(), documentEnding)) all.push_back({work, true});
  const auto later = [](const Kept& a, const Kept& b) { return a.session.lastSaved > b.session.lastSaved; };
  std::stable_sort(all.begin(), all.end(), later);
  for (const auto& [session, work] : all) {
    const EarlierSession kept = session;
    if (work) {
      earlier_->addAction(timeOf(kept) + QStringLiteral(", unsaved chart"), this,
                          [this, kept] { files_->openRecovered(kept.file); });
    } else {
      earlier_->addAction(timeOf(kept), this, [this, kept] { viewSession(kept); });
    }
  }
  earlier_->setEnabled(!earlier_->isEmpty());
}

void MainWindow::viewSession(const EarlierSession& session) {
  const Result<std::string> content = readLog(session.file);
  if (!content) {
    warning(this, QString::fromUtf8(sessionGone) + QString::fromUtf8(session.file.c_str()) + QStringLiteral(": ") +
                      QString::fromStdString(content.error().words));
    focusGraph();
    return;
  }
  auto* window = new LogWindow(this, QString::fromStdString(*content));
  window->setWindowTitle(QStringLiteral("Saved data of ") + timeOf(session));
  connect(window, &LogWindow::left, this, &MainWindow::leaveDialog);
  openDialog(window);
}

void MainWindow::saveLog() {
  if (const auto path = askSavePath({QStringLiteral("Save Pont data in File"),
                                     {QStringLiteral("Txt File (*.txt)"), QStringLiteral("AllFiles (*.*)")}})) {
    const auto name = nativeName(*path);
    const bool copied = name && log_.copyTo(*name);
    status_->answerFile(QStringLiteral("saved data"), *path,
                        copied ? std::nullopt : std::optional(QStringLiteral("The file cannot be written.")));
  }
  focusGraph();
}

void MainWindow::appendToLog(const std::vector<std::string>& lines) {
  if (log_.append(lines)) {
    strip_->saveLogButton->setEnabled(true);
    const QString words = QStringLiteral("record %1 saved").arg(log_.records());
    status_->answer(words);
    if (auto* mixing = qobject_cast<MixingWindow*>(dialog_)) mixing->answer(words);
    notes_->follow();
  } else {
    warning(dialog_, QString::fromUtf8(appendFailed));
  }
}

void MainWindow::endSession() {
  files_->end();
  log_.end();
}

}  // namespace moistair
