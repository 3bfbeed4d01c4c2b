#pragma once
// What a program puts on the clipboard.
#include "platform/memory_packfile.h"
#include <functional>
#include <string>
#include <vector>

namespace nubo {

/// A kind is the name that programs agree on, such as "image/png" or "UTF8_STRING".
struct ClipboardOffer {
    std::vector<std::string> kinds;  // the best first
    /// Makes the bytes of one of the kinds; false if it can't. Called when they are first asked for, then never again.
    std::function<bool(const std::string& kind, Bytes& bytes)> encode;
};

}  // namespace nubo
