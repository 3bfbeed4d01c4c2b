#pragma once
// What a new Workspace holds.

namespace nubo {

/// Gives all values of the Workspace what a new one holds: slots of tools and inks, views, and colours drawn at random.
/// The Frame, the Cel and the names stay.
void set_workspace_defaults();

}  // namespace nubo
