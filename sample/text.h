// Comparing texts the way people read them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sample {

bool isUtf8(std::string_view text);

/// The text with case and the ways to write an accent evened out, for comparing and for sorting.
std::string fold(std::string_view text);

/// Whether `text` holds `folded`, a text that has been through `fold`, in any case.
bool containsFolded(std::string_view text, std::string_view folded);

std::vector<std::string> words(std::string_view text);

} // namespace sample
