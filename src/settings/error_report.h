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
void ReportStartupError(int kind, const char* first, const char* second);
// Formats the message of a kind and shows it in an error box at once.
void ReportError(int kind, const char* first, const char* second);
std::string ErrorText(int kind, const char* first, const char* second);
// True once any start-up error was reported.
bool HasStartupErrors();

} // namespace ruvo
