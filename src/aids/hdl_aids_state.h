// State of the HDL editing aids: loaded templates, their dialogs, and identifier completion.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "aids/template_file.h"
#include "engine/text_pos.h"

namespace ruvo {

struct EditBuffer;
struct Gadget;
struct GadgetDialog;

constexpr int MaxParameterValueLength = 80;

struct TemplatesDialog {
    std::unique_ptr<GadgetDialog> dialog;
    Gadget* fileList = nullptr;
    Gadget* templateList = nullptr;
    Gadget* removeButton = nullptr;
    Gadget* insertButton = nullptr;
};

struct ExpandTemplateDialog {
    std::unique_ptr<GadgetDialog> dialog;
    std::array<Gadget*, MaxTemplateParameters> labels{};
    std::array<Gadget*, MaxTemplateParameters> fields{};
    int fileIndex = -1; // the template being expanded
    int templateIndex = -1;
};

struct TemplateState {
    std::vector<std::unique_ptr<TemplateFile>> loadedFiles; // LoadedTemplateFiles, in order
    int filesEverLoaded = 0; // TemplateFilesEverLoaded: only ever counted up
    // Paths named in the profile whose files could not be loaded; written back at exit.
    std::vector<std::string> unloadedPaths;
    int selectedFile = -1;                                          // of the Templates dialog
    int selectedTemplate = -1;                                      // of the selected file
    std::array<std::string, MaxTemplateParameters> parameterValues; // typed last
    // Where the next insertion starts when it replaces the word before the cursor.
    std::optional<TextPos> replaceFrom;
    TemplatesDialog templatesDialog;
    ExpandTemplateDialog expandDialog;
};

// The HDL Edits dialog.
struct RangeEditDialog {
    std::unique_ptr<GadgetDialog> dialog;
    Gadget* action = nullptr;
    Gadget* options = nullptr;
    Gadget* selection = nullptr;
    Gadget* all = nullptr;
    Gadget* startLabel = nullptr;
    Gadget* startField = nullptr;
    Gadget* endLabel = nullptr;
    Gadget* endField = nullptr;
};

// What IdentifierExpand remembers between calls.
struct CompletionState {
    const EditBuffer* buffer = nullptr; // of the last completion
    TextPos cursorAfter;                // where the last completion left the cursor
    std::string prefix;
    TextPos searchPos; // the last candidate was found here; the next search starts before it
    TextPos wordStart; // start of the text being replaced
    std::string lastCandidate;
};

// The dialogs are freed where their type is complete.
struct HdlAidsState {
    HdlAidsState();
    HdlAidsState(const HdlAidsState&) = delete;
    HdlAidsState& operator=(const HdlAidsState&) = delete;
    ~HdlAidsState();

    TemplateState templates;
    RangeEditDialog rangeEditDialog;
    CompletionState completion;
};

} // namespace ruvo
