#pragma once
// The framework's own actions of the job queue.

namespace nubo {

/// Names the actions of sounds, fog, scripts that wait, and dust. Once at start.
void install_framework_jobs();

}  // namespace nubo
