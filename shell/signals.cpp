#include "shell/signals.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <csignal>

namespace moistair {

namespace {

/// A handler can do next to nothing: what it writes into one end, the event loop reads from the other.
std::array<int, 2> ends = {-1, -1};

void onSignal(int signal) {
  const auto number = static_cast<char>(signal);
  [[maybe_unused]] const auto ignored = ::write(ends[0], &number, 1);
}

}  // namespace

void endBySignals(QObject* context, const std::function<void()>& finish) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0) return;
  auto* notifier = new QSocketNotifier(ends[1], QSocketNotifier::Read, context);
  QObject::connect(notifier, &QSocketNotifier::activated, context, [finish] {
    char number = 0;
    if (::read(ends[1], &number, 1) != 1) return;
    finish();
    std::signal(number, SIG_DFL);
    std::raise(number);
  });
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    if (std::signal(signal, onSignal) == SIG_IGN) std::signal(signal, SIG_IGN);  // as nohup wants it
  }
}

}  // namespace moistair
