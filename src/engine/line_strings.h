// In-place edits of single line strings held in work buffers of MaxLineLength + 1 bytes.
#pragma once

#include <string_view>

namespace ruvo {

// Removes the first n bytes of s (all of it when n is longer).
void DeleteLeadingChars(char* s, int n);
// Shifts s right by n bytes; the caller fills the gap and guarantees the room.
void OpenGap(char* s, int n);
// Replaces the first n bytes of s by the whole of t, shifting the rest.
void ReplacePrefix(char* s, int n, std::string_view t);
// Removes one trailing line feed and, after it, one trailing carriage return.
void StripLineEnd(char* s);
// Deletes every carriage return.
void RemoveCR(char* s);
// Puts the leading white space of sourceLine (at most max characters) in front of target;
// returns how many characters were copied.
int CopyIndent(char* target, const char* sourceLine, int max);

} // namespace ruvo
