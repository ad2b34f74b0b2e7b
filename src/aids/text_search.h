// Finding and replacing text in a buffer: matching, the search ranges, the replace loop.
#pragma once

#include <string_view>

#include "engine/text_pos.h"

namespace ruvo {

struct EditBuffer;
struct SearchState;

// Searches from start towards end (backwards when end is before start) for text, with or
// without letter case and as a whole word or anywhere. A match must begin by end and may run
// past it. Nothing is found for an empty text or when start equals end.
[[nodiscard]] bool searchInBuffer(const EditBuffer& buffer, std::string_view text,
                                  bool caseSensitive, bool wholeWords, TextPos start, TextPos end,
                                  TextPos& found);

// 1 replace, 0 skip, -1 cancel; without the prompt choice the answer is 1 unasked.
int confirmReplace(const SearchState& state);

// The run after OK of the Find or Replace dialog, over the range the state chooses.
void RunSearch(EditBuffer& buffer, const SearchState& state);
// Repeats the last find or replace from one character past the caret, without wrapping.
void RepeatSearch(EditBuffer& buffer, const SearchState& state);

} // namespace ruvo
