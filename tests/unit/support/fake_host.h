// A Host for tests: an in-memory profile, scripted answers, and a record of every call; and a
// fresh Editor installed on one.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "engine/editor.h"
#include "host/host.h"
#include "print/print_layout.h"

namespace ruvo {

// Texts compared as a list: lines, reports, calls.
using Texts = std::vector<std::string>;

class FakeHost : public Host {
  public:
    struct Box {
        std::string caption; // "(default)" for a null caption
        std::string text;
        int kind = 0; // 0 for an error box, else the QuestionKind
    };
    struct StatusText {
        int pane;
        std::string text;
        bool beep;
    };

    // --- What the tests read back ---
    std::vector<Box> boxes;
    std::string errorStream;
    std::vector<StatusText> statusTexts;
    std::string statusPanes[5];
    std::map<int, bool> enabledCommands; // last state pushed per command index
    int closeRequests = 0;
    std::optional<std::string> clipboard;
    std::vector<EditBuffer*> createdWindows;
    std::vector<EditBuffer*> activatedWindows;
    std::vector<std::pair<EditBuffer*, int>> redrawnLines;
    std::vector<EditBuffer*> redrawnWindows;
    int caretUpdates = 0;
    int scrollUpdates = 0;
    std::vector<FileDialogRequest> fileDialogs;
    std::vector<std::pair<std::string, std::string>> lzCopies;
    int busyCursorDepth = 0;
    std::vector<std::string> progressEvents;
    std::vector<std::string> profileWrites;            // "[section] key=value" in the order written
    std::vector<std::vector<std::string>> recentMenus; // every label set handed to the menu
    std::vector<WindowArrangement> arrangements;       // every Window menu action, in order
    std::vector<std::string> scrollBarCalls; // "V range 0 90", "H pos 4", ... in call order
    std::vector<int> scrolledWindowLines;    // every ScrollWindowLines amount
    int caretMoves = 0;
    int caretRecreations = 0;
    std::vector<bool> pointerNudges; // true for a nudge down
    struct FoundText {
        EditBuffer* buffer;
        int line, startColumn, endColumn;
    };
    std::vector<FoundText> foundTexts;                // every DrawFoundText
    std::vector<std::vector<std::string>> aboutBoxes; // the lines of every about box shown
    std::vector<std::string> helpFilesShown;          // every ShowHelpFile
    std::vector<std::string> loadedPictures;          // every picture loaded, by name
    std::vector<uintptr_t> freedPictures;
    std::vector<int> redrawnButtons;

    struct ProcessRun {
        std::string commandLine;
        std::string directory;
    };
    std::vector<ProcessRun> processRuns; // every RunProcess, started or not

    // --- What the tests script ---
    // What the next RunProcess does; with none queued the program starts and prints nothing.
    struct ScriptedProcess {
        bool starts = true;
        std::vector<std::string> output; // the pieces handed over one by one
    };
    std::deque<ScriptedProcess> processScripts;
    std::deque<int> answers; // next question answers; empty: AnswerYes
    std::deque<std::optional<FileDialogResult>> fileDialogAnswers; // empty: cancelled
    std::optional<long> lzCopyResult; // forced result; else a real copy
    bool createWindowFails = false;
    std::string programPath = "C:\\ruvo\\ruvo.exe";
    std::string currentDirectory = "C:\\work";
    std::map<std::string, std::string> environment;
    // The button pictures of the program's resources (names in any case).
    std::vector<std::string> pictureNames = {
        "BUFLIST",    "CASCADE",   "COMMENT",  "COPY",           "CUT",          "EXEMPLAR",
        "FILENEW",    "FILEOPEN",  "FILESAVE", "GLASS",          "GOTOLINE",     "INDENT",
        "INFO",       "NEXTERROR", "OUTPUT",   "PASTE",          "PREVERROR",    "PRINT",
        "QUESTION",   "REDO",      "REPLACE",  "SAVEALL",        "SAVEAS",       "SEARCH",
        "SEARCHNEXT", "SILOS",     "THUNDER",  "TILEHORIZONTAL", "TILEVERTICAL", "TOOLS",
        "TRAP",       "UNCOMMENT", "UNDO",     "UNINDENT",       "VSYSTEM"};

    // In-memory profile: file -> section -> key -> value (sections and keys compared
    // without regard to case, as the platform does).
    void SetProfile(std::string_view section, std::string_view key, std::string_view value);
    std::optional<std::string> ProfileValue(std::string_view section, std::string_view key) const;
    std::string ErrorBoxTexts() const; // every box text, one per line

    void ErrorBox(const char* caption, std::string_view text) override {
        boxes.push_back({caption ? caption : "(default)", std::string(text), 0});
    }
    int QuestionBox(const char* caption, std::string_view text, QuestionKind kind) override {
        boxes.push_back(
            {caption ? caption : "(default)", std::string(text), static_cast<int>(kind)});
        return TakeFront(answers, AnswerYes);
    }
    void ErrorStream(std::string_view text) override { errorStream += text; }
    std::string ProfileGetString(std::string_view file, std::string_view section,
                                 std::string_view key, std::string_view defaultValue,
                                 int capacity) override;
    int ProfileGetInt(std::string_view file, std::string_view section, std::string_view key,
                      int defaultValue) override;
    bool ProfileWriteString(std::string_view file, std::string_view section, std::string_view key,
                            std::string_view value) override;
    std::string ProgramPath() override { return programPath; }
    std::string Environment(std::string_view name) override {
        auto it = environment.find(std::string(name));
        return it == environment.end() ? std::string() : it->second;
    }
    std::string CurrentDirectory() override { return currentDirectory; }
    void SetStatusPane(int pane, std::string_view text, bool beep) override {
        statusTexts.push_back({pane, std::string(text), beep});
        if (pane >= 0 && pane < 5) statusPanes[pane] = std::string(text);
    }
    void Beep() override {}
    void EnableCommand(int commandIndex, bool enabled) override {
        enabledCommands[commandIndex] = enabled;
    }
    void PostCloseFrame() override { ++closeRequests; }
    bool ClipboardHasText() override { return clipboard.has_value(); }
    std::optional<std::string> ClipboardGetText() override { return clipboard; }
    bool ClipboardSetText(std::string_view text) override {
        clipboard = std::string(text);
        return true;
    }
    bool CreateEditWindow(EditBuffer& buffer) override;
    void SetWindowTitle(EditBuffer& buffer, std::string_view title) override {
        windowTitles[&buffer] = std::string(title);
    }
    void ActivateEditWindow(EditBuffer& buffer) override;
    void RedrawLine(EditBuffer& buffer, int line) override {
        redrawnLines.emplace_back(&buffer, line);
    }
    void RedrawWindow(EditBuffer& buffer) override { redrawnWindows.push_back(&buffer); }
    void UpdateCaretAndStatus(EditBuffer&) override { ++caretUpdates; }
    void ScrollPositionChanged(EditBuffer&) override { ++scrollUpdates; }
    std::optional<FileDialogResult> FileDialog(const FileDialogRequest& request) override {
        fileDialogs.push_back(request);
        return TakeFront(fileDialogAnswers);
    }
    long LzCopy(std::string_view source, std::string_view target) override;
    void SetBusyCursor(bool busy) override { busyCursorDepth += busy ? 1 : -1; }
    void ShowProgress(std::string_view title, int total) override {
        progressEvents.push_back("show " + std::string(title) + " " + std::to_string(total));
    }
    void UpdateProgress(int done) override {
        progressEvents.push_back("update " + std::to_string(done));
    }
    void HideProgress() override { progressEvents.push_back("hide"); }
    void SetProgressText(std::string_view text) override {
        progressEvents.push_back("text " + std::string(text));
    }
    void RecentFilesChanged(const std::vector<std::string>& labels) override {
        recentMenus.push_back(labels);
    }
    void ArrangeEditWindows(WindowArrangement how) override { arrangements.push_back(how); }
    void AboutBox(const std::vector<std::string>& lines) override { aboutBoxes.push_back(lines); }
    void SetScrollBarRange(EditBuffer&, bool vertical, int min, int max) override {
        scrollBarCalls.push_back(std::string(vertical ? "V" : "H") + " range " +
                                 std::to_string(min) + " " + std::to_string(max));
    }
    void SetScrollBarPos(EditBuffer&, bool vertical, int pos) override {
        scrollBarCalls.push_back(std::string(vertical ? "V" : "H") + " pos " + std::to_string(pos));
    }
    void ScrollWindowLines(EditBuffer&, int lines) override {
        scrolledWindowLines.push_back(lines);
    }
    void MoveCaret(EditBuffer&) override { ++caretMoves; }
    void RecreateCaret(EditBuffer&) override { ++caretRecreations; }
    void NudgePointer(bool down) override { pointerNudges.push_back(down); }
    // A US keyboard layout.
    int KeyScan(char character) override;
    unsigned KeyCharacter(unsigned virtualKey) override;
    void ShowHelpFile(std::string_view name) override { helpFilesShown.emplace_back(name); }
    uintptr_t LoadButtonPictures(std::string_view name) override;
    void FreeButtonPictures(uintptr_t pictures) override { freedPictures.push_back(pictures); }
    void RedrawButton(int index) override { redrawnButtons.push_back(index); }
    void DrawFoundText(EditBuffer& buffer, int line, int startColumn, int endColumn) override {
        foundTexts.push_back({&buffer, line, startColumn, endColumn});
    }

    bool RunProcess(std::string_view commandLine, std::string_view directory,
                    const std::function<void(std::string_view)>& output) override {
        processRuns.push_back({std::string(commandLine), std::string(directory)});
        const ScriptedProcess script = TakeFront(processScripts);
        if (!script.starts) return false;
        for (const std::string& piece : script.output)
            output(piece);
        return true;
    }

    std::map<EditBuffer*, std::string> windowTitles;

    // --- Printing: what the tests script and read back ---
    std::deque<PrintDialogAnswer> printDialogAnswers; // empty: the dialog is cancelled
    std::vector<PrintDialogRequest> printDialogs;
    PrinterStatus printerStatus = PrinterStatus::Ok; // what StartPrintJob answers
    PrinterMetrics printerMetrics{2550, 3300, 75, 75, 2400, 3150, 300, 300, 25, 42}; // letter
    int refusedPage = -1; // PrintPage fails for this page of all
    std::vector<PrintJobStart> printJobs;
    std::vector<PrintedPage> printedPages; // every page sent, in order
    std::vector<bool> endedJobs;           // EndPrintJob's argument per job
    int printerReleases = 0;

    PrintDialogAnswer PrintDialog(const PrintDialogRequest& request) override {
        printDialogs.push_back(request);
        return TakeFront(printDialogAnswers);
    }
    PrinterStatus StartPrintJob(const PrintJobStart& start, PrinterMetrics& metrics) override {
        printJobs.push_back(start);
        if (printerStatus == PrinterStatus::Ok) metrics = printerMetrics;
        return printerStatus;
    }
    bool PrintPage(const PrintedPage& page) override {
        if (static_cast<int>(printedPages.size()) == refusedPage) return false;
        printedPages.push_back(page);
        return true;
    }
    void EndPrintJob(bool completed) override { endedJobs.push_back(completed); }
    void ReleasePrinterSettings() override { ++printerReleases; }

    // --- Editor options ---
    std::vector<std::string> fixedPitchFonts{"Courier New", "Lucida Console", "Fixedsys"};
    int frameLayouts = 0;
    int fontRecreations = 0;
    int editWindowRefreshes = 0;
    std::vector<std::string> FixedPitchFontNames() override { return fixedPitchFonts; }
    void RequestFrameLayout() override { ++frameLayouts; }
    void RecreateEditorFont() override { ++fontRecreations; }
    void RefreshEditWindows() override { ++editWindowRefreshes; }

    // --- Dialogs: the user's part ---
    // What the user does in each dialog shown from now on, in order: fill gadgets (TypeText,
    // setGadgetValue) and press a button (DialogOkCommand, DialogCancelCommand, GadgetNotified).
    // A modal dialog that is still open afterwards is cancelled; with no action left it is
    // cancelled at once.
    std::deque<std::function<void(GadgetDialog&)>> dialogActions;
    std::vector<std::string> shownDialogs; // the title of every dialog shown
    // Answers of the one-line input dialog, in order; nothing (or none left) is Cancel.
    std::deque<std::optional<std::string>> inputAnswers;
    struct InputRequest {
        std::string prompt, initial;
        int maxLength;
    };
    std::vector<InputRequest> inputRequests;
    // Types into an edit gadget's control as a user would: cut to the gadget's text limit.
    void TypeText(Gadget& gadget, std::string_view text);
    bool DialogVisible(const GadgetDialog& dialog) const { return visible_.count(&dialog) > 0; }
    DialogBaseUnits dialogBaseUnits{8, 16};
    std::map<const Gadget*, bool> gadgetShown; // last ShowGadgetControl per gadget
    const Gadget* focusedGadget = nullptr;

    DialogBaseUnits GetDialogBaseUnits() override { return dialogBaseUnits; }
    void UpdateGadgetControl(Gadget& gadget) override { typedTexts_.erase(&gadget); }
    void ShowGadgetControl(Gadget& gadget, bool shown) override { gadgetShown[&gadget] = shown; }
    void FocusGadgetControl(Gadget& gadget) override { focusedGadget = &gadget; }

    int RunDialog(GadgetDialog& dialog, bool modal) override;
    void EndDialog(GadgetDialog& dialog, int result) override;
    void DestroyDialogWindow(GadgetDialog& dialog) override;
    std::optional<std::string> ReadGadgetText(Gadget& gadget) override;
    std::optional<std::string> InputDialog(std::string_view prompt, std::string_view initial,
                                           int maxLength) override;

  private:
    // The next scripted answer, taken off its queue; `otherwise` when none is left.
    template <typename T> static T TakeFront(std::deque<T>& queue, T otherwise = {}) {
        if (queue.empty()) return otherwise;
        T front = std::move(queue.front());
        queue.pop_front();
        return front;
    }
    void CreateControls(GadgetDialog& dialog);
    std::map<const GadgetDialog*, int> endResults_;   // modal dialogs ended while running
    std::set<const GadgetDialog*> visible_;           // modeless dialogs shown
    std::map<const Gadget*, std::string> typedTexts_; // controls' texts the user typed
    struct LessIgnoringCase {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const;
    };
    using Section = std::map<std::string, std::string, LessIgnoringCase>;
    std::map<std::string, Section, LessIgnoringCase> profile_;
};

// A fresh Editor on a FakeHost (for each test, each input of a fuzz target, each allocation
// made to fail), installed while it lives, so no state passes from one holder to the next. The
// editor goes (with its buffers) while still installed.
struct InstalledEditor {
    FakeHost host;
    struct Uninstall {
        ~Uninstall() { InstallEditor(nullptr); }
    } uninstall;
    Editor editor{host};
    InstalledEditor() { InstallEditor(&editor); }
    InstalledEditor(const InstalledEditor&) = delete;
    InstalledEditor& operator=(const InstalledEditor&) = delete;
};

} // namespace ruvo
