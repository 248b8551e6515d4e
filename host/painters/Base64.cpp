#include <painters/Base64.h>

#include <cstddef>
#include <cstdint>

namespace fighost {

std::string EncodeBase64(std::string_view bytes) {
    static constexpr char DIGITS[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            bits = bits << 8;
            if (i + k < bytes.size()) bits |= static_cast<unsigned char>(bytes[i + k]);
        }
        for (std::size_t k = 0; k < 4; ++k) {
            bool const padding = i + k > bytes.size();
            text += padding ? '=' : DIGITS[(bits >> (18 - 6 * k)) & 0x3F];
        }
    }
    return text;
}

}  // namespace fighost
