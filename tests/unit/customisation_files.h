// Helpers of the keyboard, menu and button tests: the start-up report's lines after its banner.
#pragma once

#include <string>
#include <vector>

#include "engine/editor.h"
#include "engine/line_list.h"

namespace ruvo {

inline std::vector<std::string> ReportedLines(const Editor& editor) {
    std::vector<std::string> lines;
    const LineList* list = editor.settings.startupErrors.lines;
    for (int i = 3; list != nullptr && i < list->lineCount; ++i)
        lines.emplace_back(list->lineText[i]);
    return lines;
}

} // namespace ruvo
