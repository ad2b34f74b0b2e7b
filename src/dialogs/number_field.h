// Edit gadgets that hold a number: shown as decimal text, read back within a range.
#pragma once

#include <optional>
#include <string_view>

#include "dialogs/gadget_dialog.h"

namespace ruvo {

// The integer a field's text holds (blanks around it allowed), or nothing.
std::optional<int> ParseFieldNumber(std::string_view text);
// The field's number when it lies in low..high; nothing for an empty field, another text or a
// number outside the range, so that the caller keeps its old value.
std::optional<int> NumberFieldValue(Gadget& field, int low, int high);
// Shows the number as "%d".
void SetNumberField(Gadget& field, int value);

} // namespace ruvo
