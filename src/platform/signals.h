#pragma once
// The signals that ask the program to end.

namespace nubo {

/// From now on SIGTERM, SIGINT and SIGHUP set `exit_requested`, so that the workspace is written, also where the
/// display doesn't answer any more. Called once, after Allegro's start, which installs handlers of its own.
void request_exit_on_signals();

}  // namespace nubo
