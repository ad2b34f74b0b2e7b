// The "HDL Edits" dialog: a range edit over the selection, the whole text or typed lines.
#pragma once

namespace ruvo {

constexpr const char* NoValidRangeText = "No valid range specified.";

// The command: shows the dialog (built on first use, then kept).
int EditSpecial();

} // namespace ruvo
