#pragma once
// What the keys type: what is printed on them, or what a US keyboard has there where that isn't known.
#include <string>

namespace nubo {

/// What the key of that code types now, in UTF-8; empty for a key that types nothing. Both flows.
std::string typed_by(int code);

}  // namespace nubo
