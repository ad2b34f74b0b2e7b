// Placeholder until the language subsystem lands.
#include "lang/language_io.h"

namespace ruvo {

void LoadLanguages() {}
void SaveLanguages() {}

} // namespace ruvo
