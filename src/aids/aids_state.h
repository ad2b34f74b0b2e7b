// State of the search and editing aids: the search choices kept for the whole run.
#pragma once

#include <memory>
#include <string>

namespace ruvo {

struct GadgetDialog;

constexpr int MaxSearchText = 255;

// The last choices of the Find and Replace dialogs, shown again by each of them.
struct SearchState {
    std::string searchText;    // the text to find (the old text in replace mode)
    std::string replaceText;   // the new text
    bool replaceMode = false;  // the last confirmed dialog was Replace
    bool fromCursor = false;   // range "F&rom Cursor"
    bool selectedOnly = false; // range "&Selected text"; neither: "&Entire Text"
    bool forward = true;
    bool caseSensitive = false;
    bool wholeWords = false;
    bool replaceAll = false;
    bool prompt = false; // ask before each replacement
};

struct AidsState {
    AidsState();
    AidsState(const AidsState&) = delete;
    AidsState& operator=(const AidsState&) = delete;
    ~AidsState();

    SearchState search;
    std::unique_ptr<GadgetDialog> gotoLineDialog; // built on first use, kept for the run
};

} // namespace ruvo
