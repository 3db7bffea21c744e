// Bytes as text.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Appends `bytes` in base64, padded and without line breaks. `text` grows once, by just what it needs and a little
/// room to go on in.
void appendBase64(std::string& text, std::string_view bytes);

} // namespace platform
