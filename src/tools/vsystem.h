// V-System compilation: the [Vsystem] settings, the command lines and the compile runs.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

struct VsystemSettings;

// Modes of compileWithVsystem.
enum VsystemMode : int {
    ModeCreateLibrary = 0,
    ModeVcom = 1,
    ModeVlog = 2,
    ModeMapLibrary = 3,
    ModeListMappings = 4,
};

void loadVsystem();
void saveVsystem();

// The command line of a mode; toolDirectory ends in '\' or is empty.
std::string buildVsystemCommand(const VsystemSettings& settings, std::string_view libraryDirectory,
                                int mode, std::string_view toolDirectory,
                                std::string_view sourceName);
// The directory of the Executable setting followed by '\', or empty without one.
std::string vsystemToolDirectory(std::string_view executable);
// The name a compiler running in the source's directory gets: the file-name part, quoted
// when it holds a blank.
std::string compilerFileName(std::string_view sourceName);

// Clears the errors and, for a compile of a language file, makes the active buffer the
// source and saves it. False when nothing may run.
[[nodiscard]] bool prepareSource(bool languageFile);
// 1 when a run was started or the path is missing, 0 when nothing ran.
int compileWithVsystem(int mode);

} // namespace ruvo
