// Words under a position and plain-text search over a buffer.
#pragma once

#include <string>
#include <string_view>

#include "engine/text_pos.h"

namespace ruvo {

struct EditBuffer;

// A letter, a digit or the underscore.
bool IsWordChar(char c);
// The word around pos on its line. Both ends stay at pos unless the byte there is a letter or
// a digit (an underscore or the line end under the caret does not start a word).
TextRange WordBounds(const EditBuffer& buffer, TextPos pos);
// 1 with the word and its start when there is one at pos; else 0 and an empty text.
int GetWordAt(const EditBuffer& buffer, TextPos pos, std::string& text, TextPos& start);
// Searches from range.start towards range.end (backwards when end is before start); a match
// may start at either end. 1 with the match position in found, else 0.
int SearchText(const EditBuffer& buffer, std::string_view pattern, bool matchCase, bool wholeWord,
               TextRange range, TextPos& found);

} // namespace ruvo
