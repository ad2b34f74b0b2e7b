// Line-range edits of HDL text: comment, indent and the case of reserved words.
#pragma once

#include <cstdint>
#include <utility>

namespace ruvo {

struct EditBuffer;

enum class RangeAction : int { Comment = 0, Indent = 1, Case = 2 };

// Lines start..end of the current buffer, each changed by its own edit: `first` adds the
// line comment, indents or upper-cases the reserved words; otherwise it removes one leading
// comment or tab, or lower-cases them. The range is clamped to the text; an inverted one does
// nothing. The selection stays on the same lines.
void ApplyRangeEdit(RangeAction action, bool first, int32_t start, int32_t end);
// First and last line of the selection; a selection that ends at column 0 of a later line
// does not take that line.
std::pair<int32_t, int32_t> SelectedLineRange(const EditBuffer& buffer);

// Commands on the selected lines.
int AddIndent();
int RemoveIndent();
int AddComment();
int RemoveComment();

} // namespace ruvo
