// Deleting characters, words, lines and the selection; Return with auto-indent; undo and redo.
#pragma once

namespace ruvo {

int DeleteChar();    // the character under the caret, or joins the next line
int BackspaceChar(); // the character before the caret, or joins the previous line
int DeleteLine();    // the caret's line; on the last line only its text
int DeleteWord();    // from the caret to the end of the word, blank run or character
int NewLine();       // Return: a line break, indented like the current line with AutoIndent
int DeleteSelection();
int EditUndo();
int EditRedo();

} // namespace ruvo
