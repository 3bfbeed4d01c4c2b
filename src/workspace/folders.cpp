#include "workspace/folders.h"

#include "base/log.h"
#include "state/options.h"
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo {

bool enter_folder(const char* folder) { return chdir(folder) == 0; }

bool enter_program_dir() { return enter_folder(program_dir.data()); }

bool enter_workspace_from_here() {
    return enter_folder(workspace_folder) || (mkdir(workspace_folder, 0777) == 0 && enter_folder(workspace_folder));
}

bool enter_workspace() {
    if (enter_program_dir() && enter_workspace_from_here()) return true;
    UA_log("[ ERROR ] : The folder %s of %s can't be entered: %s", workspace_folder, program_dir.data(),
           std::strerror(errno));
    return false;
}

}  // namespace nubo
