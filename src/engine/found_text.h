// The highlight of a search match: drawn inverted over its line until it is taken away.
#pragma once

#include "engine/text_pos.h"

namespace ruvo {

struct EditBuffer;

// Takes away any earlier highlight, then draws start..end inverted when both lie on one line
// and remembers it as shown.
void ShowFoundText(EditBuffer& buffer, TextPos start, TextPos end);
// Redraws the highlighted line normally and forgets the highlight.
void HideFoundText();

} // namespace ruvo
