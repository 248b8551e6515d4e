// Bytes as base64 text.
#pragma once

#include <string>
#include <string_view>

namespace fighost {

std::string EncodeBase64(std::string_view bytes);

}  // namespace fighost
