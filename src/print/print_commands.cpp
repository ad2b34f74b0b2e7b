// Printing of the active buffer and of a file named after "/p": the job's pages, copies and
// messages; the printer itself is the host's.
#include "print/print_commands.h"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <string>

#include "docs/documents.h"
#include "docs/file_reading.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/line_layout.h"
#include "host/host.h"
#include "lang/language_table.h"
#include "print/print_layout.h"
#include "settings/settings_io.h"

namespace ruvo {

namespace {

constexpr const char* NoPrinterText = "No printer is installed.";
constexpr const char* NoFileText = "No file to print is named after /p.";
constexpr int MaxPrintPointSize = 72;
constexpr int DefaultLeftMargin = 8;
constexpr int MaxCopies = 9999;
constexpr int32_t PrintGrowBy = 1000;

std::string CannotPrintText(std::string_view title) {
    return "Cannot print '" + std::string(title) + "'.";
}

std::string Pages(int count) {
    return std::to_string(count) + (count == 1 ? " page" : " pages");
}

std::string DateText() {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    char text[32];
    if (local == nullptr || std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", local) == 0)
        return {};
    return text;
}

int NumberOr(std::string_view text, int fallback) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end != text.data() ? value : fallback;
}

// A final empty line (after the last line end of a file) is not printed.
int32_t PrintedEnd(const LineList& lines, int32_t first, int32_t end) {
    if (end - first > 1 && lines.lineText[end - 1] != nullptr && lines.lineText[end - 1][0] == 0)
        return end - 1;
    return end;
}

struct JobOptions {
    bool defaultPrinter = false;
    int fromPage = 1; // 1-based
    int toPage = 0;   // 0: the last page
    int copies = 1;
    bool collate = true;
    bool reportDone = false; // say in the status line how many pages went to the printer
};

void RunPrintJob(const PrintSource& source, const JobOptions& options) {
    Editor& editor = TheEditor();
    Host& host = editor.host;
    const PrintSettings& settings = editor.settings.print;
    PrintJobStart start;
    start.documentName = source.title;
    start.defaultPrinter = options.defaultPrinter;
    start.fontFace = editor.settings.options.font;
    start.fontPointSize = std::min(EditorFontPointSize(settings.fontSize), MaxPrintPointSize);
    PrinterMetrics metrics;
    switch (host.StartPrintJob(start, metrics)) {
    case PrinterStatus::Ok:
        break;
    case PrinterStatus::Cancelled:
        return;
    case PrinterStatus::NoPrinter:
        host.ErrorBox(nullptr, NoPrinterText);
        return;
    case PrinterStatus::Failed:
        host.ErrorBox(nullptr, CannotPrintText(source.title));
        return;
    }

    host.SetBusyCursor(true);
    const PrintLayout layout(
        source, settings, editor.settings.options.tabSize,
        ComputePageGrid(metrics, NumberOr(settings.leftMargin, DefaultLeftMargin)));
    const int count = layout.PageCount();
    const int first = std::max(options.fromPage, 1) - 1;
    const int last = (options.toPage > 0 ? std::min(options.toPage, count) : count) - 1;
    if (first > last) {
        host.EndPrintJob(false);
        host.SetBusyCursor(false);
        host.ErrorBox(nullptr, "There is no page " + std::to_string(first + 1) + " in '" +
                                   source.title + "': it has " + Pages(count) + ".");
        return;
    }

    const int pages = last - first + 1;
    const int copies = std::clamp(options.copies, 1, MaxCopies);
    const int total = pages * copies;
    bool printed = true;
    for (int i = 0; i < total && printed; ++i) {
        const int page = first + (options.collate ? i % pages : i / copies);
        printed = host.PrintPage(layout.Page(page));
    }
    host.EndPrintJob(printed);
    host.SetBusyCursor(false);
    if (!printed)
        host.ErrorBox(nullptr, CannotPrintText(source.title));
    else if (options.reportDone)
        host.SetStatusPane(4, Pages(total) + " printed.", false);
}

// A name in double quotes may hold blanks; blanks around it do not count.
std::string FileNameOf(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        text = text.substr(1, text.size() - 2);
    else if (!text.empty() && text.front() == '"')
        text.remove_prefix(1);
    return std::string(text);
}

} // namespace

int PrintText() {
    Editor& editor = TheEditor();
    EditBuffer* buffer = editor.engine.currentBuffer;
    if (buffer == nullptr || buffer->IsClosed()) return 0;
    Host& host = editor.host;

    PrintDialogRequest request;
    request.printerName = editor.settings.print.printDestination;
    request.hasSelection = buffer->lines.hasSelection != 0;
    const PrintDialogAnswer answer = host.PrintDialog(request);
    switch (answer.status) {
    case PrinterStatus::Ok:
        break;
    case PrinterStatus::Cancelled:
        return 0;
    case PrinterStatus::NoPrinter:
        host.ErrorBox(nullptr, NoPrinterText);
        return 0;
    case PrinterStatus::Failed:
        host.ErrorBox(nullptr, "The Print dialog cannot be shown.");
        return 0;
    }
    editor.settings.print.printDestination = answer.printerName;

    PrintSource source;
    source.lines = &buffer->lines;
    source.language = buffer->language;
    source.title = buffer->fullPath[0] != 0 ? buffer->fullPath : buffer->fileName;
    source.date = DateText();
    JobOptions options;
    if (answer.range == PrintRange::Selection && request.hasSelection) {
        // Whole lines; a selection that ends at the start of a line leaves that line out.
        source.firstLine = buffer->selStart.line;
        source.endLine = buffer->selEnd.line + 1;
        if (buffer->selEnd.column == 0 && buffer->selEnd.line > buffer->selStart.line)
            --source.endLine;
    } else {
        source.endLine = PrintedEnd(buffer->lines, 0, buffer->lines.lineCount);
    }
    if (answer.range == PrintRange::Pages) {
        options.fromPage = answer.fromPage;
        options.toPage = std::max(answer.toPage, answer.fromPage);
    }
    options.copies = answer.copies;
    options.collate = answer.collate;
    options.reportDone = true;
    RunPrintJob(source, options);
    return 0;
}

void PrintFileFromCommandLine(std::string_view fileName) {
    LoadSettings();
    Host& host = TheEditor().host;
    const std::string name = FileNameOf(fileName);
    if (name.empty()) {
        host.ErrorBox(nullptr, NoFileText);
        return;
    }
    EditBuffer buffer;
    buffer.lines.growBy = PrintGrowBy;
    if (readFileIntoBuffer(buffer, name) == FileRead::Read) {
        PrintSource source;
        source.lines = &buffer.lines;
        source.endLine = PrintedEnd(buffer.lines, 0, buffer.lines.lineCount);
        source.language = languageForFile(name);
        source.title = fullPathOf(name);
        source.date = DateText();
        JobOptions options;
        options.defaultPrinter = true;
        RunPrintJob(source, options);
    }
    ClearLineList(&buffer.lines);
}

void ReleasePrinterSettings() {
    TheEditor().host.ReleasePrinterSettings();
}

} // namespace ruvo
