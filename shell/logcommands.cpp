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

constexpr const char* appendfailed = "The data could not be saved: the log file cannot be written.";
constexpr const char* sessiongone = "The data of this session cannot be shown: its file cannot be read.\n";
constexpr const char* viewfailed = "The saved data cannot be shown: the log file cannot be read.\n";

/// When something was last saved in a session, by the clock on the wall.
QString timeof(const EarlierSession& session) {
  return QDateTime::fromSecsSinceEpoch(session.lastsaved).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

}  // namespace

void MainWindow::viewlog() {
  const FileContent content = log_.read();
  if (!content.fault.empty()) {
    warning(this, QString::fromUtf8(viewfailed) + QString::fromStdString(content.fault));
    focusgraph();
    return;
  }
  auto* window = new LogWindow(this, QString::fromStdString(content.bytes));
  connect(window, &LogWindow::left, this, &MainWindow::leavedialog);
  opendialog(window);
}

/// The menu holds what is there when it opens: other copies of the program add to it.
void MainWindow::listsessions() {
  earlier_->clear();
  struct Kept {
    EarlierSession session;
    bool work;
  };
  std::vector<Kept> all;
  for (const EarlierSession& session : earliersessions(log_.sessions())) all.push_back({session, false});
  for (const EarlierSession& work : earliersessions(log_.sessions(), documentending)) all.push_back({work, true});
  const auto later = [](const Kept& a, const Kept& b) { return a.session.lastsaved > b.session.lastsaved; };
  std::stable_sort(all.begin(), all.end(), later);
  for (const auto& [session, work] : all) {
    const EarlierSession kept = session;
    if (work) {
      earlier_->addAction(timeof(kept) + tr(", unsaved chart"), this, [this, kept] { files_->openkept(kept.file); });
    } else {
      earlier_->addAction(timeof(kept), this, [this, kept] { viewsession(kept); });
    }
  }
  earlier_->setEnabled(!earlier_->isEmpty());
}

void MainWindow::viewsession(const EarlierSession& session) {
  const FileContent content = readlog(session.file);
  if (!content.fault.empty()) {
    warning(this, QString::fromUtf8(sessiongone) + QString::fromUtf8(session.file.c_str()) + QStringLiteral(": ") +
                      QString::fromStdString(content.fault));
    focusgraph();
    return;
  }
  auto* window = new LogWindow(this, QString::fromStdString(content.bytes));
  window->setWindowTitle(QStringLiteral("Saved data of ") + timeof(session));
  connect(window, &LogWindow::left, this, &MainWindow::leavedialog);
  opendialog(window);
}

void MainWindow::savelog() {
  if (const auto path = asksavepath({QStringLiteral("Save Pont data in File"),
                                     {QStringLiteral("Txt File (*.txt)"), QStringLiteral("AllFiles (*.*)")}})) {
    const auto name = nativename(*path);
    const bool copied = name && log_.copyto(*name);
    status_->answerfile(tr("saved data"), *path,
                        copied ? std::nullopt : std::optional(tr("The file cannot be written.")));
  }
  focusgraph();
}

void MainWindow::appendtolog(const std::vector<std::string>& lines) {
  if (log_.append(lines)) {
    strip_->savelogbutton->setEnabled(true);
    const QString words = tr("record %1 saved").arg(log_.records());
    status_->answer(words);
    if (auto* mixing = qobject_cast<MixingWindow*>(dialog_)) mixing->answer(words);
    notes_->follow();
  } else {
    warning(dialog_, QString::fromUtf8(appendfailed));
  }
}

void MainWindow::endsession() {
  files_->end();
  log_.end();
}

}  // namespace moistair
