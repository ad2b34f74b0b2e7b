// The start-up error log, built up while configuration files are read, and the error box texts.
#include "settings/error_report.h"

#include <cstdio>

#include "engine/editor.h"
#include "engine/line_list.h"
#include "host/host.h"

namespace ruvo {

namespace {

constexpr const char* ProgramTitle = "RUVO / HDL Language Editor";
constexpr int BannerWidth = 62;
constexpr int LogGrowBy = 10;

const char* OrNull(const char* text) {
    return text != nullptr ? text : "NULL";
}

// printf-style formatting into one line of at most MaxLineLength bytes.
template <typename... Args> std::string Format(const char* format, Args... args) {
    char line[MaxLineLength + 1];
    std::snprintf(line, sizeof line, format, args...);
    return line;
}

std::string UnknownError(int kind, const char* first) {
    return Format("Unknown error (%d)(%s)", kind, OrNull(first));
}

LineList* LogLines() {
    StartupErrorLog& log = TheEditor().settings.startupErrors;
    if (log.lines == nullptr) log.lines = CreateLineList(LogGrowBy, 1);
    return log.lines;
}

void Append(std::string_view text) {
    LineList* lines = LogLines();
    // A failed append has already been shown by the allocator; the report goes on without it.
    if (lines != nullptr) (void)AppendLine(lines, text);
}

} // namespace

void ReportStartupError(int kind, const char* first, const char* second) {
    StartupErrorLog& log = TheEditor().settings.startupErrors;
    if (!log.reported) {
        log.reported = true;
        const std::string stars(BannerWidth, '*');
        Append(stars);
        Append(Format("*         Startup errors of %-18s       *", ProgramTitle));
        Append(stars);
    }
    ++log.errorCount;

    const char* a = OrNull(first);
    const char* b = OrNull(second);
    switch (kind) {
    case ErrorCannotOpen:
        Append(Format("Error %d: Cannot open %s file '%s'.", kind, b, a));
        break;
    case ErrorUnknownCommand:
        Append(Format("Error %d: Cannot find %s function '%s'.", kind, b, a));
        break;
    case ErrorMissingBitmap:
        Append(Format("Error %d: Cannot find bitmap '%s' for function '%s'.", kind, a, b));
        break;
    case ErrorSyntax:
        Append(Format("Error %d: %s syntax error:", kind, b));
        Append(Format("\t%s", a));
        break;
    case ErrorFreeForm:
        Append(Format("Error %d: %s %s.", kind, a, b));
        break;
    default:
        Append(UnknownError(kind, first));
        break;
    }
}

std::string ErrorText(int kind, const char* first, const char* second) {
    switch (kind) {
    case ErrorPlain:
        return OrNull(first);
    case ErrorMemory:
        return "Memory allocation error, Save design and exit program.";
    case ErrorCannotOpen:
        return Format("Cannot open %s file '%s'.", OrNull(second), OrNull(first));
    case ErrorCannotFind:
        return Format("Cannot find %s file '%s'.", OrNull(second), OrNull(first));
    case ErrorFreeForm:
        return Format("%s %s.", OrNull(first), OrNull(second));
    default:
        return UnknownError(kind, first);
    }
}

void ReportError(int kind, const char* first, const char* second) {
    TheEditor().host.ErrorBox(nullptr, ErrorText(kind, first, second));
}

bool HasStartupErrors() {
    return TheEditor().settings.startupErrors.reported;
}

} // namespace ruvo
