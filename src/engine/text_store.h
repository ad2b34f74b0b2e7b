// Line-level operations on a buffer's text: positions, columns, range text, insert and delete.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/text_pos.h"

namespace ruvo {

struct EditBuffer;

// --- Positions ---------------------------------------------------------------------------
// A position inside the text: the line within 0 .. lineCount-1, the column within the line.
TextPos ClampPos(const EditBuffer& buffer, int32_t line, int32_t column);
// The smaller of value and lineCount - visibleLines, not below 0 (a last page is full).
int32_t ClampTopLine(const EditBuffer& buffer, int32_t value);
// Screen column of byte `column`, tabs expanded with the TabSize option.
int DisplayColumn(const char* lineText, int column);
// The byte position on a (clamped) line whose screen column first reaches screenColumn;
// a screen column inside a tab's span gives the column after the tab.
TextPos ColumnFromDisplay(const EditBuffer& buffer, int32_t line, int screenColumn);
// One character forward / back, across line ends; the ends of the text stay put.
TextPos NextPos(const EditBuffer& buffer, TextPos pos);
TextPos PrevPos(const EditBuffer& buffer, TextPos pos);
// Where text inserted at start would end.
TextPos EndOfInsertion(TextPos start, std::string_view text);
int CountNewlines(std::string_view text);

// --- Text --------------------------------------------------------------------------------
// The text from start up to end from the checked allocator (the caller releases it), lines
// joined by CR LF or by LF. Empty when start is not before end; null when memory ran out.
[[nodiscard]] char* GetRangeText(const EditBuffer& buffer, TextPos start, TextPos end,
                                 bool useCRLF);
// The same text as a string, joined by line feeds.
std::string RangeText(const EditBuffer& buffer, TextPos start, TextPos end);
// True when `text`, lines joined by line feeds, stands in the buffer from `start` on.
bool TextStandsAt(const EditBuffer& buffer, TextPos start, std::string_view text);
// The text as InsertText stores it: a carriage return just before a line feed dropped.
std::string StoredText(std::string_view text);

// Inserts text (which may hold line feeds) at line/column. 1 on success, also for empty text;
// 0 with nothing changed when a resulting line would pass MaxLineLength or memory ran out.
[[nodiscard]] int InsertText(EditBuffer& buffer, std::string_view text, int32_t line,
                             int32_t column);
// Inserts text whose line feeds separate exactly the lines to make, carriage returns and all
// (the inverse of RangeText). Results as for InsertText.
[[nodiscard]] int InsertExactText(EditBuffer& buffer, std::string_view text, int32_t line,
                                  int32_t column);
// Stores a copy of text as the line. 1 on success; 0 with the line kept when the text passes
// MaxLineLength or memory ran out.
int ReplaceLine(EditBuffer& buffer, std::string_view text, int32_t line);
// Deletes start..end (end exclusive). 1 on success, also when start is not before end;
// 0 with nothing changed when the joined line would pass MaxLineLength or memory ran out.
[[nodiscard]] int DeleteRange(EditBuffer& buffer, TextPos start, TextPos end);

} // namespace ruvo
