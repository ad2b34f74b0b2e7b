// The command table, the lookups on it, dispatch of a chosen command and the enabled states.
#include "commands/command_table.h"

#include <cctype>
#include <string>

#include "aids/hdl_edits_dialog.h"
#include "aids/range_edits.h"
#include "aids/search_commands.h"
#include "aids/templates_dialog.h"
#include "aids/word_expansion.h"
#include "commands/accelerators_dialog.h"
#include "commands/button_bar.h"
#include "commands/help_files.h"
#include "commands/pending_commands.h"
#include "docs/file_commands.h"
#include "engine/bookmarks.h"
#include "engine/clipboard_commands.h"
#include "engine/cursor_motion.h"
#include "engine/edit_buffer.h"
#include "engine/editing_commands.h"
#include "engine/editor.h"
#include "engine/transaction_log.h"
#include "host/host.h"
#include "lang/language_dialog.h"
#include "print/print_commands.h"
#include "settings/error_report.h"
#include "settings/options_dialog.h"
#include "tools/tool_commands.h"

namespace ruvo {

// Row order is fixed: a row's number is what menus, keys and buttons store. The texts are the
// program's own, odd spellings included.
// clang-format off
const CommandRow CommandTable[CommandRowCount] = {
    /*  0 */ {LoadFile, "LoadFile", "Open file", "Locate and open a file.", 0},
    /*  1 */ {NewFile, "NewFile", "New", "Create a new unnamed file.", 0},
    /*  2 */ {InsertFile, "InsertFile", "Insert file", "Insert file into current buffer.", NeedsBuffer},
    /*  3 */ {SaveFile, "SaveFile", "Save", "Save the file in the active edit window.", NeedsBuffer},
    /*  4 */ {SaveFileAs, "SaveFileAs", "Save as", "Save the active file with another name.", NeedsBuffer},
    /*  5 */ {SaveAll, "SaveAll", "Save all", "Save all edit buffers.", NeedsBuffer},
    /*  6 */ {PrintText, "PrintText", "Print", "Print current buffer.", NeedsBuffer},
    /*  7 */ {ExitApp, "ExitApp", "Exit", "Leave the editor", 0},
    /*  8 */ {LoadMRUFile1, "LoadMRUFile1", "", "Load this file.", 0},
    /*  9 */ {LoadMRUFile2, "LoadMRUFile2", "", "Load this file.", 0},
    /* 10 */ {LoadMRUFile3, "LoadMRUFile3", "", "Load this file.", 0},
    /* 11 */ {LoadMRUFile4, "LoadMRUFile4", "", "Load this file.", 0},
    /* 12 */ {LoadMRUFile5, "LoadMRUFile5", "", "Load this file.", 0},
    /* 13 */ {FindText, "FindText", "Search", "Search for text.", NeedsBuffer},
    /* 14 */ {FindNextText, "FindNextText", "Search again", "Repeat last Find or Replace operation.", NeedsBuffer},
    /* 15 */ {ReplaceText, "ReplaceText", "Replace", "Search and replace text.", NeedsBuffer},
    /* 16 */ {GotoLine, "GotoLine", "Goto line", "Goto a line number.", NeedsBuffer},
    /* 17 */ {EditSpecial, "EditSpecial", "Try me", "Special features...", NeedsBuffer},
    /* 18 */ {EditTemplates, "EditTemplates", "Templates", "Templates...", NeedsBuffer},
    /* 19 */ {LanguageExpand, "LanguageExpand", "Expand", "Expand previous word.", NeedsBuffer},
    /* 20 */ {IdentifierExpand, "IdentifierExpand", "Identfier expand", "Expand to previous identifier.", NeedsBuffer},
    /* 21 */ {VsystemOptions, "VsystemOptions", "Vsystem options", "Options for V-System compile", 0},
    /* 22 */ {VsystemVHDL, "VsystemVHDL", "Vsystem VHDL", "Compile VHDL source code with V-system.", NeedsBuffer},
    /* 23 */ {VsystemVerilog, "VsystemVerilog", "Vsystem Verilog", "Compile Verilog source code with V-system.", NeedsBuffer},
    /* 24 */ {LeonardoCompile, "LeonardoCompile", "Leonardo", "Compile with Leonardo.", NeedsBuffer},
    /* 25 */ {SynplifyVhdl, "SynplifyVhdl", "Synplify Vhdl", "Compile Vhdl with Synplify.", NeedsBuffer},
    /* 26 */ {SynplifyVerilog, "SynplifyVerilog", "Synplify Verilog", "Compile Verilog with Synplify.", NeedsBuffer},
    /* 27 */ {NextError, "NextError", "Next error", "Locate next error.", NeedsErrorList},
    /* 28 */ {PrevError, "PrevError", "Previous error", "Locate previous error.", NeedsErrorList},
    /* 29 */ {AddIndent, "AddIndent", "Indent", "Indent selected text.", NeedsSelection},
    /* 30 */ {RemoveIndent, "RemoveIndent", "Un-indent", "Un-indent selected text.", NeedsSelection},
    /* 31 */ {AddComment, "AddComment", "Add comment", "Change selected text into comment.", NeedsSelection},
    /* 32 */ {RemoveComment, "RemoveComment", "Remove comment", "Remove comment of selected text.", NeedsSelection},
    /* 33 */ {EditCopy, "EditCopy", "Copy", "Copy the selected text to the Clipboard.", NeedsSelection},
    /* 34 */ {EditCut, "EditCut", "Cut", "Move the the selected text to the Clipboard.", NeedsSelection},
    /* 35 */ {EditPaste, "EditPaste", "Paste", "Insert text of the Clipboard at the current position.", NeedsBuffer},
    /* 36 */ {EditClear, "EditClear", "Clear", "Delete the the selected text.", NeedsSelection},
    /* 37 */ {EditUndo, "EditUndo", "Undo", "Undo the previous editor action.", NeedsUndo},
    /* 38 */ {EditRedo, "EditRedo", "Redo", "Redo the previous editor action.", NeedsRedo},
    /* 39 */ {GoLineUp, "GoLineUp", "Line up", "Move the cursor one line up.", 0},
    /* 40 */ {GoLineDown, "GoLineDown", "LIne down", "Move the cursor one line down.", 0},
    /* 41 */ {GoCharLeft, "GoCharLeft", "Character left", "Move the cursor one character left.", 0},
    /* 42 */ {GoCharRight, "GoCharRight", "Character right", "Move the cursor one character right.", 0},
    /* 43 */ {GoWordLeft, "GoWordLeft", "Word left", "Move the cursor one word left.", 0},
    /* 44 */ {GoWordRight, "GoWordRight", "Word right", "Move the cursor one word right.", 0},
    /* 45 */ {GoBeginLine, "GoBeginLine", "", "Move the cursor to begin of line.", 0},
    /* 46 */ {GoEndLine, "GoEndLine", "", "Move the cursor to end of line.", 0},
    /* 47 */ {GoPageUp, "GoPageUp", "", "Move and scroll one page up.", 0},
    /* 48 */ {GoPageDown, "GoPageDown", "", "Move and scroll one page up.", 0},
    /* 49 */ {GoBeginDoc, "GoBeginDoc", "", "Move cursor to begin of document.", 0},
    /* 50 */ {GoEndDoc, "GoEndDoc", "", "Move cursor to end of document.", 0},
    /* 51 */ {DeleteChar, "DeleteChar", "", "Delete next character.", 0},
    /* 52 */ {BackspaceChar, "BackspaceChar", "", "Delete previous character.", 0},
    /* 53 */ {DeleteLine, "DeleteLine", "", "Delete current line.", 0},
    /* 54 */ {DeleteWord, "DeleteWord", "", "Delete word right of cursor.", NeedsBuffer},
    /* 55 */ {EditorOptions, "EditorOptions", "Editor options", "Edit editor settings.", 0},
    /* 56 */ {LanguageOptions, "LanguageOptions", "Language options", "Edit languages settings.", 0},
    /* 57 */ {LeonardoOptions, "LeonardoOptions", "Leonardo options", "Edit Leonardo settings.", 0},
    /* 58 */ {About, "About", "About", "Display version and copyright information.", 0},
    /* 59 */ {ToolOptions, "ToolOptions", "Tool options", "Edit tool settings.", 0},
    /* 60 */ {RunTool1, "RunTool1", "RunTool1", "Run tool 1.", 0},
    /* 61 */ {RunTool2, "RunTool2", "RunTool2", "Run tool 2.", 0},
    /* 62 */ {RunTool3, "RunTool3", "RunTool3", "Run tool 3.", 0},
    /* 63 */ {RunTool4, "RunTool4", "RunTool4", "Run tool 4.", 0},
    /* 64 */ {RunTool5, "RunTool5", "RunTool5", "Run tool 5.", 0},
    /* 65 */ {RunTool6, "RunTool6", "RunTool6", "Run tool 6.", 0},
    /* 66 */ {GotoMark0, "GotoMark0", "", "Goto bookmark 0.", 0},
    /* 67 */ {GotoMark1, "GotoMark1", "", "Goto bookmark 1.", 0},
    /* 68 */ {GotoMark2, "GotoMark2", "", "Goto bookmark 2.", 0},
    /* 69 */ {GotoMark3, "GotoMark3", "", "Goto bookmark 3.", 0},
    /* 70 */ {GotoMark4, "GotoMark4", "", "Goto bookmark 4.", 0},
    /* 71 */ {GotoMark5, "GotoMark5", "", "Goto bookmark 5.", 0},
    /* 72 */ {GotoMark6, "GotoMark6", "", "Goto bookmark 6.", 0},
    /* 73 */ {GotoMark7, "GotoMark7", "", "Goto bookmark 7.", 0},
    /* 74 */ {GotoMark8, "GotoMark8", "", "Goto bookmark 8.", 0},
    /* 75 */ {GotoMark9, "GotoMark9", "", "Goto bookmark 9.", 0},
    /* 76 */ {SetMark0, "SetMark0", "", "Set bookmark 0.", 0},
    /* 77 */ {SetMark1, "SetMark1", "", "Set bookmark 1.", 0},
    /* 78 */ {SetMark2, "SetMark2", "", "Set bookmark 2.", 0},
    /* 79 */ {SetMark3, "SetMark3", "", "Set bookmark 3.", 0},
    /* 80 */ {SetMark4, "SetMark4", "", "Set bookmark 4.", 0},
    /* 81 */ {SetMark5, "SetMark5", "", "Set bookmark 5.", 0},
    /* 82 */ {SetMark6, "SetMark6", "", "Set bookmark 6.", 0},
    /* 83 */ {SetMark7, "SetMark7", "", "Set bookmark 7.", 0},
    /* 84 */ {SetMark8, "SetMark8", "", "Set bookmark 8.", 0},
    /* 85 */ {SetMark9, "SetMark9", "", "Set bookmark 9.", 0},
    /* 86 */ {DisplayHelpfile1, "DisplayHelpfile1", "", "Display help file.", 0},
    /* 87 */ {DisplayHelpfile2, "DisplayHelpfile2", "", "Display help file.", 0},
    /* 88 */ {DisplayHelpfile3, "DisplayHelpfile3", "", "Display help file.", 0},
    /* 89 */ {DisplayHelpfile4, "DisplayHelpfile4", "", "Display help file.", 0},
    /* 90 */ {DisplayHelpfile5, "DisplayHelpfile5", "", "Display help file.", 0},
    /* 91 */ {WindowCascade, "WindowCascade", "Cascade", "Cascase windows on the desktop.", NeedsBuffer},
    /* 92 */ {WindowTileVertical, "WindowTileVertical", "Tile vertical", "Tile windows vertically on the desktop.", NeedsBuffer},
    /* 93 */ {WindowTileHorizontal, "WindowTileHorizontal", "Tile horizontal", "Tile windows horizontally on the desktop.", NeedsBuffer},
    /* 94 */ {WindowNext, "WindowNext", "Next window", "Next edit buffer.", NeedsBuffer},
    /* 95 */ {WindowPrevious, "WindowPrevious", "Previous window", "Previous edit buffer.", NeedsBuffer},
    /* 96 */ {WindowClose, "WindowClose", "Close window", "Close edit buffer.", NeedsBuffer},
    /* 97 */ {Accelerators, "Accelerators", "Set accelerators", "Set accelerators.", 0},
    /* 98 */ {nullptr, "", "", "", 0},
};
// clang-format on

namespace {

bool SameNameIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

bool IsValidIndex(int index) {
    return index >= 0 && index < CommandRowCount;
}

} // namespace

const CommandRow* CommandByName(std::string_view name, const char* reporter, bool report,
                                int* outIndex) {
    for (int row = 0; row < CommandRowCount; ++row) {
        if (SameNameIgnoringCase(CommandTable[row].name, name)) {
            if (outIndex != nullptr) *outIndex = row;
            return &CommandTable[row];
        }
    }
    if (report) ReportStartupError(ErrorUnknownCommand, std::string(name).c_str(), reporter);
    if (outIndex != nullptr) *outIndex = -1;
    return nullptr;
}

int CommandIndexOfHandler(CommandHandler handler) {
    // The terminating row's null handler is not a command.
    if (handler == nullptr) return -1;
    for (int row = 0; row < CommandRowCount; ++row)
        if (CommandTable[row].handler == handler) return row;
    return -1;
}

int CommandIndexOfMenuId(int menuId) {
    if (menuId < CommandMenuIdBase) return -1;
    const int index = menuId - CommandMenuIdBase;
    return index < CommandRowCount ? index : -1;
}

const char* CommandLabel(int index) {
    if (!IsValidIndex(index)) return nullptr;
    const std::string* label = TheEditor().commands.labelOverrides[static_cast<size_t>(index)];
    return label != nullptr ? label->c_str() : CommandTable[index].label;
}

const char* CommandDescription(int index) {
    return IsValidIndex(index) ? CommandTable[index].description : nullptr;
}

int InvokeCommand(int index) {
    if (IsValidIndex(index) && CommandTable[index].handler != nullptr)
        CommandTable[index].handler();
    return 1;
}

void SetCommandsEnabled(uint32_t mask, bool enabled) {
    Host& host = TheEditor().host;
    for (int row = 0; row < CommandRowCount; ++row)
        if ((CommandTable[row].flags & mask) != 0) {
            host.EnableCommand(row, enabled);
            SetButtonEnabled(row, enabled);
        }
}

void UpdateCommandStates() {
    Editor& editor = TheEditor();
    const EditBuffer* buffer = editor.engine.currentBuffer;
    const bool haveBuffer = buffer != nullptr && !buffer->IsClosed();
    const bool modified = haveBuffer && buffer->lines.modified != 0 && buffer->lines.readOnly == 0;
    const Transaction* current = haveBuffer ? buffer->undoCurrent : nullptr;
    const bool canUndo = current != nullptr && current->prev != nullptr;
    const bool canRedo = current != nullptr && current->next != nullptr;
    const bool selection = haveBuffer && buffer->lines.hasSelection != 0;
    const CommandState::ErrorListProbe probe = editor.commands.hasErrorList;
    const bool errorList = probe != nullptr && probe();

    SetCommandsEnabled(NeedsBuffer, haveBuffer);
    SetCommandsEnabled(NeedsModified, modified);
    SetCommandsEnabled(NeedsUndo, canUndo);
    SetCommandsEnabled(NeedsRedo, canRedo);
    SetCommandsEnabled(NeedsSelection, selection);
    SetCommandsEnabled(NeedsErrorList, errorList);
}

} // namespace ruvo
