// State of the language subsystem: the language table.
#pragma once

namespace ruvo {

struct LanguageState {
};

} // namespace ruvo
