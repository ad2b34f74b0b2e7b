// The start-up error report and the immediate error box, with their texts by kind.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

enum ErrorKind : int {
    ErrorPlain = 0,
    ErrorMemory = 1,
    ErrorCannotOpen = 2,
    ErrorUnknownCommand = 4,
    ErrorCannotFind = 5,
    ErrorMissingBitmap = 6,
    ErrorSyntax = 7,
    ErrorFreeForm = 8,
};

// Appends to the start-up error log (banner on the first report). Null texts print "NULL".
// For kinds 2 and 4 the first text is the name and the second its role ("template",
// "Menu Builder"); for kind 6 the first is the bitmap and the second the command.
void ReportStartupError(int kind, const char* first, const char* second);
// Formats the message of a kind and shows it in an error box at once (texts as above).
void ReportError(int kind, const char* first, const char* second);
std::string ErrorText(int kind, const char* first, const char* second);
// True once any start-up error was reported.
bool HasStartupErrors();

} // namespace ruvo
