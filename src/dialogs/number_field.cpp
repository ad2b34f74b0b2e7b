// Number fields of the builder's dialogs: decimal text in, a checked integer out.
#include "dialogs/number_field.h"

#include <charconv>
#include <string>

namespace ruvo {

std::optional<int> ParseFieldNumber(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(" \t") - first + 1);
    if (text.front() == '+') text.remove_prefix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<int> NumberFieldValue(Gadget& field, int low, int high) {
    const std::optional<int> value = ParseFieldNumber(GlGadgetGetText(field));
    if (!value || *value < low || *value > high) return std::nullopt;
    return value;
}

void SetNumberField(Gadget& field, int value) {
    setGadgetValue(field, std::to_string(value));
}

} // namespace ruvo
