// Loading and saving of the language table from and to the profile.
#pragma once

namespace ruvo {

void LoadLanguages();
void SaveLanguages();

} // namespace ruvo
