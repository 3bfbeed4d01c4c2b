#include "codecs/jpeg_error.h"

namespace nubo {
namespace {

JpegError& error_of(j_common_ptr jpeg) { return *reinterpret_cast<JpegError*>(jpeg->err); }

/// Keeps the message instead of writing it to standard error.
void keep_message(j_common_ptr jpeg) { jpeg->err->format_message(jpeg, error_of(jpeg).text); }

[[noreturn]] void jump_back(j_common_ptr jpeg) {
    jpeg->err->output_message(jpeg);
    std::longjmp(error_of(jpeg).way_out, 1);
}

}  // namespace

jpeg_error_mgr* use_jpeg_error(JpegError& error) {
    jpeg_std_error(&error.manager);
    error.manager.error_exit = jump_back;
    error.manager.output_message = keep_message;
    error.text[0] = '\0';
    return &error.manager;
}

void fail_jpeg(j_common_ptr jpeg, const char* cause) {
    std::snprintf(error_of(jpeg).text, JMSG_LENGTH_MAX, "%s", cause);
    std::longjmp(error_of(jpeg).way_out, 1);
}

}  // namespace nubo
