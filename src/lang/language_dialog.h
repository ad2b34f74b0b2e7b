// The "Language Configuration" dialog: languages added, deleted and edited in place.
#pragma once

namespace ruvo {

// The LanguageOptions command: keeps a copy of the table for Cancel, builds the dialog on
// first use and shows the active buffer's language.
int LanguageOptions();

} // namespace ruvo
