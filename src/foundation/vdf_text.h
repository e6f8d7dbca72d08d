// The texts in which Steam keeps its lists (".vdf", ".acf"): quoted keys, each with a quoted value
// or with keys of its own in braces. Their bytes may be anything.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace marlowick {

// Gets the keys that lead to a value, the outermost first, and the value. UTF-8 as it stands.
using VdfValue =
    std::function<void(const std::vector<std::string>& keys, const std::string& value)>;

// Hands out the values in the order of the text, up to its end or to the first place where it is no
// such text or its braces stand deeper than any real ones.
void readVdf(std::string_view text, const VdfValue& value);

}  // namespace marlowick
