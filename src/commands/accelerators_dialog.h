// The "Keyboard accelerators mapping:" dialog: every command with the key bound to it.
#pragma once

namespace ruvo {

// The handler of command Accelerators: builds the dialog the first time and shows it.
int Accelerators();

} // namespace ruvo
