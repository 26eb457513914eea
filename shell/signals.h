/// \file
/// Signals that ask the program to end: of a terminal, of a session that is closed, of a shutdown.
#pragma once

#include <QObject>
#include <functional>

namespace moistair {

/// Calls `finish` when SIGTERM, SIGINT or SIGHUP comes, from the event loop and not from the midst of something else,
/// and then lets the signal end the program as it would have. To be called once.
void endBySignals(QObject* context, const std::function<void()>& finish);

}  // namespace moistair
