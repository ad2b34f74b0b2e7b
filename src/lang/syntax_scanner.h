// The colouring scanner: splits one line into coloured runs, with no state between lines.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/line_list.h"
#include "lang/language_table.h"

namespace ruvo {

enum class RunKind : uint8_t { Plain, Comment, Keyword, Abbreviation, String };

struct ColourRun {
    int32_t start = 0; // column (byte index) in the line
    int32_t length = 0;
    uint32_t color = ColorBlack;
    int typeface = 0; // for printing; the screen uses only the colour
    RunKind kind = RunKind::Plain;
    int group = 0; // keyword group 1 to 5 for RunKind::Keyword, else 0
};

// Enough runs for any line of the text store: every run holds at least one character.
constexpr int MaxRunsPerLine = MaxLineLength + 1;

// Fills runs with the line's runs in order, covering every character exactly once (an empty
// line has none), and returns their number. With colouring off or no language the line is
// one black run. Should capacity run short, the last run takes the rest of the line in the
// text colour. Allocates nothing.
int ScanLine(std::string_view line, const LanguageDef* language, ColourRun* runs, int capacity);
// The same runs in the language's colours whatever the Colors option says (printing).
int ScanLineInLanguage(std::string_view line, const LanguageDef& language, ColourRun* runs,
                       int capacity);

} // namespace ruvo
