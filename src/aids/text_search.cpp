// Find and replace over one buffer: the search ranges, the match that counts, and the
// replacements, each its own undo step.
#include "aids/text_search.h"

#include <string>

#include "aids/aids_state.h"
#include "engine/command_target.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/found_text.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "engine/word_search.h"
#include "host/host.h"

namespace ruvo {

namespace {

constexpr int MessagePane = 4;
constexpr TextPos Origin = MakePos(0, 0);
constexpr TextPos KeepSelection = MakePos(SelectKeep, SelectKeep);
constexpr ScrollTarget ShowMatch{ScrollCentreIfHidden, ScrollShow};

// Where one search runs. In the selected range a match must also lie inside the selection.
struct SearchBounds {
    TextPos start;
    TextPos end;
    bool inSelection = false;
    TextPos selStart;
    TextPos selEnd;
};

// The selection before a replacement, given back afterwards.
struct KeptSelection {
    bool had = false;
    TextPos start;
    TextPos end;
};

int32_t Length(std::string_view text) {
    return static_cast<int32_t>(text.size());
}

TextPos EndOfText(const EditBuffer& buffer) {
    return MakePos(LastLine(buffer), LineLength(buffer, LastLine(buffer)));
}

TextPos Caret(const EditBuffer& buffer) {
    return ClampPos(buffer, buffer.cursor.line, buffer.cursor.column);
}

TextPos MatchEnd(const SearchState& state, TextPos match) {
    return MakePos(match.line, match.column + Length(state.searchText));
}

bool BeyondEnd(const SearchState& state, const SearchBounds& bounds) {
    return state.forward ? PosLess(bounds.end, bounds.start) : PosLess(bounds.start, bounds.end);
}

// The range chosen in the state; false for the selected range without a selection.
bool RangeOf(const EditBuffer& buffer, const SearchState& state, SearchBounds& bounds) {
    if (state.selectedOnly) {
        if (!buffer.lines.hasSelection) return false;
        const TextPos last = PrevPos(buffer, buffer.selEnd);
        bounds.start = state.forward ? buffer.selStart : last;
        bounds.end = state.forward ? last : buffer.selStart;
        bounds.inSelection = true;
        bounds.selStart = buffer.selStart;
        bounds.selEnd = buffer.selEnd;
        return true;
    }
    const TextPos whole = state.forward ? Origin : EndOfText(buffer);
    bounds.start = state.fromCursor ? Caret(buffer) : whole;
    bounds.end = state.forward ? EndOfText(buffer) : Origin;
    return true;
}

bool MatchesAt(const EditBuffer& buffer, const SearchState& state, TextPos pos) {
    TextPos found;
    return searchInBuffer(buffer, state.searchText, state.caseSensitive, state.wholeWords, pos,
                          NextPos(buffer, pos), found) &&
           PosEqual(found, pos);
}

// The first match from bounds.start that counts; none when the start lies beyond the end.
bool FindMatch(const EditBuffer& buffer, const SearchState& state, SearchBounds bounds,
               TextPos& found) {
    const int32_t length = Length(state.searchText);
    if (bounds.inSelection && state.forward && PosLess(bounds.start, bounds.selStart)) {
        bounds.start = bounds.selStart;
    } else if (bounds.inSelection && !state.forward) {
        // Backwards, start where a match still ends by the end of the selection.
        TextPos latest = MakePos(bounds.selEnd.line, bounds.selEnd.column - length);
        if (latest.column < 0) {
            if (bounds.selEnd.line == 0) return false;
            latest = MakePos(bounds.selEnd.line - 1, LineLength(buffer, bounds.selEnd.line - 1));
        }
        if (PosLess(latest, bounds.start)) {
            bounds.start = latest;
            if (PosEqual(bounds.start, bounds.end)) {
                found = bounds.start;
                return MatchesAt(buffer, state, found);
            }
        }
    }
    if (BeyondEnd(state, bounds)) return false;
    if (!searchInBuffer(buffer, state.searchText, state.caseSensitive, state.wholeWords,
                        bounds.start, bounds.end, found)) {
        return false;
    }
    // Forwards, every later match ends later still.
    return !bounds.inSelection || PosLessOrEqual(MatchEnd(state, found), bounds.selEnd);
}

void ReportNotFound(const SearchState& state) {
    TheEditor().host.SetStatusPane(MessagePane,
                                   "Search string '" + state.searchText + "' not found.", true);
}

// The caret goes to the match start with the match selected.
void SelectMatch(EditBuffer& buffer, const SearchState& state, TextPos match) {
    const TextPos end = MatchEnd(state, match);
    RecordEdit(buffer, Origin, Origin, "", match, ShowMatch, match, end);
    buffer.anchor = end;
}

// In the selected range the selection stays for the next search; the match is highlighted.
void ShowFound(EditBuffer& buffer, const SearchState& state, TextPos match) {
    if (!state.selectedOnly) {
        SelectMatch(buffer, state, match);
        return;
    }
    RecordEdit(buffer, Origin, Origin, "", match, ShowMatch, KeepSelection, KeepSelection);
    ShowFoundText(buffer, match, MatchEnd(state, match));
}

KeptSelection SelectionOf(const EditBuffer& buffer) {
    return {buffer.lines.hasSelection != 0, buffer.selStart, buffer.selEnd};
}

void Restore(EditBuffer& buffer, const KeptSelection& kept) {
    if (!kept.had) return;
    if (buffer.lines.hasSelection && PosEqual(buffer.selStart, kept.start) &&
        PosEqual(buffer.selEnd, kept.end)) {
        return;
    }
    RecordEdit(buffer, Origin, Origin, "", Caret(buffer), ShowMatch, kept.start, kept.end);
}

// Where a position behind the replaced text goes; one inside it goes to the new text's end.
TextPos Shifted(TextPos pos, TextPos match, TextPos oldEnd, TextPos newEnd) {
    if (pos.line != match.line || pos.column <= match.column) return pos;
    if (pos.column < oldEnd.column) return newEnd;
    return MakePos(newEnd.line, newEnd.column + pos.column - oldEnd.column);
}

// Replaces the match as one undo step. The kept selection and the bounds follow the text;
// `next` is where the search goes on. False when the edit was refused.
bool ReplaceMatch(EditBuffer& buffer, const SearchState& state, TextPos match, KeptSelection& kept,
                  SearchBounds& bounds, TextPos& next) {
    const TextPos oldEnd = MatchEnd(state, match);
    const TextPos newEnd = EndOfInsertion(match, state.replaceText);
    TextPos caret = match;
    if (state.forward && !state.replaceText.empty())
        caret = newEnd.column > 0 ? MakePos(newEnd.line, newEnd.column - 1) : newEnd;
    KeptSelection after = kept;
    after.start = Shifted(kept.start, match, oldEnd, newEnd);
    after.end = Shifted(kept.end, match, oldEnd, newEnd);

    const Transaction* before = buffer.undoCurrent;
    RecordEdit(buffer, match, oldEnd, state.replaceText, caret, ShowMatch,
               after.had ? after.start : caret, after.had ? after.end : caret);
    if (buffer.undoCurrent == before ||
        !TextStandsAt(buffer, match, StoredText(state.replaceText))) {
        return false;
    }
    buffer.anchor = match;
    kept = after;
    bounds.end = Shifted(bounds.end, match, oldEnd, newEnd);
    bounds.selEnd = Shifted(bounds.selEnd, match, oldEnd, newEnd);
    // An empty new text leaves the next text at the match start itself.
    next = !state.forward ? PrevPos(buffer, match) : state.replaceText.empty() ? match : newEnd;
    return true;
}

// The remaining matches from `match` on, each asked about when the state says so.
void ReplaceLoop(EditBuffer& buffer, const SearchState& state, SearchBounds bounds, TextPos match) {
    KeptSelection kept = SelectionOf(buffer);
    for (;;) {
        if (state.prompt) SelectMatch(buffer, state, match);
        const int answer = confirmReplace(state);
        if (answer == AnswerCancel) break;
        TextPos next;
        if (answer == AnswerYes) {
            if (!ReplaceMatch(buffer, state, match, kept, bounds, next)) break;
        } else {
            next = state.forward ? NextPos(buffer, match) : PrevPos(buffer, match);
        }
        // Backwards from the first position there is nothing left.
        if (PosEqual(next, match) && (!state.forward || answer != AnswerYes)) break;
        bounds.start = next;
        if (!FindMatch(buffer, state, bounds, match)) break;
    }
    Restore(buffer, kept);
    if (kept.had) buffer.anchor = kept.start;
}

// FindNextText from an explicit start.
void RepeatFrom(EditBuffer& buffer, const SearchState& state, TextPos start) {
    SearchBounds bounds;
    if (!RangeOf(buffer, state, bounds)) return;
    if (state.replaceMode && buffer.lines.readOnly) return;
    bounds.start = start;
    TextPos match;
    if (!FindMatch(buffer, state, bounds, match)) {
        ReportNotFound(state);
        return;
    }
    if (state.replaceMode) {
        ReplaceLoop(buffer, state, bounds, match);
    } else {
        ShowFound(buffer, state, match);
    }
}

} // namespace

bool searchInBuffer(const EditBuffer& buffer, std::string_view text, bool caseSensitive,
                    bool wholeWords, TextPos start, TextPos end, TextPos& found) {
    return SearchText(buffer, text, caseSensitive, wholeWords, TextRange{start, end}, found) == 1;
}

int confirmReplace(const SearchState& state) {
    if (!state.prompt) return AnswerYes;
    return TheEditor().host.QuestionBox(
        "Replace text:", "Replace this occurence of:\n'" + state.searchText + "'",
        QuestionKind::YesNoCancel);
}

void RunSearch(EditBuffer& buffer, const SearchState& state) {
    SearchBounds bounds;
    if (!RangeOf(buffer, state, bounds)) return;
    if (state.replaceMode && buffer.lines.readOnly) return;
    TextPos match;
    if (!FindMatch(buffer, state, bounds, match)) {
        ReportNotFound(state);
        return;
    }
    if (!state.replaceMode) {
        ShowFound(buffer, state, match);
        return;
    }
    KeptSelection kept = SelectionOf(buffer);
    if (state.prompt) SelectMatch(buffer, state, match);
    const int answer = confirmReplace(state);
    TextPos next = state.forward ? NextPos(buffer, match) : PrevPos(buffer, match);
    bool goOn = answer != AnswerCancel;
    if (answer == AnswerYes) {
        goOn = ReplaceMatch(buffer, state, match, kept, bounds, next);
    } else {
        Restore(buffer, kept);
        buffer.anchor = match;
    }
    if (state.replaceAll && goOn) RepeatFrom(buffer, state, next);
}

void RepeatSearch(EditBuffer& buffer, const SearchState& state) {
    const TextPos caret = Caret(buffer);
    RepeatFrom(buffer, state, state.forward ? NextPos(buffer, caret) : PrevPos(buffer, caret));
}

} // namespace ruvo
