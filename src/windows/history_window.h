#pragma once

namespace nubo {

/// HISTORY: a slider over the steps that undo and redo reach; the Frame shows the picture of each. OKAY stays there,
/// CANCEL returns. By its key and by the middle button on UNDO.
void history_window();

}  // namespace nubo
