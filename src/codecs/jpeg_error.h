#pragma once
// How libjpeg's failures come back to us.
#include <csetjmp>
#include <cstddef>
#include <cstdio>  // before libjpeg's header, which needs its names

#include <jpeglib.h>

namespace nubo {

/// libjpeg's error manager, with the place to which a failure jumps back and the first thing it complained about.
///
/// Whoever calls libjpeg does `setjmp(error.way_out)` in a function of its own that has no object with a destructor: a
/// jump would leave it out.
struct JpegError {
    jpeg_error_mgr manager;  // the first, so that libjpeg's pointer to it is one to the whole
    std::jmp_buf way_out;
    char text[JMSG_LENGTH_MAX];
};

/// Readies `error` and returns what belongs into the `err` of libjpeg's record.
jpeg_error_mgr* use_jpeg_error(JpegError& error);

/// Jumps back with a cause of our own.
[[noreturn]] void fail_jpeg(j_common_ptr jpeg, const char* cause);

}  // namespace nubo
