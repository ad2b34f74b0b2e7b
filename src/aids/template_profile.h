// The [Templates] profile section: the loaded template files, kept between runs.
#pragma once

namespace ruvo {

// Loads the files named by keys "1", "2", ... up to the first empty value; a file that fails
// does not stop the others and is kept for the next save.
void LoadTemplatesFromProfile();
// Writes the loaded paths (then those that failed at start-up) as keys "1".."n", and empties
// the keys up to TemplateFilesEverLoaded, so removed files disappear.
void SaveTemplatesToProfile();

} // namespace ruvo
