// The one interface through which the portable core reaches the platform.
// WinHost (src/ui) implements it with Win32 calls; FakeHost (tests) records every call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

struct EditBuffer;
struct Gadget;
struct GadgetDialog;
struct PrintedPage;

// Results of QuestionBox, and its kinds.
enum class QuestionKind : int { YesNoCancel = 1, OkCancel = 2, YesNo = 3 };
constexpr int AnswerYes = 1; // Yes or OK
constexpr int AnswerNo = 0;
constexpr int AnswerCancel = -1;

// Result codes of LzCopy: a non-negative byte count on success, else one of the LZERROR_* codes.
constexpr long LzErrorBadInHandle = -1;
constexpr long LzErrorBadOutHandle = -2;
constexpr long LzErrorRead = -3;
constexpr long LzErrorWrite = -4;
constexpr long LzErrorGlobalAlloc = -5;
constexpr long LzErrorGlobalLock = -6;
constexpr long LzErrorBadValue = -7;
constexpr long LzErrorUnknownAlgorithm = -8;
// LzCopy's own results when a file cannot be opened: the source (nothing else was touched),
// or the target when it is created (after the source was opened).
constexpr long LzSourceNotOpened = -1001;
constexpr long LzTargetNotCreated = -1002;

struct FileDialogRequest {
    bool save = false;             // save dialog, else open dialog
    std::string title;             // dialog caption
    std::string filter;            // "Desc|*.x|Desc2|*.y|" with bars, the host converts them
    std::string initialName;       // file name shown first
    std::string initialDirectory;  // directory shown first; empty for the current one
};

struct FileDialogResult {
    std::string fileName;          // the chosen file, full path
    std::string directory;         // the directory the dialog ended in
    bool readOnly = false;         // the "open as read-only" check box
};

// Printing: the platform's print dialog, and one job at a time on a printer.
enum class PrinterStatus { Ok, Cancelled, NoPrinter, Failed };
enum class PrintRange { All, Pages, Selection };

struct PrintDialogRequest {
    std::string printerName;   // the printer shown first when none was chosen yet; empty: default
    bool hasSelection = false; // the selection may be printed
};

struct PrintDialogAnswer {
    PrinterStatus status = PrinterStatus::Cancelled;
    std::string printerName; // the printer chosen
    PrintRange range = PrintRange::All;
    int fromPage = 1; // 1-based, for PrintRange::Pages
    int toPage = 1;
    int copies = 1; // copies the program itself sends
    bool collate = true;
};

struct PrintJobStart {
    std::string documentName;    // the job's name in the printer's queue
    bool defaultPrinter = false; // the default printer, else the one chosen in the dialog
    std::string fontFace;        // fixed-pitch face; bold, italic and underlined variants
    int fontPointSize = 10;
};

// The printer's page and font in its device units.
struct PrinterMetrics {
    int paperWidth = 0; // the whole sheet
    int paperHeight = 0;
    int printableLeft = 0; // where the printable area starts on the sheet
    int printableTop = 0;
    int printableWidth = 0;
    int printableHeight = 0;
    int dotsPerInchX = 0;
    int dotsPerInchY = 0;
    int charWidth = 0; // the font's character cell
    int lineHeight = 0;
};

class Host {
public:
    virtual ~Host() = default;

    // --- Message boxes -------------------------------------------------------------------
    // Error box with the stop icon, owned by the frame. A null caption gives the default
    // caption; an empty one gives none.
    virtual void ErrorBox(const char* caption, std::string_view text) = 0;
    // Question box with the question icon; returns AnswerYes, AnswerNo or AnswerCancel.
    virtual int QuestionBox(const char* caption, std::string_view text, QuestionKind kind) = 0;
    // The error stream of the program (stderr natively; a debug channel in the GUI).
    virtual void ErrorStream(std::string_view text) = 0;

    // --- Private profile (the platform resolves a bare file name) -------------------------
    // Returns the value, or `defaultValue` when the key is missing; cut to capacity - 1 bytes.
    virtual std::string ProfileGetString(std::string_view file, std::string_view section,
                                         std::string_view key, std::string_view defaultValue,
                                         int capacity) = 0;
    // Leading decimal digits of the value (optionally signed), or the default when missing.
    virtual int ProfileGetInt(std::string_view file, std::string_view section,
                              std::string_view key, int defaultValue) = 0;
    virtual bool ProfileWriteString(std::string_view file, std::string_view section,
                                    std::string_view key, std::string_view value) = 0;

    // --- Process environment ----------------------------------------------------------------
    virtual std::string ProgramPath() = 0;             // full module path, at most 255 chars
    virtual std::string Environment(std::string_view name) = 0; // empty when unset
    virtual std::string CurrentDirectory() = 0;         // at most 255 chars

    // --- Status line ------------------------------------------------------------------------
    // Pane 0..4; an empty text clears the pane; with beep the system beep sounds first.
    virtual void SetStatusPane(int pane, std::string_view text, bool beep) = 0;
    virtual void Beep() = 0;

    // --- Commands ---------------------------------------------------------------------------
    // Menu item and button of one command-table row greyed or enabled.
    virtual void EnableCommand(int commandIndex, bool enabled) = 0;
    // Asks the frame to close (the close handling asks about modified buffers).
    virtual void PostCloseFrame() = 0;

    // --- Clipboard (CF_TEXT) ----------------------------------------------------------------
    virtual bool ClipboardHasText() = 0;
    virtual std::optional<std::string> ClipboardGetText() = 0;
    virtual bool ClipboardSetText(std::string_view text) = 0;

    // --- Edit windows -----------------------------------------------------------------------
    // Creates the MDI child for a new buffer, titled with its fileName; false on failure.
    virtual bool CreateEditWindow(EditBuffer& buffer) = 0;
    virtual void SetWindowTitle(EditBuffer& buffer, std::string_view title) = 0;
    // Brings the buffer's window to the front and gives it the focus (it becomes current).
    virtual void ActivateEditWindow(EditBuffer& buffer) = 0;
    virtual void RedrawLine(EditBuffer& buffer, int line) = 0;
    virtual void RedrawWindow(EditBuffer& buffer) = 0;
    // The caret position, scroll bars and status panes follow the buffer's fields.
    virtual void UpdateCaretAndStatus(EditBuffer& buffer) = 0;
    virtual void ScrollPositionChanged(EditBuffer& buffer) = 0;

    // --- Files ------------------------------------------------------------------------------
    virtual std::optional<FileDialogResult> FileDialog(const FileDialogRequest& request) = 0;
    // Copies a file through the LZ expansion library: opens the source, then creates the
    // target, then copies. Bytes written, LzSourceNotOpened, LzTargetNotCreated, or an
    // LzError* code of the copy.
    virtual long LzCopy(std::string_view source, std::string_view target) = 0;
    virtual void SetBusyCursor(bool busy) = 0;
    // Fresh memory about to be filled at once (a slab of a file's lines): the platform may map
    // all its pages in one step instead of one page fault at a time.
    virtual void MapMemoryAhead(void* /*block*/, size_t /*bytes*/) {}
    // The progress window shown while saving large buffers.
    virtual void ShowProgress(std::string_view title, int total) = 0;
    virtual void UpdateProgress(int done) = 0;
    virtual void HideProgress() = 0;
    // The text field of the progress window (the name of the file being saved).
    virtual void SetProgressText(std::string_view) {}

    // --- Recent files -----------------------------------------------------------------------
    // The File menu's five recent-file labels changed (item i is command LoadMRUFile<i+1>);
    // their greying follows through EnableCommand.
    virtual void RecentFilesChanged(const std::vector<std::string>&) {}

    // --- Window menu ------------------------------------------------------------------------
    // Arranges or cycles the edit windows (the Window menu's commands).
    enum class WindowArrangement { Cascade, TileVertical, TileHorizontal, Next, Previous };
    virtual void ArrangeEditWindows(WindowArrangement) {}

    // --- Edit window input ------------------------------------------------------------------
    // Range of the vertical or horizontal scroll bar of the buffer's window (a maximum below
    // the minimum leaves nothing to scroll).
    virtual void SetScrollBarRange(EditBuffer&, bool /*vertical*/, int /*min*/, int /*max*/) {}
    // Position of the scroll box.
    virtual void SetScrollBarPos(EditBuffer&, bool /*vertical*/, int /*pos*/) {}
    // The text moved up by `lines` rows (down when negative): the window's pixels are moved
    // and only the uncovered rows are painted, at once.
    virtual void ScrollWindowLines(EditBuffer&, int /*lines*/) {}
    // The caret goes to the cursor's place in the window even when line and column are the
    // same as before (the view moved under it).
    virtual void MoveCaret(EditBuffer&) {}
    // The caret is made again in the shape of the insert or overwrite mode.
    virtual void RecreateCaret(EditBuffer&) {}
    // Moves the mouse pointer by one pixel, down or up; the system then sends another mouse
    // move, which keeps a drag outside the window scrolling without a timer.
    virtual void NudgePointer(bool /*down*/) {}

    // --- Edit window display ----------------------------------------------------------------
    // Draws bytes start..end of a line inverted at once, over what the window shows (the
    // highlight of a found text; a redraw of the line takes it away).
    virtual void DrawFoundText(EditBuffer&, int /*line*/, int /*startColumn*/, int /*endColumn*/) {}

    // --- Dialogs of the builder ---------------------------------------------------------------
    // The platform's dialog base units as they come: horizontal (low word), vertical (high word).
    struct DialogBaseUnits {
        int horizontal = 8;
        int vertical = 16;
    };
    virtual DialogBaseUnits GetDialogBaseUnits() { return {}; }
    // Modal: runs the dialog on the shared empty template (its controls made, DialogOpened
    // called) until it ends, and returns its result. Modeless: creates it the first time and
    // shows it; returns 0.
    virtual int RunDialog(GadgetDialog&, bool /*modal*/) { return 0; }
    // Modal: ends the running dialog with the result. Modeless: hides it.
    virtual void EndDialog(GadgetDialog&, int /*result*/) {}
    virtual void DestroyDialogWindow(GadgetDialog&) {}
    // The gadget's control shows its value, text, items, text limit and enabled state.
    virtual void UpdateGadgetControl(Gadget&) {}
    // The current text of an edit gadget's control; nothing when it has no control.
    virtual std::optional<std::string> ReadGadgetText(Gadget&) { return std::nullopt; }
    // Shows or hides a gadget's control (tab pages); gives a control the focus.
    virtual void ShowGadgetControl(Gadget&, bool /*shown*/) {}
    virtual void FocusGadgetControl(Gadget&) {}
    // The shared one-line input dialog: a prompt, an edit of at most maxLength characters
    // holding `initial`, OK and Cancel. The text on OK, nothing on Cancel.
    virtual std::optional<std::string> InputDialog(std::string_view /*prompt*/,
                                                   std::string_view /*initial*/,
                                                   int /*maxLength*/) {
        return std::nullopt;
    }

    // --- Printing -----------------------------------------------------------------------------
    // The platform's print dialog (printer, copies, page range); the printer settings chosen
    // in it are kept for the next dialog and the next job.
    virtual PrintDialogAnswer PrintDialog(const PrintDialogRequest&) { return {}; }
    // Opens the printer, makes the fonts and starts a job; on Ok the metrics are filled.
    virtual PrinterStatus StartPrintJob(const PrintJobStart&, PrinterMetrics&) {
        return PrinterStatus::NoPrinter;
    }
    // Draws one page of the running job; false when the printer refused it.
    virtual bool PrintPage(const PrintedPage&) { return false; }
    // Ends the running job (completed, else cancelled) and closes the printer.
    virtual void EndPrintJob(bool /*completed*/) {}
    // Frees the printer settings kept since the last dialog or job.
    virtual void ReleasePrinterSettings() {}

    // --- Editor options --------------------------------------------------------------------
    // Full names of the screen's fixed-pitch font families, in the order the platform lists
    // them.
    virtual std::vector<std::string> FixedPitchFontNames() { return {}; }
    // The frame lays out its children again (the button bar moved).
    virtual void RequestFrameLayout() {}
    // A new editor font from Font and FontSize, selected into every edit window, which is
    // re-measured and repainted; the active buffer's caret is placed again.
    virtual void RecreateEditorFont() {}
    // Every edit window re-measured (margin, font cell) and repainted.
    virtual void RefreshEditWindows() {}

    // --- Keyboard layout ----------------------------------------------------------------------
    // VkKeyScanA: the key's code in the low byte and the shift state in the high byte (1 Shift,
    // 2 Ctrl, 4 Alt); -1 when no key types the character.
    virtual int KeyScan(char) { return -1; }
    // MapVirtualKeyA with map type 2: the character the key's code types, 0 when none.
    virtual unsigned KeyCharacter(unsigned /*virtualKey*/) { return 0; }

    // --- Menu bar and help ------------------------------------------------------------------
    // WinHelpA with HELP_FORCEFILE, owned by the frame.
    virtual void ShowHelpFile(std::string_view /*fileName*/) {}

    // --- Button bar -------------------------------------------------------------------------
    // The named 20 x 20 picture of the program's resources and its embossed grey copy, as one
    // handle; 0 when there is no such picture.
    virtual uintptr_t LoadButtonPictures(std::string_view /*name*/) { return 0; }
    virtual void FreeButtonPictures(uintptr_t /*pictures*/) {}
    // Draws button `index` of the bar again at once, when the bar exists.
    virtual void RedrawButton(int /*index*/) {}

    // --- Processes --------------------------------------------------------------------------
    // Runs the command line in the directory (empty: the current one) with standard output and
    // standard error joined into one pipe, and hands each piece read (at most 256 bytes) to
    // `output` until the program has ended and the pipe is empty. False when the process
    // could not be created.
    virtual bool RunProcess(std::string_view /*commandLine*/, std::string_view /*directory*/,
                            const std::function<void(std::string_view)>& /*output*/) {
        return false;
    }

    // --- About box --------------------------------------------------------------------------
    // A small modal box owned by the frame showing the lines centred, with an OK button.
    virtual void AboutBox(const std::vector<std::string>& /*lines*/) {}
};

} // namespace ruvo
