// The list of errors read from a compiler's output, and stepping through it.
#pragma once

#include <cstdint>
#include <string_view>

#include "tools/message_parsers.h"

namespace ruvo {

struct Editor;
struct EditBuffer;

// Reads every line of the result buffer with the mode's parser: one entry per message,
// a message about the same place as the entry just made is skipped. The mode becomes the
// active one, the caret of the result window goes to its top and NextError/PrevError are
// enabled when there is an entry.
void buildErrorList(EditBuffer& resultBuffer, ErrorMode mode, std::string_view sourceBaseName);
// Frees the list and forgets the active parser, greys NextError/PrevError and draws the old
// source again (its markers go).
void discardErrors();
// Empties the result window and discards the errors.
void clearErrors();
// Selects message line `resultLine` of the result window and the source line it names;
// with activateSource the source window comes to the front.
void showError(int32_t resultLine, bool activateSource);
void nextError();
void prevError();

// True while the result window is open and the list has an entry.
bool hasErrorList();
// Connects the list to the margin markers, the command states and the caret of the result
// window.
void ConnectErrorList(Editor& editor);

} // namespace ruvo
