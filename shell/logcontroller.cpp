#include "shell/logcontroller.h"

#include <QDateTime>
#include <algorithm>

#include "model/documentfile.h"
#include "toolkit/filename.h"

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

void LogController::view() {
  const Result<std::string> content = log_.read();
  if (content) {
    Q_EMIT shown(QString::fromStdString(*content), {});
  } else {
    Q_EMIT unreadable(QString::fromUtf8(viewFailed) + QString::fromStdString(content.error().words));
  }
}

void LogController::viewSession(const EarlierSession& session) {
  const Result<std::string> content = readLog(session.file);
  if (content) {
    Q_EMIT shown(QString::fromStdString(*content), QStringLiteral("Saved data of ") + timeOf(session));
  } else {
    Q_EMIT unreadable(QString::fromUtf8(sessionGone) + QString::fromUtf8(session.file.c_str()) + QStringLiteral(": ") +
                      QString::fromStdString(content.error().words));
  }
}

std::vector<LogController::Kept> LogController::earlier() const {
  std::vector<Kept> all;
  for (const EarlierSession& session : earlierSessions(log_.sessions())) all.push_back({session, false, {}});
  for (const EarlierSession& work : earlierSessions(log_.sessions(), documentEnding)) all.push_back({work, true, {}});
  const auto later = [](const Kept& a, const Kept& b) { return a.session.lastSaved > b.session.lastSaved; };
  std::stable_sort(all.begin(), all.end(), later);
  for (Kept& kept : all) {
    kept.caption = timeOf(kept.session) + (kept.work ? QStringLiteral(", unsaved chart") : QString());
  }
  return all;
}

bool LogController::copyTo(const QString& path) {
  const auto name = nativeName(path);
  return name && log_.copyTo(*name);
}

void LogController::append(const std::vector<std::string>& lines) {
  if (log_.append(lines)) {
    Q_EMIT appended(QStringLiteral("record %1 saved").arg(log_.records()));
  } else {
    Q_EMIT notAppended(QString::fromUtf8(appendFailed));
  }
}

}  // namespace moistair
