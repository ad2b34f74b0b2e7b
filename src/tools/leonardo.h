// The Leonardo synthesis run through its script file.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

constexpr const char* LeonardoScriptName = "leonardo.script";

// The script's one line for a source file.
std::string leonardoScript(std::string_view sourceName);
// 1 when nothing ran, 0 otherwise.
int leonardoCompile();

} // namespace ruvo
