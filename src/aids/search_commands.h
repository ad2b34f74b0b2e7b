// The commands FindText, ReplaceText, FindNextText and GotoLine with their dialogs.
#pragma once

#include <string_view>

namespace ruvo {

int FindText();
int ReplaceText();
int FindNextText();
int GotoLine();

// The leading decimal integer of a text (blanks and a sign before it allowed); 0 without digits.
int LeadingNumber(std::string_view text);

} // namespace ruvo
