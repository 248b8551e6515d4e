// Text between UTF-8 and wide characters.
#pragma once

#include <string>
#include <string_view>

namespace du {

/// One wide character per code point; each byte that is no part of valid UTF-8 becomes U+FFFD.
std::wstring Utf8ToWideStr(std::string_view text);

/// The reverse; values that are no code points become U+FFFD.
std::string WideStrToUtf8(std::wstring_view text);

}  // namespace du
