// Any bytes, read as an archive of a Workspace.
#include "fuzz/start.h"
#include "workspace/archive_file.h"

#include <cstdint>
#include <cstdlib>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    const nubo::InputFile file(nubo::put_in_file(data, size));
    nubo::ArchiveContents contents;
    if (nubo::read_archive(file, contents) != nullptr) return started;
    for (const nubo::ArchivePart& part : contents.parts)
        if (part.at > size || part.size > size - part.at) std::abort();
    nubo::find_bent_frame(file, contents);
    return started;
}
